// How far from the truth is the player's idea of its place and heading? The player's own decoders
// and localisation, fed by the training ground's senses, for a robot that is carried along known
// paths. Told apart: what is in view, noise of sight, and the first cycles from the filtered ones.
//
//   bench_localisation [--format text|markdown|json] [--split] [--seed N]

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "bench/LocalisationTable.h"
#include "bench/LocalisationTrial.h"
#include "bench/Report.h"

namespace {

int report(int argc, char** argv) {
  bench::TrialSettings settings;
  std::string format = "text";
  bool split = false;
  CLI::App app{"Compares the player's idea of its place and heading with the truth."};
  app.add_option("--format", format, "how the table is printed")
      ->check(CLI::IsMember({"text", "markdown", "json"}))
      ->capture_default_str();
  app.add_flag("--split", split, "keep the sides of the field and the head's positions apart");
  app.add_option("--seed", settings.seed, "of the noise of sight and of the player's particles")
      ->capture_default_str();
  CLI11_PARSE(app, argc, argv);

  const std::vector<bench::CaseRow> rows = bench::tableOf(bench::runTrial(settings), split);
  if (format == "json") {
    std::cout << bench::asJson(rows);
    return 0;
  }
  std::cout << "seed " << settings.seed << "; " << bench::machineLine() << "\n\n"
            << (format == "markdown" ? bench::asMarkdown(rows) : bench::asText(rows)) << R"(
Filter off: new players, in their first 20 cycles, anywhere on the paths. Such a player takes
itself to be at the field's centre until a usable pair of landmarks is in view, and to face the
other goal until any landmark is.
Filter on: players beamed to a path's start and carried along it. Where nothing is updated, the
error is how far they were carried since.
)";
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return report(argc, argv);
  } catch (const std::exception& e) {
    std::cerr << "bench_localisation: " << e.what() << '\n';
    return 1;
  }
}
