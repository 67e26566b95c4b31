#include "viewer/server/Frame.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace arena::view {
namespace {

/// Appends whole numbers, lowest byte first.
class Bytes {
 public:
  explicit Bytes(std::size_t expected) { text_.reserve(expected); }

  template <typename Whole>
  void add(Whole value) {
    auto rest = static_cast<std::uint64_t>(value);
    for (std::size_t i = 0; i < sizeof(Whole); ++i, rest >>= 8U) {
      text_.push_back(static_cast<char>(rest & 0xFFU));
    }
  }

  /// VALUE in units of 1 / PER as a cut i16.
  void addScaled(double value, double per) {
    constexpr double kLimit = std::numeric_limits<std::int16_t>::max();
    const double scaled = std::isfinite(value) ? std::round(value * per) : 0.0;
    add(static_cast<std::int16_t>(std::clamp(scaled, -kLimit, kLimit)));
  }

  std::string take() { return std::move(text_); }

 private:
  std::string text_{};
};

std::uint8_t byteOf(int value) {
  return static_cast<std::uint8_t>(std::clamp(value, 0, 255));
}

void addPlayer(Bytes& bytes, const PlayerRecord& player, const Shown& shown) {
  bytes.add(byteOf(player.slot));
  const auto& shirt = player.shirt;
  bytes.add(byteOf(shirt ? shirt->number + (shirt->side == Side::kRight ? 8 : 0) : 0));
  bytes.add(byteOf((player.standing ? 1 : 0) + (player.touchedBall ? 2 : 0)));
  bytes.add(std::uint8_t{0});
  const auto landmarks = static_cast<unsigned>(shown.landmarks.to_ulong());
  bytes.add(static_cast<std::uint16_t>(landmarks + (shown.ballBearingDeg ? kBallShownBit : 0U)));
  for (const double part : player.position) bytes.addScaled(part, 1000);
  for (const double part : player.attitude) bytes.addScaled(part, 32767);
  for (const double angle : player.jointDeg) bytes.addScaled(angle, 100);
}

}  // namespace

std::string frameOf(const CycleRecord& record, const ShownBySlot& shown) {
  Bytes bytes(kFrameHeadBytes + record.players.size() * kFramePlayerBytes);
  bytes.add(kFrameKind);
  bytes.add(byteOf(static_cast<int>(record.players.size())));
  bytes.add(static_cast<std::uint8_t>(record.mode));
  bytes.add(byteOf(record.half));
  bytes.add(static_cast<std::uint32_t>(record.cycle));
  bytes.add(static_cast<std::uint32_t>(std::lround(record.clock * 100)));
  for (const int goals : record.score) bytes.add(byteOf(goals));
  bytes.add(std::uint16_t{0});
  for (const double part : record.ball) bytes.addScaled(part, 1000);
  bytes.add(std::uint16_t{0});
  for (const PlayerRecord& player : record.players) {
    addPlayer(bytes, player, shown.at(static_cast<std::size_t>(player.slot)));
  }
  return bytes.take();
}

}  // namespace arena::view
