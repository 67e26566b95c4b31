#pragma once

/// From the cycles of a trial to its figures. Pure.

#include <span>

#include "workshop/trial/Result.h"

namespace workshop {

/// Upright, high and believed so by the player.
bool isUp(const Sample& sample);
/// Tipped over so far that nothing brings it back.
bool isTippedOver(const Sample& sample);

/// SERIES as a trial recorded it; fell, sequences and the costs are left to the trial, which knows
/// them. Throws std::invalid_argument when no sample belongs to a step.
Figures measure(std::span<const Sample> series, int steps);

}  // namespace workshop
