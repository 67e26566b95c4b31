#include "arena/main/Watching.h"

#include <chrono>
#include <iostream>
#include <thread>
#include <utility>

#include "data/DataFolder.h"

namespace arena {
namespace {

constexpr std::chrono::milliseconds kStopCheck{50};

/// Serves on the port asked for. Without one a second match on this machine gets a page too.
template <typename... Shown>
std::unique_ptr<view::Viewer> served(const ViewOptions& options, const Shown&... shown) {
  view::ViewSettings settings;
  settings.port = options.port.value_or(view::kUsualViewPort);
  settings.places.pageFolder = data::folder() / "viewer/page";
  try {
    return std::make_unique<view::Viewer>(settings, shown...);
  } catch (const view::ViewError&) {
    if (options.port) throw;
  }
  settings.port = 0;
  return std::make_unique<view::Viewer>(settings, shown...);
}

}  // namespace

std::unique_ptr<view::Viewer> viewerFor(const ViewOptions& options,
                                        const std::function<void(const std::string&)>& say) {
  if (!options.on) return nullptr;
  auto viewer = served(options);
  say("watch it at " + viewer->address());
  if (const auto fault = viewer->fault()) say("the page won't work yet, " + *fault);
  return viewer;
}

void watchRecord(const ViewOptions& options, view::Timeline record, StopSignals& signals) {
  const auto viewer = served(options, record);
  std::cout << "\nCtrl-C ends it; watch it at " << viewer->address() << std::endl;
  if (const auto fault = viewer->fault()) {
    std::cout << "the page won't work yet, " << *fault << std::endl;
  }
  while (!signals.requested()) std::this_thread::sleep_for(kStopCheck);
}

}  // namespace arena
