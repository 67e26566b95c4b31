#pragma once

/// One cycle as the page draws it: a small binary message that stands on its own, so that a page
/// may miss any number of them. Made once per record, sent to every page that is to see it.
///
/// Little-endian; page/frame.js reads the same layout:
///
///   offset  type    what
///   0       u8      kFrameKind
///   1       u8      players that follow
///   2       u8      play mode, a row of the hello's list
///   3       u8      half, 1 or 2
///   4       u32     cycle
///   8       u32     game clock [0.01 s]
///   12      u8 x2   score, left and right
///   14      u8 x2   0
///   16      i16 x3  ball [mm]
///   22      u8 x2   0
///   24      players, 64 bytes each:
///     +0    u8      slot
///     +1    u8      shirt: number, and 8 more for the right side; 0: none
///     +2    u8      bits: 1 stands, 2 touched the ball
///     +3    u8      0
///     +4    u16     bits: landmarks last shown, rows of the hello's list; kBallShownBit: the ball
///     +6    i16 x3  torso [mm]
///     +12   i16 x4  attitude w x y z [1/32767]
///     +20   i16 x22 joints [0.01 deg], rows of the hello's list
///
/// Twelve players make 792 bytes: 40 kB/s at fifty a second.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "arena/record/CycleRecord.h"
#include "viewer/server/Shown.h"

namespace arena::view {

inline constexpr std::uint8_t kFrameKind = 1;
inline constexpr std::size_t kFrameHeadBytes = 24;
inline constexpr std::size_t kFramePlayerBytes = 64;
inline constexpr std::uint16_t kBallShownBit = 1U << kLandmarks.size();

/// By slot.
using ShownBySlot = std::array<Shown, kMostRecordedPlayers>;

/// Numbers that don't fit are cut to what does: 32 m, 327 deg.
std::string frameOf(const CycleRecord& record, const ShownBySlot& shown);

}  // namespace arena::view
