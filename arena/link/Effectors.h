#pragma once

/// Reads the text of one frame from a player into its Commands. Sessions call it for every frame
/// as it comes in.
///
///   (scene rsg/agent/nao/nao.rsg)        asks for a body
///   (init (unum 3)(teamname Foo))        asks for a shirt
///   (beam -3 0.5 0)                      asks for a place
///   (say text)                           one word of at most kMaxSayBytes
///   (he1 0.5) and 21 more                joint speed in rad/s
///
/// An effector that can't be understood, or that holds a number which isn't finite, is skipped and
/// counted; the others of the frame stand.

#include <cstddef>
#include <string_view>

#include "arena/link/Commands.h"

namespace arena {

inline constexpr std::string_view kBodyRequest = "rsg/agent/nao/nao.rsg";
/// [bytes] of one say text: twice what players say, and eleven of them are no burden on a frame.
inline constexpr std::size_t kMaxSayBytes = 64;
inline constexpr std::size_t kMaxTeamNameBytes = 32;

/// False if the frame as a whole makes no sense, its parentheses not balancing: then nothing in it
/// is to be trusted and COMMANDS are as they were.
[[nodiscard]] bool readEffectors(std::string_view frame, Commands& commands);

}  // namespace arena
