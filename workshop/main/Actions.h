#pragma once

/// The motions by the names that a person types, and a trial's figures as a person reads them.

#include <string>

#include "workshop/trial/Job.h"
#include "workshop/trial/Result.h"

namespace workshop {

/// One line on what jobNamed() knows.
std::string actionHelp();

/// The trial of ACTION in the nominal world, its script folder left empty. SECONDS: of a walk.
/// Throws std::invalid_argument for a name that means nothing.
TrialJob jobNamed(const std::string& action, double seconds);

/// A few lines.
std::string textOf(const Figures& figures);

}  // namespace workshop
