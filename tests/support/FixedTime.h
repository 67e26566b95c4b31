#pragma once

/// The calendar time of the programs that a test starts. The player seeds its particle filters with
/// it, so two runs are alike only under the same one. Made right before the player is started and
/// let go right after; the test's own clock stays as it is.

class FixedTime {
 public:
  /// Programs started from now on see SECONDS as the calendar time, for as long as they run, and
  /// write standard output line by line. Their mathematics is that of the plainest processor, so
  /// that a record made on one machine holds on another.
  explicit FixedTime(long long seconds);
  FixedTime(const FixedTime&) = delete;
  FixedTime& operator=(const FixedTime&) = delete;
  /// Programs started afterwards see the real one again.
  ~FixedTime();
};
