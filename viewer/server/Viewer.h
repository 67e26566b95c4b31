#pragma once

/// The viewer: serves a page on this machine's loopback on which the match can be watched, live or
/// from a record. It has a thread of its own. The program makes one and gives it every cycle's
/// record; it never makes a cycle wait, and nothing that a page does reaches the match.

#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "arena/record/CycleRecord.h"
#include "viewer/server/PageFiles.h"
#include "viewer/server/Timeline.h"

namespace arena::view {

/// The page can't be served; what() is one line for a person.
struct ViewError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

inline constexpr std::uint16_t kUsualViewPort = 8300;
/// What of a live match can be gone back to.
inline constexpr long kLiveCycles = 3000;
/// At most so many pages; further ones are turned away.
inline constexpr std::size_t kMostPages = 16;

struct ViewSettings {
  std::uint16_t port = kUsualViewPort;  ///< 0: any free one
  PagePlaces places{};                  ///< the page's folder must be given
};

class Viewer {
 public:
  /// A live match. Serves at once. Throws ViewError when it can't listen.
  explicit Viewer(const ViewSettings& settings);
  /// A record, whole.
  Viewer(const ViewSettings& settings, Timeline record);
  ~Viewer();
  Viewer(const Viewer&) = delete;
  Viewer& operator=(const Viewer&) = delete;

  /// A cycle has passed. Takes a copy and returns at once; from one thread only.
  void show(const CycleRecord& record);

  /// "http://127.0.0.1:8300/"
  [[nodiscard]] std::string address() const;
  [[nodiscard]] std::uint16_t port() const;
  /// What keeps the page from working, one line for a person; empty when nothing does.
  [[nodiscard]] std::optional<std::string> fault() const;

 private:
  struct Impl;
  Viewer(const ViewSettings& settings, Timeline timeline, bool live);
  std::unique_ptr<Impl> impl_;
};

}  // namespace arena::view
