#include "workshop/judge/Judge.h"

#include <iostream>
#include <memory>
#include <string>

#include "workshop/judge/Report.h"
#include "workshop/main/Commands.h"
#include "workshop/main/ProgressBar.h"
#include "workshop/trial/Seeds.h"

namespace workshop {
namespace {

constexpr int kQuickWorlds = 4;
constexpr int kMostWorlds = 10'000;

struct JudgeOptions {
  JudgeSettings settings{};
  bool quick = false;
  std::string json{};
  std::string report{};
};

int runJudge(JudgeOptions options) {
  if (options.quick) options.settings.worlds = kQuickWorlds;
  options.settings.keepSeries = !options.report.empty();
  ProgressBar bar;
  const auto verdicts = judge(acceptanceTable(), options.settings,
                              [&bar](std::size_t done, std::size_t all) { bar.show(done, all); });
  bar.clear();
  std::cout << tableOf(verdicts, options.settings);
  if (!options.json.empty()) {
    writeFile(options.json, jsonOf(verdicts, options.settings).dump(2) + '\n');
  }
  if (!options.report.empty()) writeReport(verdicts, options.settings, options.report);
  return allMet(verdicts) ? 0 : 1;
}

}  // namespace

void addJudge(CLI::App& program, int& status) {
  CLI::App* const command = program.add_subcommand(
      "judge", "Holds every motion against its bars, in the nominal and in perturbed worlds.");
  const auto options = std::make_shared<JudgeOptions>();
  JudgeSettings& settings = options->settings;
  command->option_defaults()->always_capture_default();
  // clang-format off
  command->add_option("--scripts", settings.scripts, "folder of the scripts")
      ->check(CLI::ExistingDirectory);
  command->add_option("--only", settings.only, "motions, or what their names begin with");
  CLI::Option* const worlds = command->add_option("--worlds", settings.worlds, "perturbed worlds for each motion")
      ->check(CLI::Range(0, kMostWorlds));
  command->add_flag("--quick", options->quick, "only " + std::to_string(kQuickWorlds) + " perturbed worlds")
      ->excludes(worlds);
  command->add_option("--first-seed", settings.firstSeed, "of the perturbed worlds")
      ->check(CLI::Range(std::uint64_t{0}, kFirstTuningSeed - 1));
  command->add_option("--workers", settings.workers, "processes at once; 0: one per core")
      ->check(CLI::Range(0, 1000));
  command->add_option("--json", options->json, "writes everything measured");
  command->add_option("--report", options->report, "writes the page (docs/motions.md), its plots beside it");
  // clang-format on
  command->callback([options, &status] { status = runJudge(*options); });
}

}  // namespace workshop
