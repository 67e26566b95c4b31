#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "data/DataFolder.h"
#include "workshop/judge/Report.h"
#include "workshop/main/Actions.h"
#include "workshop/main/Commands.h"
#include "workshop/plot/Plot.h"
#include "workshop/trial/Trials.h"

namespace workshop {
namespace {

struct PlayOptions {
  std::string action{};
  std::string scripts = data::nearest("scripts", data::folder());
  std::optional<std::uint64_t> seed{};
  double seconds = 10;
  std::vector<double> ball{};
  bool upright = false;
  bool headAtRest = false;
  std::string svg{};
};

TrialJob jobOf(const PlayOptions& options) {
  TrialJob job = jobNamed(options.action, options.seconds);
  job.scripts = options.scripts;
  job.seed = options.seed;
  if (options.ball.size() == 2) job.ball = BallPlace{true, options.ball[0], options.ball[1]};
  if (options.upright && job.start == Start::kReady) job.start = Start::kUpright;
  if (options.headAtRest) job.scanHead = false;
  job.keepSeries = !options.svg.empty();
  return job;
}

int play(const PlayOptions& options) {
  const std::vector<TrialJob> jobs{jobOf(options)};
  const TrialResult result = runTrials(jobs, 1).front();
  if (!result.error.empty()) throw std::runtime_error(result.error);
  std::cout << textOf(result.figures);
  if (!options.svg.empty()) writeFile(options.svg, plotOf(result.series, options.action));
  return 0;
}

}  // namespace

void addPlay(CLI::App& program, int& status) {
  CLI::App* const command =
      program.add_subcommand("play", "Plays one motion in the training ground's world.");
  const auto options = std::make_shared<PlayOptions>();
  command->option_defaults()->always_capture_default();
  // clang-format off
  command->add_option("ACTION", options->action, actionHelp())->required();
  command->add_option("--scripts", options->scripts, "folder of the scripts")
      ->check(CLI::ExistingDirectory);
  command->add_option("--seed", options->seed, "plays in the perturbed world of this number");
  command->add_option("--seconds", options->seconds, "of a walk")->check(CLI::Range(0.0, 60.0));
  command->add_option("--ball", options->ball, "metres ahead of the toes and to the right")
      ->expected(2);
  command->add_flag("--upright", options->upright, "starts as after a beam, not in the initial pose");
  command->add_flag("--head-at-rest", options->headAtRest, "as the goalkeeper, who doesn't look round");
  command->add_option("--svg", options->svg, "writes a plot of the joints and the torso");
  // clang-format on
  command->callback([options, &status] { status = play(*options); });
}

}  // namespace workshop
