#pragma once

/// The exception for a system call that failed, in the helpers with sockets and processes.

#include <cerrno>
#include <system_error>

/// What errno says, with WHAT before it. Call it before anything else may set errno.
[[nodiscard]] inline std::system_error SystemError(const char* what) {
  return {errno, std::generic_category(), what};
}
