#pragma once

/// The numbers of a description that tuning may change, as one vector. Which they are, and between
/// what bounds, stands in the description itself under "tune": a JSON pointer per number.

#include <string>
#include <vector>

#include "workshop/generate/Numbers.h"

namespace workshop {

struct Dimension {
  std::string pointer;  ///< into the description: "/gait/sway"
  double low = 0;
  double high = 1;
};
using Space = std::vector<Dimension>;

/// Throws ParameterError when "tune" is missing or names what isn't a number. WHERE names the file.
Space spaceOf(const Json& description, const std::string& where);

/// Where DESCRIPTION lies, each dimension from 0 (low) to 1 (high).
std::vector<double> pointOf(const Json& description, const Space& space);

/// DESCRIPTION moved to POINT. What lies outside 0 to 1 is mirrored back in, so that a search may
/// step over the edge without a wall that would pile its points up.
Json movedTo(Json description, const Space& space, const std::vector<double>& point);

}  // namespace workshop
