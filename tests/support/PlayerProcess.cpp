#include "tests/support/PlayerProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <system_error>

#include "tests/support/SystemError.h"

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

[[nodiscard]] milliseconds Until(Clock::time_point deadline) {
  const auto left = std::chrono::ceil<milliseconds>(deadline - Clock::now());
  return std::max(left, milliseconds::zero());
}

/// Both ends close when another program is started.
struct NewPipe {
  int reading = -1;
  int writing = -1;

  NewPipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw SystemError("pipe");
    reading = ends[0];
    writing = ends[1];
    fcntl(reading, F_SETFL, O_NONBLOCK);
  }
};

/// The child's side of the fork; only calls that are safe there.
[[noreturn]] void Become(const char* program, char* const* arguments, const char* directory,
                         int output, int errors, pid_t parent) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  const rlimit none{0, 0};
  setrlimit(RLIMIT_CORE, &none);
  for (int number = 1; number < NSIG; ++number) std::signal(number, SIG_DFL);
  sigset_t empty;
  sigemptyset(&empty);
  sigprocmask(SIG_SETMASK, &empty, nullptr);
  const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
  if (getppid() == parent && chdir(directory) == 0 && dup2(nothing, 0) >= 0 &&
      dup2(output, 1) >= 0 && dup2(errors, 2) >= 0) {
    execv(program, arguments);
  }
  _exit(127);
}

}  // namespace

PlayerProcess::PlayerProcess(const std::string& program, const std::vector<std::string>& arguments,
                             const std::filesystem::path& directory) {
  const NewPipe output;
  const NewPipe errors;
  std::vector<std::string> words{program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);

  const pid_t parent = getpid();
  pid_ = fork();
  if (pid_ == 0) {
    Become(program.c_str(), pointers.data(), directory.c_str(), output.writing, errors.writing,
           parent);
  }
  const int error = errno;
  close(output.writing);
  close(errors.writing);
  pipes_[0].descriptor = output.reading;
  pipes_[1].descriptor = errors.reading;
  errno = error;
  if (pid_ < 0) throw SystemError("fork");
  // By its number: the C library's own declaration can't be linked from C++ in every version.
  handle_ = static_cast<int>(syscall(SYS_pidfd_open, pid_, 0));
  if (handle_ < 0) {
    const std::system_error failure = SystemError("pidfd_open");
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
    throw failure;
  }
  fcntl(handle_, F_SETFD, FD_CLOEXEC);
}

PlayerProcess::~PlayerProcess() {
  if (!status_) {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
  for (const Pipe& pipe : pipes_) {
    if (pipe.descriptor >= 0) close(pipe.descriptor);
  }
  close(handle_);
}

void PlayerProcess::Signal(int number) const {
  // Once reaped, the number may be another process's.
  if (status_ || kill(pid_, number) != 0) throw SystemError("kill");
}

std::optional<int> PlayerProcess::WaitForEnd(milliseconds patience) {
  const auto deadline = Clock::now() + patience;
  while (!status_) {
    int status = 0;
    if (waitpid(pid_, &status, WNOHANG) == pid_) {
      status_ = status;
    } else if (Clock::now() >= deadline) {
      return std::nullopt;
    } else {
      Pump(Until(deadline), true);
    }
  }
  Pump(milliseconds::zero(), false);
  return status_;
}

const std::string& PlayerProcess::Output() {
  Pump(milliseconds::zero(), false);
  return pipes_[0].text;
}

const std::string& PlayerProcess::Errors() {
  Pump(milliseconds::zero(), false);
  return pipes_[1].text;
}

bool PlayerProcess::WaitForOutput(std::string_view text, milliseconds patience) {
  const auto deadline = Clock::now() + patience;
  while (Output().find(text) == std::string::npos) {
    if (Clock::now() >= deadline || pipes_[0].descriptor < 0) return false;
    Pump(Until(deadline), false);
  }
  return true;
}

void PlayerProcess::Pump(milliseconds patience, bool orEnd) {
  // poll passes over negative descriptors, which is what closed pipes become.
  std::array<pollfd, 3> sources{{{pipes_[0].descriptor, POLLIN, 0},
                                 {pipes_[1].descriptor, POLLIN, 0},
                                 {orEnd ? handle_ : -1, POLLIN, 0}}};
  if (poll(sources.data(), sources.size(), static_cast<int>(patience.count())) <= 0) return;
  for (Pipe& pipe : pipes_) {
    std::array<char, 65536> buffer{};
    ssize_t got = -1;
    while (pipe.descriptor >= 0 &&
           (got = read(pipe.descriptor, buffer.data(), buffer.size())) >= 0) {
      if (got == 0) {
        close(pipe.descriptor);
        pipe.descriptor = -1;
      }
      pipe.text.append(buffer.data(), static_cast<std::size_t>(got));
    }
  }
}

std::vector<std::string> PlayerProcess::StatFields() const {
  std::ifstream file("/proc/" + std::to_string(pid_) + "/stat");
  std::string line;
  std::getline(file, line);
  // The second field is the program's name in parentheses and may hold anything.
  const std::size_t name = line.rfind(')');
  if (name == std::string::npos) throw std::runtime_error("the process has gone");
  std::istringstream rest(line.substr(name + 1));
  return {std::istream_iterator<std::string>(rest), std::istream_iterator<std::string>()};
}

char PlayerProcess::State() const {
  return StatFields().at(0).at(0);
}

milliseconds PlayerProcess::CpuTime() const {
  // Fields 14 and 15 of proc(5), counted here from the state, which is field 3.
  const std::vector<std::string> fields = StatFields();
  const long ticks = std::stol(fields.at(11)) + std::stol(fields.at(12));
  return milliseconds(ticks * 1000 / sysconf(_SC_CLK_TCK));
}

std::string PlayerProcess::StatusField(std::string_view name) const {
  std::ifstream file("/proc/" + std::to_string(pid_) + "/status");
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(name)) return line.substr(name.size());
  }
  throw std::runtime_error("the process has gone");
}

bool PlayerProcess::HasPending(int signal) const {
  const unsigned long pending = std::stoul(StatusField("ShdPnd:"), nullptr, 16);
  return ((pending >> static_cast<unsigned>(signal - 1)) & 1U) != 0;
}

std::size_t PlayerProcess::PeakMemory() const {
  return std::stoul(StatusField("VmHWM:"));
}
