#include "bench/LocalisationTable.h"

#include <algorithm>
#include <array>
#include <iomanip>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <tuple>

namespace bench {
namespace {

using Cells = std::vector<std::string>;

/// Sides and head positions only where they are kept apart.
using Key = std::tuple<bool, View, bool, std::optional<arena::Side>, std::optional<double>>;

std::string number(double value, int decimals) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(decimals) << value;
  return text.str();
}

std::string percent(std::size_t part, std::size_t whole) {
  return number(100.0 * static_cast<double>(part) / static_cast<double>(whole), 1);
}

Cells heading(bool split) {
  Cells cells{"in view", "noise", "filter"};
  if (split) cells.insert(cells.end(), {"side", "head"});
  cells.insert(cells.end(), {"sights", "updated %", "pos p50 m", "pos p95 m", "pos max m",
                             "dir p50 deg", "dir p95 deg", "dir max deg"});
  return cells;
}

Cells cellsOf(const CaseRow& row) {
  Cells cells{std::string(nameOf(row.view)), row.noise ? "on" : "off", row.filtered ? "on" : "off"};
  if (row.side) cells.emplace_back(arena::nameOf(*row.side));
  if (row.headYawDeg) cells.push_back(number(*row.headYawDeg, 0));
  cells.push_back(std::to_string(row.sights));
  cells.push_back(percent(row.updates, row.sights));
  for (const double metres : {row.position.median, row.position.p95, row.position.max}) {
    cells.push_back(number(metres, 3));
  }
  for (const double degrees : {row.headingDeg.median, row.headingDeg.p95, row.headingDeg.max}) {
    cells.push_back(number(degrees, 2));
  }
  return cells;
}

std::vector<Cells> linesOf(const std::vector<CaseRow>& rows) {
  std::vector<Cells> lines{heading(!rows.empty() && rows.front().side.has_value())};
  for (const CaseRow& row : rows) lines.push_back(cellsOf(row));
  return lines;
}

nlohmann::ordered_json jsonOf(const Spread& spread) {
  return {{"median", spread.median}, {"p95", spread.p95}, {"max", spread.max}};
}

}  // namespace

Spread spreadOf(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const auto percentile = [&](std::size_t p) { return values[(values.size() * p + 99) / 100 - 1]; };
  return {percentile(50), percentile(95), values.back()};
}

std::vector<CaseRow> tableOf(const std::vector<Sight>& sights, bool split) {
  std::map<Key, std::vector<const Sight*>> groups;
  for (const Sight& sight : sights) {
    Key key{sight.noise, sight.view, sight.filtered, std::nullopt, std::nullopt};
    if (split) {
      std::get<3>(key) = sight.side;
      std::get<4>(key) = sight.headYawDeg;
    }
    groups[key].push_back(&sight);
  }
  std::vector<CaseRow> rows;
  for (const auto& [key, group] : groups) {
    CaseRow row;
    std::tie(row.noise, row.view, row.filtered, row.side, row.headYawDeg) = key;
    std::vector<double> metres;
    std::vector<double> degrees;
    for (const Sight* sight : group) {
      metres.push_back(sight->positionError);
      degrees.push_back(sight->headingErrorDeg);
      row.updates += sight->updated ? 1 : 0;
    }
    row.sights = group.size();
    row.position = spreadOf(std::move(metres));
    row.headingDeg = spreadOf(std::move(degrees));
    rows.push_back(row);
  }
  return rows;
}

std::string asText(const std::vector<CaseRow>& rows) {
  const std::vector<Cells> lines = linesOf(rows);
  std::vector<std::size_t> widths(lines.front().size());
  for (const Cells& line : lines) {
    for (std::size_t i = 0; i < line.size(); ++i) widths[i] = std::max(widths[i], line[i].size());
  }
  std::ostringstream text;
  for (const Cells& line : lines) {
    text << std::left << std::setw(static_cast<int>(widths[0])) << line[0] << std::right;
    for (std::size_t i = 1; i < line.size(); ++i) {
      text << "  " << std::setw(static_cast<int>(widths[i])) << line[i];
    }
    text << '\n';
  }
  return text.str();
}

std::string asMarkdown(const std::vector<CaseRow>& rows) {
  const std::vector<Cells> lines = linesOf(rows);
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    for (const std::string& cell : lines[i]) text += "| " + cell + " ";
    text += "|\n";
    if (i > 0) continue;
    text += "|---";
    for (std::size_t column = 1; column < lines[i].size(); ++column) text += "|---:";
    text += "|\n";
  }
  return text;
}

std::string asJson(const std::vector<CaseRow>& rows) {
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (const CaseRow& row : rows) {
    nlohmann::ordered_json item{
        {"inView", nameOf(row.view)}, {"noise", row.noise}, {"filtered", row.filtered}};
    if (row.side) item["side"] = arena::nameOf(*row.side);
    if (row.headYawDeg) item["headYawDeg"] = *row.headYawDeg;
    item["sights"] = row.sights;
    item["updates"] = row.updates;
    item["positionErrorMetres"] = jsonOf(row.position);
    item["headingErrorDegrees"] = jsonOf(row.headingDeg);
    list.push_back(std::move(item));
  }
  return list.dump(2) + "\n";
}

}  // namespace bench
