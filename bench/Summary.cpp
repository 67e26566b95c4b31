#include "bench/Summary.h"

#include <algorithm>
#include <iomanip>
#include <sstream>
#include <stdexcept>

namespace bench {
namespace {

using nlohmann::ordered_json;

double medianOf(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[(values.size() - 1) / 2];
}

/// Three digits at least.
std::string number(double value) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(value < 10 ? 2 : value < 100 ? 1 : 0) << value;
  return text.str();
}

std::optional<Aim> aimOf(const ordered_json& figure) {
  if (figure.contains("atMost")) return atMost(figure.at("atMost"));
  if (figure.contains("atLeast")) return atLeast(figure.at("atLeast"));
  return {};
}

std::string nameOf(Aim::Kind kind) {
  return kind == Aim::Kind::kAtMost ? "at most" : "at least";
}

/// The same figure in another run.
const ordered_json& sameFigure(const ordered_json& run, const ordered_json& figure) {
  for (const ordered_json& other : run.at("figures")) {
    if (other.at("name") == figure.at("name")) return other;
  }
  throw std::runtime_error("a run of " + run.at("benchmark").get<std::string>() + " lacks \"" +
                           figure.at("name").get<std::string>() + "\"");
}

Summary summaryOf(const std::vector<ordered_json>& runs) {
  Summary summary{runs.front().at("benchmark"), runs.size(), {}};
  for (const ordered_json& figure : runs.front().at("figures")) {
    std::vector<double> p50;
    std::vector<double> p99;
    for (const ordered_json& run : runs) {
      const ordered_json& same = sameFigure(run, figure);
      p50.push_back(same.at("p50"));
      if (same.contains("p99")) p99.push_back(same.at("p99"));
    }
    const auto [lowest, highest] = std::minmax_element(p50.begin(), p50.end());
    summary.figures.push_back({figure.at("name"), figure.at("unit"), medianOf(p50), *lowest,
                               *highest, p99.empty() ? std::nullopt : std::optional(medianOf(p99)),
                               aimOf(figure)});
  }
  return summary;
}

Circumstances circumstancesOf(const ordered_json& run) {
  return {run.at("processor"), run.at("processors"), run.at("compiler"), run.at("flags"),
          run.at("commit")};
}

std::string sentence(const Circumstances& all) {
  return all.processor + ", " + std::to_string(all.processors) + " processors; " + all.compiler +
         "; flags `" + all.flags + "`; commit `" + all.commit + "`.";
}

/// What stands in double braces in a template.
std::string valueOf(const std::string& word, const Performance& performance) {
  constexpr std::string_view kTable = "table ";
  if (word == "circumstances") return sentence(performance.circumstances);
  if (word.starts_with(kTable)) {
    for (const Summary& summary : performance.benchmarks) {
      if (summary.benchmark == word.substr(kTable.size())) return asMarkdown(summary);
    }
  }
  throw std::runtime_error("nothing is known for {{" + word + "}}");
}

}  // namespace

bool SummaryFigure::isMet() const {
  if (!aim) return true;
  return aim->kind == Aim::Kind::kAtMost ? median <= aim->value : median >= aim->value;
}

Performance performanceOf(const std::vector<std::string>& runs) {
  if (runs.empty()) throw std::runtime_error("no runs");
  std::vector<std::vector<ordered_json>> byBenchmark;
  Performance performance;
  try {
    for (const std::string& text : runs) {
      ordered_json run = ordered_json::parse(text);
      const Circumstances circumstances = circumstancesOf(run);
      if (byBenchmark.empty()) performance.circumstances = circumstances;
      if (circumstances != performance.circumstances) {
        throw std::runtime_error(
            "runs of two machines or two programs: " + sentence(performance.circumstances) +
            " and " + sentence(circumstances));
      }
      const auto same = std::find_if(
          byBenchmark.begin(), byBenchmark.end(),
          [&run](const auto& one) { return one.front().at("benchmark") == run.at("benchmark"); });
      if (same == byBenchmark.end()) {
        byBenchmark.push_back({std::move(run)});
      } else {
        same->push_back(std::move(run));
      }
    }
    for (const auto& one : byBenchmark) performance.benchmarks.push_back(summaryOf(one));
  } catch (const ordered_json::exception& error) {
    throw std::runtime_error(std::string("not a run's figures: ") + error.what());
  }
  return performance;
}

std::string asJson(const Performance& performance) {
  const Circumstances& all = performance.circumstances;
  ordered_json page{{"processor", all.processor}, {"processors", all.processors},
                    {"compiler", all.compiler},   {"flags", all.flags},
                    {"commit", all.commit},       {"benchmarks", ordered_json::object()}};
  for (const Summary& summary : performance.benchmarks) {
    ordered_json figures = ordered_json::array();
    for (const SummaryFigure& figure : summary.figures) {
      ordered_json one{{"name", figure.name},
                       {"unit", figure.unit},
                       {"median", figure.median},
                       {"lowest", figure.lowest},
                       {"highest", figure.highest}};
      if (figure.p99) one["p99"] = *figure.p99;
      if (figure.aim) {
        one[figure.aim->kind == Aim::Kind::kAtMost ? "atMost" : "atLeast"] = figure.aim->value;
        one["met"] = figure.isMet();
      }
      figures.push_back(std::move(one));
    }
    page["benchmarks"][summary.benchmark] = {{"runs", summary.runs},
                                             {"figures", std::move(figures)}};
  }
  return page.dump(1) + '\n';
}

std::string asMarkdown(const Summary& summary) {
  std::ostringstream text;
  text << "| | median | " << summary.runs
       << " runs from .. to | p99 | unit | aim |\n|---|---:|---:|---:|---|---|\n";
  for (const SummaryFigure& figure : summary.figures) {
    text << "| " << figure.name << " | " << number(figure.median) << " | " << number(figure.lowest)
         << " .. " << number(figure.highest) << " | " << (figure.p99 ? number(*figure.p99) : "")
         << " | " << (figure.unit.empty() ? "times" : figure.unit) << " | ";
    if (figure.aim) {
      text << nameOf(figure.aim->kind) << ' ' << number(figure.aim->value) << ": "
           << (figure.isMet() ? "met" : "**not met**");
    }
    text << " |\n";
  }
  return text.str();
}

std::string fillIn(const std::string& pageTemplate, const Performance& performance) {
  std::string page;
  std::size_t at = 0;
  while (true) {
    const std::size_t open = pageTemplate.find("{{", at);
    const std::size_t close = pageTemplate.find("}}", open);
    if (open == std::string::npos || close == std::string::npos) break;
    page.append(pageTemplate, at, open - at);
    page += valueOf(pageTemplate.substr(open + 2, close - open - 2), performance);
    at = close + 2;
    // A table brings its own line's end.
    if (page.ends_with('\n') && at < pageTemplate.size() && pageTemplate[at] == '\n') ++at;
  }
  return page.append(pageTemplate, at);
}

}  // namespace bench
