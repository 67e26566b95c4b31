#pragma once

/// The descriptions that parameter files hold, as values, and their readers. A file is one JSON
/// object with a "kind"; besides the description it may say how it is tuned ("objective", "tune")
/// and how it came about ("tuned"), which is nothing to the generator.
///
/// | kind      | makes                                                                         |
/// |-----------|-------------------------------------------------------------------------------|
/// | standing  | the initial poses, and where every gait begins and ends                       |
/// | walk      | walkstart, the four loops, walkend                                            |
/// | steps     | one action script from a gait, and its mirror image                           |
/// | poses     | pose scripts from angles, each with its mirror image if it names one          |
/// | keyframes | one action script through angles, and its mirror image                        |

#include <optional>
#include <string>
#include <vector>

#include "workshop/generate/Gait.h"
#include "workshop/generate/Numbers.h"
#include "workshop/generate/Standing.h"

namespace workshop {

struct StandingDescription {
  Stance stance{};
  Arms arms{};
  double seconds = 0.5;  ///< of the pose
};

struct WalkDescription {
  Gait gait{};
  Pace pace{};
  int startStrides = 2;
  int endStrides = 2;
};

struct StepsDescription {
  Gait gait{};
  Course course{};
  std::string file{};
  std::optional<std::string> mirror{};  ///< file of the same motion to the other side
};

/// WHERE names the file in errors. All throw ParameterError.
StandingDescription standingFrom(const Json& file, const std::string& where);
WalkDescription walkFrom(const Json& file, const std::string& where);
StepsDescription stepsFrom(const Json& file, const std::string& where);

}  // namespace workshop
