#include "workshop/judge/Report.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include "workshop/judge/Chapter.h"
#include "workshop/plot/Plot.h"

namespace workshop {
namespace {

using Json = nlohmann::ordered_json;

/// A gait shows in its first seconds.
constexpr double kLongestPlot = 10;  ///< [s]

std::string worldsOf(const JudgeSettings& settings) {
  if (settings.worlds == 0) return "the nominal world alone";
  return "the nominal world and " + std::to_string(settings.worlds) +
         " perturbed ones (get-ups: twice as many), seeds from " +
         std::to_string(settings.firstSeed) + " on";
}

std::string sumUp(const std::vector<Verdict>& verdicts) {
  const auto met = std::count_if(verdicts.begin(), verdicts.end(),
                                 [](const Verdict& verdict) { return verdict.met(); });
  return std::to_string(met) + " of " + std::to_string(verdicts.size()) +
         " motions are up to their bars";
}

std::string inText(const std::vector<Bar>& bars) {
  std::string text;
  for (const Bar& bar : bars) {
    if (!text.empty()) text += "; ";
    text += bar.measured;
    if (!bar.met) text += " (BELOW: " + bar.wanted + ")";
  }
  return text.empty() ? "-" : text;
}

std::string inMarkdown(const std::vector<Bar>& bars) {
  std::string text;
  for (const Bar& bar : bars) {
    if (!text.empty()) text += "<br>";
    text += bar.met ? bar.measured : "**" + bar.measured + "**";
    text += " (" + bar.wanted + ")";
  }
  return text;
}

Json inJson(const std::vector<Bar>& bars) {
  Json list = Json::array();
  for (const Bar& bar : bars) {
    list.push_back({{"measured", bar.measured}, {"wanted", bar.wanted}, {"met", bar.met}});
  }
  return list;
}

Json inJson(const Figures& f) {
  return {{"fell", f.fell},
          {"stands", f.stands},
          {"forward_m", f.forward},
          {"left_m", f.left},
          {"turn_deg", f.turnDeg},
          {"seconds", f.duration},
          {"max_tilt_deg", f.maxTiltDeg},
          {"sequences", f.sequences},
          {"walk_m_s", f.walkSpeed},
          {"walk_drift_deg_s", f.walkDriftDegPerSec},
          {"ball_m_s", f.ballSpeed},
          {"ball_direction_deg", f.ballDirectionDeg},
          {"ball_m", f.ballDistance},
          {"reach_left_m", f.reachLeft},
          {"reach_right_m", f.reachRight}};
}

Json inJson(const std::vector<Figures>& trials) {
  Json list = Json::array();
  for (const Figures& figures : trials) list.push_back(inJson(figures));
  return list;
}

}  // namespace

std::string tableOf(const std::vector<Verdict>& verdicts, const JudgeSettings& settings) {
  std::string text = "Each motion in " + worldsOf(settings) + "\n";
  for (const Verdict& verdict : verdicts) {
    text += (verdict.met() ? "met    " : "BELOW  ") + verdict.motion.title + '\n';
    if (!verdict.error.empty()) {
      text += "         " + verdict.error + '\n';
      continue;
    }
    text += "         nominal    " + inText(verdict.nominalBars) + '\n';
    if (!verdict.perturbedBars.empty()) {
      text += "         perturbed  " + inText(verdict.perturbedBars) + '\n';
    }
  }
  return text + sumUp(verdicts) + '\n';
}

Json jsonOf(const std::vector<Verdict>& verdicts, const JudgeSettings& settings) {
  Json rows = Json::array();
  for (const Verdict& verdict : verdicts) {
    Json row{
        {"name", verdict.motion.name}, {"title", verdict.motion.title}, {"met", verdict.met()}};
    if (!verdict.error.empty()) {
      row["error"] = verdict.error;
    } else {
      row["nominal"] = {{"bars", inJson(verdict.nominalBars)}, {"trials", inJson(verdict.nominal)}};
      row["perturbed"] = {{"bars", inJson(verdict.perturbedBars)},
                          {"trials", inJson(verdict.perturbed)}};
    }
    rows.push_back(std::move(row));
  }
  return {{"worlds", settings.worlds},
          {"first_seed", settings.firstSeed},
          {"met", allMet(verdicts)},
          {"motions", std::move(rows)}};
}

std::string markdownOf(const std::vector<Verdict>& verdicts, const JudgeSettings& settings,
                       const std::string& plots) {
  std::string page =
      "# Motions\n\nWritten by `pitchmotion judge --report`; don't edit. How well the scripts in "
      "`scripts/` move the robot, measured with the\nplayer's own code in the training ground's "
      "world: each motion in " +
      worldsOf(settings) +
      ".\nPerturbed: friction, masses, motor speeds and torques, contact softness, physics step, "
      "noisy joint\nreadings, late commands, a start pose that is off, a push. In brackets what is "
      "asked; bold what falls short.\n\n" +
      sumUp(verdicts) + ".\n\n| Motion | Nominal | Perturbed |\n|---|---|---|\n";
  for (const Verdict& verdict : verdicts) {
    page += "| " + verdict.motion.title + " | ";
    page += verdict.error.empty()
                ? inMarkdown(verdict.nominalBars) + " | " + inMarkdown(verdict.perturbedBars)
                : "**" + verdict.error + "** |";
    page += " |\n";
  }
  page +=
      "\n## Plots\n\nThe nominal world; dashed what the player asks for, full what the joints "
      "reach.\n";
  for (const Verdict& verdict : verdicts) {
    if (verdict.series.empty()) continue;
    page += "\n### " + verdict.motion.title + "\n\n![" + verdict.motion.title + "](" + plots + "/" +
            verdict.motion.name + ".svg)\n";
  }
  return page + std::string(kAuthoringChapter);
}

void writeFile(const std::filesystem::path& file, const std::string& text) {
  errno = 0;
  std::ofstream out(file, std::ios::binary);
  out << text << std::flush;
  if (!out) throw std::runtime_error("can't write " + file.string() + ": " + std::strerror(errno));
}

void writeReport(const std::vector<Verdict>& verdicts, const JudgeSettings& settings,
                 const std::filesystem::path& file) {
  const std::filesystem::path plots = std::filesystem::path(file).replace_extension();
  std::error_code failure;
  std::filesystem::create_directories(plots, failure);
  if (failure) throw std::runtime_error("can't make " + plots.string() + ": " + failure.message());
  for (const Verdict& verdict : verdicts) {
    if (verdict.series.empty()) continue;
    writeFile(plots / (verdict.motion.name + ".svg"),
              plotOf(verdict.series, verdict.motion.title, kLongestPlot));
  }
  writeFile(file, markdownOf(verdicts, settings, plots.filename().string()));
}

}  // namespace workshop
