#pragma once

/// Numbers that several of these tests mean alike.

#include "math/VecPosition.h"

/// What rounding may come to in a few steps with numbers near one.
inline constexpr double kTiny = 1e-12;
inline const VecPosition kOrigin(0, 0, 0);
