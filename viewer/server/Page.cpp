#include "viewer/server/Page.h"

#include <algorithm>
#include <boost/asio/buffer.hpp>
#include <boost/beast/core/buffers_to_string.hpp>
#include <boost/beast/websocket/rfc6455.hpp>
#include <utility>

namespace arena::view {
namespace {

namespace beast = boost::beast;
namespace websocket = beast::websocket;
using boost::system::error_code;

constexpr std::size_t kLongestRequest = 1024;

}  // namespace

Page::Page(beast::tcp_stream stream, const Timeline& timeline, bool live)
    : stream_(std::move(stream)), timeline_(timeline), live_(live), playhead_(live) {}

void Page::accept(const HttpRequest& request) {
  stream_.set_option(websocket::stream_base::timeout::suggested(beast::role_type::server));
  stream_.read_message_max(kLongestRequest);
  error_code ignored;  // whoever has gone already is noticed below
  beast::get_lowest_layer(stream_).socket().set_option(boost::asio::ip::tcp::no_delay(true),
                                                       ignored);
  stream_.async_accept(request, [self = shared_from_this()](error_code error) {
    if (error) return self->leave();
    self->open_ = true;
    self->lastTick_ = Clock::now();
    self->send(false, helloText(self->live_));
    self->read();
  });
}

void Page::read() {
  stream_.async_read(received_, [self = shared_from_this()](error_code error, std::size_t) {
    if (error) return self->leave();
    const std::string text = beast::buffers_to_string(self->received_.data());
    self->received_.clear();
    if (const auto request = requestIn(text)) self->obey(*request);
    self->read();
  });
}

void Page::obey(const Request& request) {
  struct Visitor {
    Page& page;
    void operator()(const Got& /*unused*/) const {
      if (page.unread_ > 0) --page.unread_;
    }
    void operator()(const Play& /*unused*/) const { page.playhead_.play(page.span()); }
    void operator()(const Pause& /*unused*/) const { page.playhead_.pause(); }
    void operator()(const GoLive& /*unused*/) const { page.playhead_.live(page.span()); }
    void operator()(const SetSpeed& speed) const { page.playhead_.setSpeed(speed.times); }
    void operator()(const Seek& seek) const { page.playhead_.seek(seek.cycle, page.span()); }
    void operator()(const StepBy& step) const { page.playhead_.step(step.cycles, page.span()); }
    void operator()(const WatchMinds& watch) const {
      page.minds_ = watch.slots;
      page.nextMind_ = 0;
      page.lastMinds_ = {};
    }
  };
  std::visit(Visitor{*this}, request);
  if (!std::holds_alternative<Got>(request)) timeChanged_ = true;
}

void Page::tick(Clock::time_point now) {
  if (!open_ || gone_) return;
  const double seconds = std::chrono::duration<double>(now - lastTick_).count();
  lastTick_ = now;
  if (!timeline_.empty()) {
    const Pace before = playhead_.pace();
    playhead_.advance(seconds, span());
    if (playhead_.pace() != before) timeChanged_ = true;
  }
  if (unread_ >= kMostUnread) return;
  sendNews(now);
  sendFrame(now);
  sendMinds(now);
}

void Page::sendFrame(Clock::time_point now) {
  const Moment* moment = timeline_.at(playhead_.cycle());
  if (moment == nullptr || moment->cycle == frameCycle_ || now - lastFrame_ < kFramePause) return;
  lastFrame_ = now;
  frameCycle_ = moment->cycle;
  ++unread_;
  send(true, moment->frame);
}

void Page::sendNews(Clock::time_point now) {
  if (timeline_.teamNames() != teamsSent_) {
    teamsSent_ = timeline_.teamNames();
    send(false, teamsText(teamsSent_));
  }
  if (timeline_.events().size() > eventsSent_) {
    send(false, eventsText(timeline_.events(), eventsSent_));
    eventsSent_ = timeline_.events().size();
  }
  if (timeChanged_ || now - lastTime_ >= kTimePause) {
    timeChanged_ = false;
    lastTime_ = now;
    send(false, timeText(playhead_, span(), timeline_.finished()));
  }
}

void Page::sendMinds(Clock::time_point now) {
  if (minds_.empty() || now - lastMinds_ < kMindPause) return;
  lastMinds_ = now;
  for (std::size_t i = 0; i < std::min(kMindsAtOnce, minds_.size()); ++i) {
    const std::size_t slot = minds_[nextMind_++ % minds_.size()];
    if (const auto mind = mindAt(timeline_, playhead_.cycle(), slot)) send(false, mindText(*mind));
  }
}

void Page::send(bool binary, std::string content) {
  if (gone_) return;
  waitingBytes_ += content.size();
  waiting_.push_back({binary, std::move(content)});
  if (waitingBytes_ > kMostWaitingBytes) return leave();
  if (waiting_.size() == 1) write();
}

void Page::write() {
  stream_.binary(waiting_.front().binary);
  stream_.async_write(boost::asio::buffer(waiting_.front().content),
                      [self = shared_from_this()](error_code error, std::size_t) {
                        if (error) return self->leave();
                        self->waitingBytes_ -= self->waiting_.front().content.size();
                        self->waiting_.pop_front();
                        if (!self->waiting_.empty()) self->write();
                      });
}

void Page::leave() {
  if (gone_) return;
  gone_ = true;
  beast::get_lowest_layer(stream_).close();
}

}  // namespace arena::view
