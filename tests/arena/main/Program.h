#pragma once

/// The program pitcharena as a process of its own, for tests of what a person meets.

#include <sys/types.h>

#include <string>
#include <vector>

namespace arena::test {

class Program {
 public:
  explicit Program(const std::vector<std::string>& arguments);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  /// The next line of standard output, without its end; empty at the end of the output.
  std::string line();
  /// Sends a signal.
  void signal(int number) const;
  /// Waits for the end and gives the exit status; minus the signal that ended it.
  int wait();
  /// The rest of standard output and all of standard error.
  std::string restOfOutput();
  std::string errors();

 private:
  pid_t process_ = -1;
  int output_ = -1;
  int errors_ = -1;
  std::string pending_{};
};

}  // namespace arena::test
