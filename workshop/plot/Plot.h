#pragma once

/// A trial as a picture: the joints' angles asked for and reached, the torso's height and tilt,
/// over time. play writes one on request, judge one per motion. Pure.

#include <span>
#include <string>

#include "workshop/trial/Result.h"

namespace workshop {

/// The text of an SVG file. TITLE stands on top. SERIES as a trial hands it back; its cycles before
/// the first step are left out, and so is what comes later than LONGEST seconds.
/// Throws std::invalid_argument for a series without a step.
std::string plotOf(std::span<const Sample> series, const std::string& title, double longest = 1e9);

}  // namespace workshop
