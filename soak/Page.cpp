#include "soak/Page.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <numeric>

#include "soak/Text.h"

namespace soak {
namespace {

double meanOf(const std::vector<long>& values) {
  if (values.empty()) return 0;
  return static_cast<double>(std::accumulate(values.begin(), values.end(), 0L)) /
         static_cast<double>(values.size());
}

long mostOf(const std::vector<long>& values) {
  return values.empty() ? 0 : *std::max_element(values.begin(), values.end());
}

std::string requirementTable(const Findings& findings) {
  std::string text = "| must hold | found | held |\n|---|---|---|\n";
  for (const Requirement& one : findings.requirements) {
    text += "| " + one.what + " | " + one.found + " | " + (one.held ? "yes" : "**NO**") + " |\n";
  }
  return text;
}

std::string memoryTable(const Findings& findings) {
  std::string text =
      "| process | own memory after a tenth | at the end | growth per 10,000 cycles | in the last "
      "quarter | resident: growth |\n"
      "|---|---|---|---|---|---|\n";
  for (const ProcessMemory& one : findings.memory) {
    text += "| " + one.process + " | " + grouped(std::lround(one.ownAtFirstKb)) + " kB | " +
            grouped(std::lround(one.ownAtLastKb)) + " kB | " + fixed(one.ownGrowthKb, 2) +
            " kB | " + fixed(one.lastGrowthKb, 2) + " kB | " + fixed(one.residentGrowthKb, 2) +
            " kB |\n";
  }
  return text;
}

std::string matchRow(const std::string& name, const MatchFindings& match) {
  const RecordAccount& record = match.record;
  const double late = record.answers > 0 ? 100.0 * static_cast<double>(record.lateAnswers) /
                                               static_cast<double>(record.answers)
                                         : 0;
  return "| " + name + " | " + grouped(record.cycles) + " | " + grouped(record.missing) + " | " +
         grouped(record.lateAnswers) + " (" + fixed(late, 3) + " %) | " +
         std::to_string(record.joined) + " | " + std::to_string(record.left) + " | " +
         std::to_string(record.goals) + " | " + std::to_string(record.falls) + " | " +
         fixed(match.seconds, 0) + " s |\n";
}

nlohmann::json jsonOf(const MatchFindings& match) {
  const RecordAccount& record = match.record;
  return {{"cycles", record.cycles},
          {"missing_cycles", record.missing},
          {"late_answers", record.lateAnswers},
          {"answers", record.answers},
          {"joined", record.joined},
          {"left", record.left},
          {"at_end", record.atEnd},
          {"goals", record.goals},
          {"falls", record.falls},
          {"finished", record.finished},
          {"players_ended", match.deaths},
          {"players_restarted", match.restarts},
          {"real_seconds", match.seconds}};
}

}  // namespace

std::string pageOf(const Findings& findings) {
  const std::vector<long>& absences = findings.kills.record.absences;
  std::string text =
      "# Soak\n\n"
      "Written by `soak/run`: " +
      findings.fact("date") + ", commit " + findings.fact("commit") + ", " +
      findings.fact("machine") +
      ".\n"
      "Matches at `--speed 0`, two teams of real players under `./play --versus`; a page of the "
      "viewer\n"
      "that comes, watches all players' minds and goes, again and again; seed " +
      findings.fact("seed") + ".\n\n" + requirementTable(findings) +
      "\n## Matches\n\n"
      "A missing cycle is a number that the match's record leaves out. A late answer is one that "
      "had not\n"
      "come when the training ground's patience (20 ms of real time) was at an end; on a busy "
      "machine\n"
      "there are some.\n\n"
      "| match | cycles | missing | late answers | came | went | goals | falls | took |\n"
      "|---|---|---|---|---|---|---|---|---|\n";
  text += matchRow("long", findings.longMatch);
  text += matchRow("players killed", findings.kills);
  text += matchRow("training ground killed", findings.cut);
  text += "\nA killed player was back after " + fixed(meanOf(absences), 0) +
          " cycles on average, " + grouped(mostOf(absences)) +
          " at most.\n\n## Memory\n\n"
          "Of each process in the long match, every " +
          findings.fact("sample_seconds") +
          " s: its own memory (the anonymous pages: heap and stacks) and all\n"
          "that is resident, from `/proc/PID/smaps_rollup`. Growth is the rise of the straight "
          "line through\n"
          "the samples behind the first tenth, by least squares.\n\n"
          "![Memory over the cycles](soak.svg)\n\n" +
          memoryTable(findings);
  return text;
}

nlohmann::json jsonOf(const Findings& findings) {
  nlohmann::json memory = nlohmann::json::array();
  for (const ProcessMemory& one : findings.memory) {
    memory.push_back({{"process", one.process},
                      {"own_at_tenth_kb", one.ownAtFirstKb},
                      {"own_at_end_kb", one.ownAtLastKb},
                      {"own_growth_kb_per_10000_cycles", one.ownGrowthKb},
                      {"own_growth_in_last_quarter_kb_per_10000_cycles", one.lastGrowthKb},
                      {"resident_growth_kb_per_10000_cycles", one.residentGrowthKb},
                      {"samples", one.levels.size()}});
  }
  nlohmann::json requirements = nlohmann::json::array();
  for (const Requirement& one : findings.requirements) {
    requirements.push_back({{"what", one.what}, {"found", one.found}, {"held", one.held}});
  }
  return {{"facts", findings.facts},
          {"requirements", std::move(requirements)},
          {"all_held", findings.allHeld()},
          {"long_match", jsonOf(findings.longMatch)},
          {"memory", std::move(memory)},
          {"players_killed",
           {{"match", jsonOf(findings.kills)},
            {"absent_cycles", findings.kills.record.absences},
            {"summary_entries", findings.summaryPlayers},
            {"summary_left", findings.summaryLeft}}},
          {"training_ground_killed",
           {{"match", jsonOf(findings.cut)},
            {"last_cycle", findings.cut.record.lastCycle},
            {"last_cycle_shown", findings.lastTold},
            {"fault", findings.cut.record.fault.value_or("")}}}};
}

}  // namespace soak
