#pragma once

/// The findings for people and for programs. Written by soak_report.

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "soak/Findings.h"

namespace soak {

/// Markdown; shows soak.svg from beside it.
std::string pageOf(const Findings& findings);
nlohmann::json jsonOf(const Findings& findings);

}  // namespace soak
