#include <iostream>
#include <memory>

#include "data/DataFolder.h"
#include "workshop/main/Commands.h"
#include "workshop/trial/Seeds.h"
#include "workshop/tune/Tuning.h"

namespace workshop {

void addTune(CLI::App& program, int& /*status*/) {
  CLI::App* const command = program.add_subcommand(
      "tune", "Improves parameters by an evolution strategy, judged in the training ground.");
  const auto s = std::make_shared<TuningSettings>();
  s->parameters = data::nearest("workshop/parameters", data::folder());
  command->add_option("NAME", s->name, "parameters to improve (walk, turn15, ...)")->required();
  command->add_option("--parameters", s->parameters, "folder to read")->capture_default_str();
  command->add_option("--work", s->work, "folder for checkpoint and best so far")
      ->capture_default_str();
  command->add_option("--generations", s->generations, "in all")->capture_default_str();
  command->add_option("--population", s->search.population, "0: by the number of parameters")
      ->check(CLI::Range(0, 10'000))
      ->capture_default_str();
  command->add_option("--sigma", s->search.sigma, "first step, as a share of each range")
      ->check(CLI::Range(0.001, 1.0))
      ->capture_default_str();
  command->add_option("--seed", s->search.seed, "of the search and of its worlds")
      ->capture_default_str();
  command->add_option("--worlds", s->evaluation.worlds, "perturbed ones besides the nominal")
      ->check(CLI::Range(0, kTuningWorldsPerRun - 1))
      ->capture_default_str();
  command->add_option("--workers", s->evaluation.workers, "processes; 0: one per core")
      ->check(CLI::Range(0, 1000))
      ->capture_default_str();
  command->add_flag("--resume", s->resume, "go on from the checkpoint");
  command->add_flag("--write", s->write, "put the result back among the parameters");
  command->callback([s] {
    s->evaluation.seed = s->search.seed;
    tune(*s, std::cerr);
  });
}

}  // namespace workshop
