#include "arena/main/Replay.h"

#include <fstream>
#include <iostream>
#include <utility>

#include "arena/main/OutputFile.h"
#include "arena/main/RecordFile.h"
#include "arena/main/StopSignals.h"
#include "arena/main/Watching.h"
#include "arena/match/Statistics.h"

namespace arena {

int replay(const ReplayOptions& options) {
  StopSignals signals;
  RecordFile file("replay", options.recordFile);
  std::ofstream json = openedFor("--summary", options.summaryFile);

  Statistics statistics;
  view::Timeline timeline;
  while (const auto record = file.next()) {
    for (const Event& event : record->events) std::cout << lineOf(event) << '\n';
    statistics.add(*record);
    if (options.view.on) timeline.add(*record);
  }
  const Summary summary = statistics.summary();
  const Event last{summary.seconds, summary.finished ? "the match is over" : "stopped"};
  std::cout << lineOf(last) << "\n\n" << textOf(summary) << std::flush;
  writeSummary(json, summary);
  const int status = file.close();
  if (options.view.on) watchRecord(options.view, std::move(timeline), signals);
  return status;
}

}  // namespace arena
