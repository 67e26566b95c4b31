#pragma once

/// Attitudes between the two forms that they come in: axes in the world's state, a quaternion in a
/// record. Called by the match for every robot in every cycle, and by readers of records.

#include "arena/record/CycleRecord.h"

namespace arena {

/// The rotation AXES as a unit quaternion, w not below zero.
Quaternion attitudeOf(const Mat3& axes);
/// Its inverse. ATTITUDE need not be of unit length; of length zero it counts as no turn at all.
Mat3 axesOf(const Quaternion& attitude);

}  // namespace arena
