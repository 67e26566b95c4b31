#include "workshop/trial/Trials.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <exception>
#include <string>
#include <system_error>
#include <thread>

#include "workshop/trial/Trial.h"

namespace workshop {
namespace {

/// A trial under way. Its bytes: the length of the error, the error, the figures, the series.
struct Child {
  pid_t pid = -1;
  int pipe = -1;
  std::size_t job = 0;
  std::string bytes{};
};

std::system_error systemError(const char* what) {
  return {errno, std::generic_category(), what};
}

std::string packed(const TrialResult& result) {
  std::string bytes;
  const auto append = [&bytes](const void* from, std::size_t count) {
    bytes.append(static_cast<const char*>(from), count);
  };
  const std::size_t length = result.error.size();
  append(&length, sizeof length);
  bytes += result.error;
  append(&result.figures, sizeof result.figures);
  append(result.series.data(), result.series.size() * sizeof(Sample));
  return bytes;
}

TrialResult unpacked(const std::string& bytes) {
  TrialResult result;
  std::size_t length = 0;
  const std::size_t least = sizeof length + sizeof result.figures;
  if (bytes.size() >= least) std::memcpy(&length, bytes.data(), sizeof length);
  if (bytes.size() < least || bytes.size() - least < length) {
    result.error = "the trial's process died";
    return result;
  }
  const char* at = bytes.data() + sizeof length;
  result.error.assign(at, length);
  at += length;
  std::memcpy(&result.figures, at, sizeof result.figures);
  at += sizeof result.figures;
  result.series.resize((bytes.size() - least - length) / sizeof(Sample));
  if (!result.series.empty()) {
    std::memcpy(result.series.data(), at, result.series.size() * sizeof(Sample));
  }
  return result;
}

void writeAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) return;
    if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

[[noreturn]] void work(const TrialJob& job, int pipe) {
  TrialResult result;
  try {
    result = runTrialHere(job);
  } catch (const std::exception& problem) {
    result = {};
    result.error = problem.what();
  }
  writeAll(pipe, packed(result));
  // Nothing of the parent's is to be flushed or undone here.
  ::_exit(0);
}

Child start(const TrialJob& job, std::size_t index) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw systemError("no pipe for a trial");
  const pid_t parent = ::getpid();
  const pid_t pid = ::fork();
  if (pid < 0) {
    const auto problem = systemError("no process for a trial");
    ::close(ends[0]);
    ::close(ends[1]);
    throw problem;
  }
  if (pid == 0) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) ::_exit(1);
    work(job, ends[1]);
  }
  ::close(ends[1]);
  return {pid, ends[0], index, {}};
}

/// The trials under way; none outlives it.
class Crew {
 public:
  Crew() = default;
  Crew(const Crew&) = delete;
  Crew& operator=(const Crew&) = delete;
  ~Crew() {
    for (const Child& child : children_) {
      ::kill(child.pid, SIGKILL);
      finish(child);
    }
  }

  [[nodiscard]] std::size_t size() const { return children_.size(); }
  void add(Child child) { children_.push_back(std::move(child)); }

  /// Waits until at least one trial is over and takes those that are.
  std::vector<Child> takeFinished() {
    std::vector<Child> over;
    while (over.empty()) {
      std::vector<pollfd> polled;
      for (const Child& child : children_) polled.push_back({child.pipe, POLLIN, 0});
      if (::poll(polled.data(), polled.size(), -1) < 0) {
        if (errno == EINTR) continue;
        throw systemError("can't wait for the trials");
      }
      for (std::size_t i = children_.size(); i-- > 0;) {
        if (polled[i].revents == 0 || !readSome(children_[i])) continue;
        over.push_back(std::move(children_[i]));
        children_.erase(children_.begin() + static_cast<std::ptrdiff_t>(i));
        finish(over.back());
      }
    }
    return over;
  }

 private:
  /// True at the end of what CHILD has to say.
  static bool readSome(Child& child) {
    std::array<char, 65536> piece;
    const ssize_t got = ::read(child.pipe, piece.data(), piece.size());
    if (got < 0) return errno != EINTR;
    child.bytes.append(piece.data(), static_cast<std::size_t>(got));
    return got == 0;
  }

  static void finish(const Child& child) {
    ::close(child.pipe);
    while (::waitpid(child.pid, nullptr, 0) < 0 && errno == EINTR) {
    }
  }

  std::vector<Child> children_;
};

}  // namespace

std::vector<TrialResult> runTrials(std::span<const TrialJob> jobs, int workers,
                                   const Progress& progress) {
  const auto wanted = static_cast<std::size_t>(
      workers > 0 ? workers : static_cast<int>(std::max(1U, std::thread::hardware_concurrency())));
  std::vector<TrialResult> results(jobs.size());
  Crew crew;
  std::size_t next = 0;
  std::size_t done = 0;
  while (done < jobs.size()) {
    while (next < jobs.size() && crew.size() < wanted) {
      crew.add(start(jobs[next], next));
      ++next;
    }
    for (const Child& child : crew.takeFinished()) {
      results[child.job] = unpacked(child.bytes);
      ++done;
      if (progress) progress(done, jobs.size());
    }
  }
  return results;
}

}  // namespace workshop
