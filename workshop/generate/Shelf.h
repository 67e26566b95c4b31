#pragma once

/// From parameter files to the scripts on the shelf: the one place that knows which kind of
/// description makes what. Called by the commands generate and tune, and by the test that compares
/// the shipped scripts with the shipped parameters.

#include <filesystem>
#include <map>
#include <string>

#include "workshop/generate/Numbers.h"
#include "workshop/generate/Parameters.h"

namespace workshop {

/// File name and text.
using Scripts = std::map<std::string, std::string>;

/// Parameters as read: the file's name without its ending, and what stands in it.
using Descriptions = std::map<std::string, Json>;

/// The description on which all others stand.
inline constexpr const char* kStandingName = "standing";

/// All *.json of FOLDER. Throws ParameterError for a file that can't be read.
Descriptions readDescriptions(const std::filesystem::path& folder);

/// What the description called NAME makes. Throws ParameterError.
Scripts scriptsOf(const Descriptions& descriptions, const std::string& name);
/// What all of them make. Throws ParameterError, also for a file that two of them make.
Scripts allScripts(const Descriptions& descriptions);

}  // namespace workshop
