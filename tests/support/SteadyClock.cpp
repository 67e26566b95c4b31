// time() of the process that this library is loaded into: the number in the environment variable
// FIXED_TIME. Without the variable nothing is answered but -1, the call's own sign of failure, so
// that a forgotten variable can't pass for a clock.

#include <cstdlib>
#include <ctime>

extern "C" std::time_t time(std::time_t* where) noexcept {
  const char* fixed = std::getenv("FIXED_TIME");
  const std::time_t now = fixed != nullptr ? std::strtoll(fixed, nullptr, 10) : -1;
  if (where != nullptr) *where = now;
  return now;
}
