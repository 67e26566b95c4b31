#pragma once

/// One page that watches: its stream, its place in the match, what it has been sent. The viewer
/// owns it and ticks it; everything happens on the viewer's thread.
///
/// A page says of each frame that it has come. While kMostUnread frames are on their way it gets
/// nothing, and then the one that is due by then: a slow page skips, however much the system would
/// have buffered for it.

#include <array>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <chrono>
#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "viewer/server/Door.h"
#include "viewer/server/Playhead.h"
#include "viewer/server/Protocol.h"
#include "viewer/server/Timeline.h"

namespace arena::view {

inline constexpr int kMostUnread = 6;
/// A little less than a cycle, since the viewer's ticks don't fall on it: fifty frames a second.
inline constexpr std::chrono::milliseconds kFramePause{15};
inline constexpr std::chrono::milliseconds kTimePause{500};
inline constexpr std::chrono::milliseconds kMindPause{100};
inline constexpr std::size_t kMindsAtOnce = 3;
/// [bytes] A page that lets so much wait is gone for good.
inline constexpr std::size_t kMostWaitingBytes = 8U << 20U;

class Page : public std::enable_shared_from_this<Page> {
 public:
  using Clock = std::chrono::steady_clock;

  /// TIMELINE outlives the page. LIVE: it grows.
  Page(boost::beast::tcp_stream stream, const Timeline& timeline, bool live);
  /// Opens the stream; REQUEST has been found welcome.
  void accept(const HttpRequest& request);
  /// Sends what is due at NOW.
  void tick(Clock::time_point now);
  [[nodiscard]] bool isGone() const { return gone_; }

 private:
  struct Message {
    bool binary = false;
    std::string content{};
  };

  void read();
  void obey(const Request& request);
  void sendFrame(Clock::time_point now);
  void sendNews(Clock::time_point now);
  void sendMinds(Clock::time_point now);
  void send(bool binary, std::string content);
  void write();
  void leave();
  [[nodiscard]] Span span() const { return {timeline_.first(), timeline_.last()}; }

  boost::beast::websocket::stream<boost::beast::tcp_stream> stream_;
  boost::beast::flat_buffer received_{};
  const Timeline& timeline_;
  const bool live_;
  Playhead playhead_;

  bool open_ = false;  ///< from the handshake on
  bool gone_ = false;
  std::deque<Message> waiting_{};  ///< the first is being written
  std::size_t waitingBytes_ = 0;

  Clock::time_point lastTick_{};
  Clock::time_point lastFrame_{};
  Clock::time_point lastTime_{};
  Clock::time_point lastMinds_{};
  int unread_ = 0;
  long frameCycle_ = -1;  ///< of the frame sent last
  bool timeChanged_ = true;
  std::size_t eventsSent_ = 0;
  std::array<std::string, 2> teamsSent_{};
  std::vector<std::size_t> minds_{};  ///< slots
  std::size_t nextMind_ = 0;
};

}  // namespace arena::view
