#include "arena/main/Play.h"

#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <system_error>

#include "arena/main/KeptMemory.h"
#include "arena/main/OutputFile.h"
#include "arena/main/StopSignals.h"
#include "arena/main/Watching.h"
#include "arena/record/Recorder.h"
#include "viewer/server/TraceLogs.h"

namespace arena {
namespace {

template <typename Value>
RecordSetting setting(const std::string& name, const Value& value) {
  std::ostringstream text;
  text << value;
  return {name, text.str()};
}

RecordSettings settingsOf(const ServerSettings& server) {
  const RefereeSettings& referee = server.match.referee;
  return {
      setting("seed", server.match.senses.seed),
      setting("noise", server.match.senses.noise ? "on" : "off"),
      setting("speed", server.pace.speed),
      setting("wait_seconds", referee.waitSeconds),
      setting("half_seconds", referee.halfSeconds),
      setting("kick_off_seconds", referee.kickOffSeconds),
      setting("kick_in_seconds", referee.restartSeconds),
      setting("goal_seconds", referee.goalSeconds),
      setting("stall_seconds", referee.stallSeconds),
  };
}

/// None without a file to record into.
std::unique_ptr<Recorder> recorderFor(const PlayOptions& options) {
  if (options.recordFile.empty()) return nullptr;
  try {
    return std::make_unique<Recorder>(options.recordFile, settingsOf(options.server));
  } catch (const std::system_error& error) {
    throw UsageError("--record " + options.recordFile + ": " + error.code().message());
  }
}

/// None without a folder of logs.
std::unique_ptr<view::TraceLogs> tracesFor(const PlayOptions& options) {
  if (options.playerLogs.empty()) return nullptr;
  return std::make_unique<view::TraceLogs>(options.playerLogs);
}

}  // namespace

int play(const PlayOptions& options) {
  keepFreedMemory();
  StopSignals signals;
  std::ofstream log = openedFor("--log", options.logFile);
  std::ofstream json = openedFor("--summary", options.summaryFile);
  MatchServer server(options.server);
  const std::unique_ptr<Recorder> recorder = recorderFor(options);

  // Every line at once: whoever reads them through a pipe acts on them.
  const auto say = [&log](const std::string& line) {
    std::cout << line << std::endl;
    if (log.is_open()) log << line << std::endl;
  };
  const auto tellFault = [&] {
    if (const auto fault = recorder->takeFault()) say("the record ends here, " + *fault);
  };
  const std::unique_ptr<view::TraceLogs> traces = tracesFor(options);
  std::unique_ptr<view::Viewer> viewer;
  const auto onCycle = [&](CycleRecord& record) {
    if (traces) traces->addTo(record);
    if (viewer) viewer->show(record);
    if (!recorder) return;
    recorder->keep(record);
    tellFault();
  };
  say("listening on " + options.server.link.listen + ":" + std::to_string(server.port()));
  viewer = viewerFor(options.view, say);
  const Summary summary = server.run([&signals] { return signals.requested(); }, say, onCycle);
  if (recorder) {
    recorder->finish();
    tellFault();
  }

  std::cout << '\n' << textOf(summary) << textOf(server.pace()) << std::flush;
  writeSummary(json, summary);
  return server.fault() ? 1 : 0;
}

}  // namespace arena
