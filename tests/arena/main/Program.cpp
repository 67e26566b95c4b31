#include "tests/arena/main/Program.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace arena::test {
namespace {

std::pair<int, int> makePipe() {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) {
    throw std::system_error(errno, std::generic_category(), "pipe2");
  }
  return {ends[0], ends[1]};
}

/// Reads once; false at the end.
bool readMore(int descriptor, std::string& text) {
  std::array<char, 4096> piece{};
  const ssize_t got = ::read(descriptor, piece.data(), piece.size());
  if (got > 0) text.append(piece.data(), static_cast<std::size_t>(got));
  return got > 0;
}

std::string readAll(int descriptor) {
  std::string text;
  while (readMore(descriptor, text)) continue;
  return text;
}

}  // namespace

Program::Program(const std::vector<std::string>& arguments) {
  const auto [outputRead, outputWrite] = makePipe();
  const auto [errorsRead, errorsWrite] = makePipe();
  output_ = outputRead;
  errors_ = errorsRead;

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, outputWrite, STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, errorsWrite, STDERR_FILENO);

  std::vector<std::string> words{PITCH_BIN_DIR "/pitcharena"};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  const int error = ::posix_spawn(&process_, argv[0], &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  ::close(outputWrite);
  ::close(errorsWrite);
  if (error != 0) throw std::system_error(error, std::generic_category(), argv[0]);
}

Program::~Program() {
  if (process_ > 0) {
    ::kill(process_, SIGKILL);
    wait();
  }
  ::close(output_);
  ::close(errors_);
}

std::string Program::line() {
  while (pending_.find('\n') == std::string::npos) {
    if (!readMore(output_, pending_)) return std::exchange(pending_, {});
  }
  const auto end = pending_.find('\n');
  std::string text = pending_.substr(0, end);
  pending_.erase(0, end + 1);
  return text;
}

void Program::signal(int number) const {
  ::kill(process_, number);
}

int Program::wait() {
  int status = 0;
  while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) continue;
  process_ = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

std::string Program::restOfOutput() {
  return std::exchange(pending_, {}) + readAll(output_);
}

std::string Program::errors() {
  return readAll(errors_);
}

}  // namespace arena::test
