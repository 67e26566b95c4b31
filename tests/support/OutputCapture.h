#pragma once

/// What the process writes to standard output or standard error while an object of this class
/// lives. It works on the descriptor, so C++ streams, stdio and system calls are all caught.

#include <string>

class OutputCapture {
 public:
  enum class Stream : int { Output = 1, Error = 2 };

  explicit OutputCapture(Stream stream = Stream::Output);
  OutputCapture(const OutputCapture&) = delete;
  OutputCapture& operator=(const OutputCapture&) = delete;
  ~OutputCapture();

  /// Puts the stream back and returns what was written; a second call returns the same text.
  std::string text();

 private:
  void restore();

  int target_;      ///< the descriptor that is being caught
  int saved_ = -1;  ///< where it led before; -1 once it has been put back
  int memory_;      ///< where it leads meanwhile
};
