#pragma once

/// What every fuzz target stands on: an input taken apart from the front, and a demand that the
/// code under test has to meet. A target's sources define LLVMFuzzerTestOneInput, which libFuzzer
/// or Replay.cpp calls once for each input.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace fuzz {

/// Ends the process with WHAT on standard error unless HOLDS: a finding.
inline void demand(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "demand not met: %s\n", what);
  std::abort();
}

/// Bytes of an input, from the front to the end; behind the end everything is zero or empty.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size)
      : rest_(reinterpret_cast<const char*>(data), size) {}

  std::uint8_t byte() {
    if (rest_.empty()) return 0;
    const auto first = static_cast<std::uint8_t>(rest_.front());
    rest_.remove_prefix(1);
    return first;
  }
  /// COUNT bytes, or as many as are left.
  std::string_view bytes(std::size_t count) {
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return taken;
  }
  /// Up to the next line feed, which is dropped, or to the end.
  std::string_view line() {
    const std::string_view taken = rest_.substr(0, rest_.find('\n'));
    rest_.remove_prefix(std::min(rest_.size(), taken.size() + 1));
    return taken;
  }
  [[nodiscard]] std::string_view rest() const { return rest_; }
  [[nodiscard]] bool empty() const { return rest_.empty(); }

 private:
  std::string_view rest_;
};

}  // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
