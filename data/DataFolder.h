#pragma once

/// Where the programs find what they open while they run: the viewer's page, the motion scripts and
/// the workshop's parameters. Called by the programs when they read their command line.
///
/// One rule serves an installed program and one in a build: the data folder is named as seen from
/// the folder of the program itself (../share/pitchagent), and has the shape of the source tree. A
/// build has links into the source tree there. So no path is compiled in, and an installed tree may
/// be moved as a whole.

#include <filesystem>
#include <string>

namespace data {

/// The variable of the environment that names another data folder.
inline constexpr const char* kVariable = "PITCH_DATA";

/// The data folder of this process. It need not exist: who opens a file in it says so.
std::filesystem::path folder();

/// The data folder of the program at PROGRAM, unless CHOSEN (may be null) names one.
std::filesystem::path folderFor(const std::filesystem::path& program, const char* chosen);

/// NAME, a path within the data folder: as it is when the working directory has it, which is where
/// an author of motions works; else the one in FOLDER.
std::string nearest(const std::string& name, const std::filesystem::path& folder);

}  // namespace data
