#include "bench/Report.h"

#include <algorithm>
#include <fstream>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <thread>
#include <utility>

namespace bench {
namespace {

std::string processor() {
  std::ifstream info("/proc/cpuinfo");
  for (std::string line; std::getline(info, line);) {
    if (line.starts_with("model name")) return line.substr(line.find(':') + 2);
  }
  return "unknown processor";
}

/// Three digits at least, and none behind the point where they would say nothing.
std::string number(double value) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(value < 10 ? 2 : value < 1000 ? 1 : 0) << value;
  return text.str();
}

std::string number(const std::optional<double>& value) {
  return value ? number(*value) : std::string();
}

std::string wish(const Aim& aim) {
  return (aim.kind == Aim::Kind::kAtMost ? "at most " : "at least ") + number(aim.value);
}

}  // namespace

Figure figureOf(std::string name, std::string unit, std::vector<double> samples) {
  std::sort(samples.begin(), samples.end());
  const auto percentile = [&](std::size_t p) { return samples.at((samples.size() - 1) * p / 100); };
  return {std::move(name), std::move(unit), percentile(50), percentile(99), samples.back(), {}};
}

Report::Report(std::string benchmark) : benchmark_(std::move(benchmark)) {}

void Report::add(Figure figure) {
  figures_.push_back(std::move(figure));
}

void Report::addRatio(const std::string& one, const std::string& other, std::optional<Aim> aim) {
  add({one + " / " + other, "", at(one).p50 / at(other).p50, {}, {}, aim});
}

std::string Report::asTable() const {
  std::size_t width = 0;
  for (const Figure& figure : figures_) width = std::max(width, figure.name.size());
  std::ostringstream text;
  text << machineLine() << '\n'
       << std::left << std::setw(static_cast<int>(width)) << "" << std::right << std::setw(10)
       << "p50" << std::setw(10) << "p99" << std::setw(10) << "max" << '\n';
  for (const Figure& figure : figures_) {
    text << std::left << std::setw(static_cast<int>(width)) << figure.name << std::right
         << std::setw(10) << number(figure.p50) << std::setw(10) << number(figure.p99)
         << std::setw(10) << number(figure.max) << ' '
         << (figure.unit.empty() ? "times" : figure.unit);
    if (figure.aim) text << ", " << wish(*figure.aim) << " wanted";
    text << '\n';
  }
  return text.str();
}

std::string Report::asJson() const {
  nlohmann::ordered_json figures = nlohmann::ordered_json::array();
  for (const Figure& figure : figures_) {
    nlohmann::ordered_json one{{"name", figure.name}, {"unit", figure.unit}, {"p50", figure.p50}};
    if (figure.p99) one["p99"] = *figure.p99;
    if (figure.max) one["max"] = *figure.max;
    if (figure.aim) {
      one[figure.aim->kind == Aim::Kind::kAtMost ? "atMost" : "atLeast"] = figure.aim->value;
    }
    figures.push_back(std::move(one));
  }
  const nlohmann::ordered_json report{{"benchmark", benchmark_},
                                      {"processor", processor()},
                                      {"processors", std::thread::hardware_concurrency()},
                                      {"compiler", std::string("g++ ") + __VERSION__},
                                      {"flags", PITCH_BUILD_FLAGS},
                                      {"commit", PITCH_COMMIT},
                                      {"figures", std::move(figures)}};
  return report.dump(1) + '\n';
}

void Report::save(const std::string& file) const {
  if (!(std::ofstream(file) << asJson() << std::flush)) {
    throw std::runtime_error("can't write " + file);
  }
}

const Figure& Report::at(const std::string& name) const {
  const auto found = std::find_if(figures_.begin(), figures_.end(),
                                  [&](const Figure& figure) { return figure.name == name; });
  if (found == figures_.end()) throw std::out_of_range("no figure " + name);
  return *found;
}

std::string machineLine() {
  return processor() + "; " + std::to_string(std::thread::hardware_concurrency()) +
         " processors; compiler " + __VERSION__ + "; flags " + PITCH_BUILD_FLAGS + "; commit " +
         PITCH_COMMIT;
}

std::string takeJsonFile(int& argc, char** argv) {
  for (int i = 1; i + 1 < argc; ++i) {
    if (std::string_view(argv[i]) != "--json") continue;
    std::string file = argv[i + 1];
    std::copy(argv + i + 2, argv + argc + 1, argv + i);
    argc -= 2;
    return file;
  }
  return {};
}

}  // namespace bench
