#pragma once

/// What the judge found, for people and for programs. Pure but for writeReport().

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "workshop/judge/Judge.h"

namespace workshop {

/// The table as plain text, and a last line that sums it up.
std::string tableOf(const std::vector<Verdict>& verdicts, const JudgeSettings& settings);

/// Everything measured, trial by trial.
nlohmann::ordered_json jsonOf(const std::vector<Verdict>& verdicts, const JudgeSettings& settings);

/// The page: the table, a plot per motion in PLOTS beside it, how to author a motion.
std::string markdownOf(const std::vector<Verdict>& verdicts, const JudgeSettings& settings,
                       const std::string& plots);

/// Writes the page as FILE and its plots into the folder of the same name without ".md". Throws
/// std::runtime_error for what can't be written.
void writeReport(const std::vector<Verdict>& verdicts, const JudgeSettings& settings,
                 const std::filesystem::path& file);

/// Writes TEXT as FILE. Throws std::runtime_error when that fails.
void writeFile(const std::filesystem::path& file, const std::string& text);

}  // namespace workshop
