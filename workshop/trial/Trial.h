#pragma once

/// One motion trial: the player's own code, one robot and a ball in the training ground's world, in
/// this process, without a clock. What is measured is what a match does.
///
/// One cycle: the world's state becomes the real perception message, the player reads it, plays its
/// motion, may take the next step, and sends frames; those are read by the training ground's own
/// reader and act in the world's next cycle.

#include "workshop/trial/Job.h"
#include "workshop/trial/Result.h"

namespace workshop {

/// Runs JOB here and now. The process's memory of the walk and of the head's scan stays behind: for
/// more than one trial use runTrials(). Throws std::exception for scripts that aren't there and the
/// like.
TrialResult runTrialHere(const TrialJob& job);

}  // namespace workshop
