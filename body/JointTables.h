#pragma once

/// The two fixed tables of the 22 joints. They hold the same joints in two orders: a row here and
/// a link there are paired by the perceptor's name, never by index.

#include <array>
#include <cstddef>

inline constexpr std::size_t kJointCount = 22;

/// A row of jointFlags. Its order is the order of the commands in every message.
struct JointRow {
  const char* perceptor;
  const char* effector;
};

inline constexpr std::array<JointRow, kJointCount> kJointRows{{
    {"hj1", "he1"},   {"hj2", "he2"},                                                          //
    {"raj1", "rae1"}, {"raj2", "rae2"}, {"raj3", "rae3"}, {"raj4", "rae4"},                    //
    {"laj1", "lae1"}, {"laj2", "lae2"}, {"laj3", "lae3"}, {"laj4", "lae4"},                    //
    {"rlj1", "rle1"}, {"rlj2", "rle2"}, {"rlj3", "rle3"}, {"rlj4", "rle4"}, {"rlj5", "rle5"},  //
    {"rlj6", "rle6"},                                                                          //
    {"llj1", "lle1"}, {"llj2", "lle2"}, {"llj3", "lle3"}, {"llj4", "lle4"}, {"llj5", "lle5"},  //
    {"llj6", "lle6"},                                                                          //
}};

/// The row of jointFlags that a joint's name stands for.
enum JointIndex : std::size_t {
  kHeadYaw,
  kHeadPitch,
  kRShoulderPitch,
  kRShoulderRoll,
  kRElbowYaw,
  kRElbowRoll,
  kLShoulderPitch,
  kLShoulderRoll,
  kLElbowYaw,
  kLElbowRoll,
  kRHipYawPitch,
  kRHipRoll,
  kRHipPitch,
  kRKneePitch,
  kRAnklePitch,
  kRAnkleRoll,
  kLHipYawPitch,
  kLHipRoll,
  kLHipPitch,
  kLKneePitch,
  kLAnklePitch,
  kLAnkleRoll,
};
