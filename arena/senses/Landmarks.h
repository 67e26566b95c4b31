#pragma once

/// The eight landmarks that players find their place by. Constant; read by Sight.

#include <array>
#include <string_view>

#include "arena/model/BodyTable.h"
#include "arena/model/FieldTable.h"

namespace arena {

struct Landmark {
  std::string_view name;
  Vec3 position{};  ///< [m] field frame
};

namespace landmark_detail {
inline constexpr double kX = kFieldLength / 2;
inline constexpr double kCorner = kFieldWidth / 2;
inline constexpr double kPost = kGoalWidth / 2;
inline constexpr double kTop = kGoalHeight;
}  // namespace landmark_detail

/// Order in the message. L and R are the left and right team's halves, 1 is at the left hand of
/// the left team's attack; the names stay with the places whoever looks.
inline constexpr std::array<Landmark, 8> kLandmarks{{
    {"F1L", {-landmark_detail::kX, landmark_detail::kCorner, 0}},
    {"F2L", {-landmark_detail::kX, -landmark_detail::kCorner, 0}},
    {"F1R", {landmark_detail::kX, landmark_detail::kCorner, 0}},
    {"F2R", {landmark_detail::kX, -landmark_detail::kCorner, 0}},
    {"G1L", {-landmark_detail::kX, landmark_detail::kPost, landmark_detail::kTop}},
    {"G2L", {-landmark_detail::kX, -landmark_detail::kPost, landmark_detail::kTop}},
    {"G1R", {landmark_detail::kX, landmark_detail::kPost, landmark_detail::kTop}},
    {"G2R", {landmark_detail::kX, -landmark_detail::kPost, landmark_detail::kTop}},
}};

}  // namespace arena
