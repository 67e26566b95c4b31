#include "soak/Findings.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "soak/Text.h"

namespace soak {
namespace {

std::ifstream opened(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  if (!file) throw std::runtime_error(name + " can't be read");
  return file;
}

std::vector<Line> linesOf(const std::string& name) {
  std::ifstream file = opened(name);
  return linesIn(file, name);
}

std::string missingTab(const std::string& name, const std::string& line) {
  return name + ": no tab in '" + line + "'";
}

std::map<std::string, std::string> factsOf(const std::string& name) {
  std::ifstream file = opened(name);
  std::map<std::string, std::string> facts;
  std::string line;
  while (std::getline(file, line)) {
    const auto tab = line.find('\t');
    if (tab == std::string::npos) throw std::runtime_error(missingTab(name, line));
    facts[line.substr(0, tab)] = line.substr(tab + 1);
  }
  return facts;
}

MatchFindings matchOf(const std::string& name, const std::vector<Line>& lines) {
  MatchFindings match;
  std::ifstream record = opened(name + ".rec");
  match.record = accountOf(record);
  const auto saying = [&lines](const std::string& words) {
    return static_cast<std::size_t>(
        std::count_if(lines.begin(), lines.end(), [&words](const Line& line) {
          return line.text.starts_with("play: ") && line.text.find(words) != std::string::npos;
        }));
  };
  match.deaths = saying(", see ");
  match.restarts = saying(" is started again");
  if (!lines.empty()) match.seconds = lines.back().time - lines.front().time;
  return match;
}

void readSummary(const std::string& name, Findings& findings) {
  std::ifstream file = opened(name);
  const auto summary = nlohmann::json::parse(file, nullptr, /*allow_exceptions=*/false);
  if (!summary.is_object() || !summary.contains("players")) {
    throw std::runtime_error(name + " is no summary of a match");
  }
  for (const auto& player : summary["players"]) {
    ++findings.summaryPlayers;
    if (player.contains("left_at_s")) ++findings.summaryLeft;
  }
}

std::string wholeOrNot(const RecordAccount& record) {
  return record.fault ? *record.fault : "whole, to the match's end";
}

}  // namespace

std::string Findings::fact(const std::string& key) const {
  const auto entry = facts.find(key);
  return entry == facts.end() ? "" : entry->second;
}

bool Findings::allHeld() const {
  return std::all_of(requirements.begin(), requirements.end(),
                     [](const Requirement& one) { return one.held; });
}

double allowedGrowthKb(const ProcessMemory& memory) {
  return std::max(kMostGrowthKb, kMostGrowthPart * memory.ownAtLastKb);
}

Findings findingsIn(const std::string& folder) {
  Findings findings;
  findings.facts = factsOf(folder + "/facts");

  const std::vector<Line> longLines = linesOf(folder + "/long.lines");
  findings.longMatch = matchOf(folder + "/long", longLines);
  const std::string samples = folder + "/long.samples";
  std::ifstream file = opened(samples);
  findings.memory = memoryOf(samplesIn(file, samples), Progress(longLines));

  findings.kills = matchOf(folder + "/kills", linesOf(folder + "/kills.lines"));
  readSummary(folder + "/kills.json", findings);

  const std::vector<Line> cutLines = linesOf(folder + "/cut.lines");
  findings.cut = matchOf(folder + "/cut", cutLines);
  findings.lastTold = std::lround(Progress(cutLines).last());
  judge(findings);
  return findings;
}

void judge(Findings& findings) {
  const auto must = [&findings](const std::string& what, const std::string& found, bool held) {
    findings.requirements.push_back({what, found, held});
  };
  const RecordAccount& whole = findings.longMatch.record;
  must("the long match ends in order",
       "status " + findings.fact("long.status") + ", record " + wholeOrNot(whole),
       findings.fact("long.status") == "0" && whole.finished && !whole.fault);
  must("it has the cycles asked for, and none is missing",
       grouped(whole.cycles) + " of " + findings.fact("long.wanted") + ", " +
           grouped(whole.missing) + " missing",
       !findings.fact("long.wanted").empty() &&
           whole.cycles >= std::stol(findings.fact("long.wanted")) && whole.missing == 0);
  must("nobody crashes or leaves",
       std::to_string(findings.longMatch.deaths) + " ended, " + std::to_string(whole.left) +
           " left, " + std::to_string(whole.atEnd) + " there at the end",
       findings.longMatch.deaths == 0 && whole.left == 0 && whole.atEnd == kPlayers);
  const auto worst = std::max_element(
      findings.memory.begin(), findings.memory.end(), [](const auto& a, const auto& b) {
        return a.ownGrowthKb / allowedGrowthKb(a) < b.ownGrowthKb / allowedGrowthKb(b);
      });
  // The players, the training ground and ./play.
  must("no process grows by more per 10,000 cycles than " + fixed(kMostGrowthKb, 0) + " kB or " +
           fixed(100 * kMostGrowthPart, 2) + " % of what it has",
       worst == findings.memory.end()
           ? "no samples"
           : std::to_string(findings.memory.size()) + " processes, most: " + worst->process + ", " +
                 fixed(worst->ownGrowthKb, 2) + " kB",
       findings.memory.size() == kPlayers + 2 && worst->ownGrowthKb <= allowedGrowthKb(*worst));

  const RecordAccount& killed = findings.kills.record;
  const std::string kills = findings.fact("kills.done");
  must("players killed at random are started again, each time",
       kills + " killed, " + std::to_string(findings.kills.deaths) + " seen to end, " +
           std::to_string(findings.kills.restarts) + " started again",
       kills != "0" && std::to_string(findings.kills.deaths) == kills &&
           std::to_string(findings.kills.restarts) == kills);
  must("all twelve are there at the end of that match, which ends in order",
       "status " + findings.fact("kills.status") + ", " + std::to_string(killed.atEnd) + " there",
       findings.fact("kills.status") == "0" && killed.finished && !killed.fault &&
           killed.atEnd == kPlayers);
  must("no cycle of it is missing",
       grouped(killed.cycles) + " cycles, " + grouped(killed.missing) + " missing",
       killed.cycles > 0 && killed.missing == 0);
  must("its summary counts everyone who came and went",
       std::to_string(findings.summaryPlayers) + " entries, " +
           std::to_string(findings.summaryLeft) + " of them left",
       std::to_string(findings.summaryLeft) == kills &&
           findings.summaryPlayers == findings.summaryLeft + kPlayers);

  const RecordAccount& cut = findings.cut.record;
  must("the training ground killed in mid-match leaves a record that is good up to then",
       "read to cycle " + grouped(cut.lastCycle) + ", " + grouped(cut.missing) +
           " missing; last event shown before: cycle " + grouped(findings.lastTold),
       !cut.finished && cut.missing == 0 && cut.lastCycle > 0 &&
           cut.lastCycle >= findings.lastTold - 1);
  must("./play then ends by itself with a clear line, and leaves nothing running",
       "status " + findings.fact("cut.status") + " after " + findings.fact("cut.seconds") +
           " s: \"" + findings.fact("cut.words") + "\", " + findings.fact("cut.remaining") +
           " left",
       findings.fact("cut.status") == "1" && findings.fact("cut.remaining") == "0" &&
           findings.fact("cut.words").find("SIGKILL") != std::string::npos);
  must("so does ./team",
       "status " + findings.fact("team.status") + " after " + findings.fact("team.seconds") +
           " s: \"" + findings.fact("team.words") + "\", " + findings.fact("team.remaining") +
           " left",
       findings.fact("team.status") == "1" && findings.fact("team.remaining") == "0" &&
           findings.fact("team.words").starts_with("team: "));
}

}  // namespace soak
