#include "arena/main/Options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <string>

#include "viewer/server/Viewer.h"

namespace arena {
namespace {

/// [s] a day: longer is a slip of the finger, and far below where cycle counts would overflow.
constexpr double kLongestSpan = 86'400;
constexpr double kHighestSpeed = 1'000;
/// Below this a cycle would last longer than the silence after which players give up.
constexpr double kLowestSpeed = 0.001;

/// Finite, not negative and at most HIGHEST. The library's own range check lets NaN through.
CLI::Validator upTo(double highest) {
  return CLI::Validator(
      [highest](std::string& text) -> std::string {
        double value = 0;
        if (!CLI::detail::lexical_cast(text, value)) return text + " is not a number";
        if (std::isfinite(value) && value >= 0 && value <= highest) return {};
        return text + " is not between 0 and " + CLI::detail::to_string(highest);
      },
      "0.." + CLI::detail::to_string(highest), "upTo");
}

/// The library reads -1 as the largest unsigned number.
CLI::Validator unsignedOnly() {
  return CLI::Validator(
      [](std::string& text) -> std::string {
        return text.find('-') == std::string::npos ? "" : text + " is negative";
      },
      "", "unsignedOnly");
}

CLI::Validator zeroOrAtLeast(double lowest) {
  return CLI::Validator(
      [lowest](std::string& text) -> std::string {
        double value = 0;
        if (!CLI::detail::lexical_cast(text, value) || value == 0 || value >= lowest) return {};
        return text + " is below " + CLI::detail::to_string(lowest) + " and not 0";
      },
      "", "zeroOrAtLeast");
}

/// The page is on this machine's loopback whatever the players' link listens on.
CLI::Option* addViewPort(CLI::App& app, ViewOptions& view) {
  return app
      .add_option("--view-port", view.port,
                  "port of the page to watch on; 0: any; not given: " +
                      std::to_string(view::kUsualViewPort) + ", or any if taken")
      ->check(CLI::Range(0, 65535));
}

/// A match's options before COMMAND would be taken silently for nothing.
void requireNoneOf(const CLI::App& app, const CLI::App& command) {
  for (const CLI::Option* option : app.get_options()) {
    if (option->count() == 0) continue;
    throw UsageError(option->get_name() + " is for a match, not for " + command.get_name());
  }
}

std::string oneLine(std::string text) {
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

}  // namespace

Request readOptions(const std::vector<std::string>& arguments) {
  PlayOptions options;
  ReplayOptions replay;
  PictureOptions picture;
  LinkSettings& link = options.server.link;
  MatchSettings& match = options.server.match;
  PaceSettings& pace = options.server.pace;
  bool noise = true;
  double silenceSeconds = std::chrono::duration<double>(link.silence).count();
  double patienceMs = std::chrono::duration<double, std::milli>(pace.patience).count();
  double settleMs = std::chrono::duration<double, std::milli>(pace.settle).count();

  CLI::App app{"A training ground for pitchagent: simulated robots on a soccer field.",
               "pitcharena"};
  app.option_defaults()->always_capture_default();
  // clang-format off
  app.add_option("--listen", link.listen, "numeric address to listen on")
      ->check(CLI::ValidIPV4);
  app.add_option("--port", link.port, "TCP port to listen on; 0: any free one")
      ->check(CLI::Range(0, 65535));
  app.add_option("--wait-seconds", match.referee.waitSeconds, "time before each half's kick-off")
      ->check(upTo(kLongestSpan));
  app.add_option("--half-seconds", match.referee.halfSeconds, "playing time of one half")
      ->check(upTo(kLongestSpan));
  app.add_option("--kick-off-seconds", match.referee.kickOffSeconds,
                 "an untaken kick-off becomes play after this")
      ->check(upTo(kLongestSpan));
  app.add_option("--kick-in-seconds", match.referee.restartSeconds,
                 "so does an untaken kick-in, corner or goal kick")
      ->check(upTo(kLongestSpan));
  app.add_option("--goal-seconds", match.referee.goalSeconds, "pause after a goal")
      ->check(upTo(kLongestSpan));
  app.add_option("--stall-seconds", match.referee.stallSeconds,
                 "a ball untouched for so long is dropped; 0: never")
      ->check(upTo(kLongestSpan));
  app.add_option("--speed", pace.speed, "times real time; 0: as fast as the players answer")
      ->check(upTo(kHighestSpeed))->check(zeroOrAtLeast(kLowestSpeed));
  app.add_option("--players", pace.playersToStart, "players that the first cycle waits for")
      ->check(CLI::Range(1, kMaxRobots));
  app.add_option("--seed", match.senses.seed, "of the noise on sight")
      ->check(unsignedOnly());
  app.add_flag("--noise,!--no-noise", noise, "noise on sight; on unless --no-noise is given");
  app.add_option("--patience-ms", patienceMs, "at speed 0: longest wait for answers")
      ->check(upTo(60'000));
  app.add_option("--settle-ms", settleMs, "at speed 0: wait for further frames of an answer")
      ->check(upTo(1'000));
  app.add_option("--silence-seconds", silenceSeconds, "a session without a frame for so long ends")
      ->check(upTo(kLongestSpan));
  app.add_option("--log", options.logFile, "file for the event lines, besides standard output")
      ->option_text("FILE");
  app.add_option("--summary", options.summaryFile, "file for the summary as JSON")
      ->option_text("FILE");
  app.add_option("--record", options.recordFile, "file for the match record, see replay")
      ->option_text("FILE");
  addViewPort(app, options.view);
  app.add_flag("--view,!--no-view", options.view.on,
               "a page to watch the match on; there unless --no-view is given");
  app.add_option("--player-logs", options.playerLogs,
                 "folder of left-N.log, right-N.log or player-N.log, for record and page")
      ->option_text("DIR");
  CLI::App* const replayCommand =
      app.add_subcommand("replay", "tells a recorded match once more: its events and its summary");
  replayCommand->add_option("FILE", replay.recordFile, "the match record")
      ->required()->option_text(" ");
  replayCommand->add_option("--summary", replay.summaryFile, "file for the summary as JSON")
      ->option_text("FILE");
  CLI::Option* const watch = replayCommand->add_flag(
      "--view", replay.view.on, "serves the page to watch it on, until Ctrl-C");
  addViewPort(*replayCommand, replay.view)->needs(watch);
  CLI::App* const pictureCommand =
      app.add_subcommand("picture", "draws a recorded match from above, as SVG");
  pictureCommand->add_option("FILE", picture.recordFile, "the match record")
      ->required()->option_text(" ");
  pictureCommand->add_option("-o,--output", picture.pictureFile, "file for the picture")
      ->required()->option_text("FILE");
  // clang-format on

  try {
    std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
    app.parse(reversed);
  } catch (const CLI::CallForHelp&) {
    return HelpText{app.help()};
  } catch (const CLI::ParseError& error) {
    throw UsageError(oneLine(error.what()));
  }

  if (*replayCommand) {
    requireNoneOf(app, *replayCommand);
    return replay;
  }
  if (*pictureCommand) {
    requireNoneOf(app, *pictureCommand);
    return picture;
  }
  if (!noise) match.senses.noise.reset();
  using Milliseconds = std::chrono::duration<double, std::milli>;
  link.silence = std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::duration<double>(silenceSeconds));
  pace.patience = std::chrono::duration_cast<std::chrono::microseconds>(Milliseconds(patienceMs));
  pace.settle = std::chrono::duration_cast<std::chrono::microseconds>(Milliseconds(settleMs));
  return options;
}

}  // namespace arena
