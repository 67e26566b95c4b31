/// The viewer's door: HTTP requests, the opening of a stream, and what a page says on it.
///
/// Input: a byte for the form (3 more: the match is live), four for the sizes of the pieces that
/// the bytes come in, then
///   0  what a browser sends, as it is
///   1  what it sends behind a proper opening of the stream
///   2  lines: a proper opening, then each line as the text of a proper message of a page
/// The viewer's clock, and a live match, go on between the pieces.

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <chrono>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "fuzz/Input.h"
#include "viewer/server/HttpSession.h"
#include "viewer/server/Page.h"
#include "viewer/server/Timeline.h"

namespace {

namespace asio = boost::asio;
namespace view = arena::view;
using fuzz::demand;

constexpr std::uint16_t kPort = 8300;
constexpr std::chrono::milliseconds kTick{10};
constexpr long kCycles = 120;
/// Few, so that a page falls behind what is kept.
constexpr long kLiveCycles = 12;

/// Two players and a ball that move; the players say and print what a mind is made of.
arena::CycleRecord someCycle(long cycle) {
  arena::CycleRecord record;
  record.cycle = cycle;
  const double at = static_cast<double>(cycle) * 0.01;
  record.ball = {at, -at, 0.04};
  record.teamNames = {"Kolu-Otters", cycle > 50 ? "Others" : ""};
  for (const int slot : {0, 7}) {
    arena::PlayerRecord player;
    player.session = static_cast<std::uint32_t>(slot + 1);
    player.slot = slot;
    player.shirt = arena::Shirt{slot == 0 ? arena::Side::kLeft : arena::Side::kRight, 3};
    player.position = {at - slot, 0.5, 0.38};
    if (cycle % 20 == 0) player.said = "P,3,1.5,-2";
    if (cycle % 30 == 0) player.said = "|,3,1.50,-0.25,2.00";
    if (cycle % 10 == 0) player.traced = {"gotoPos function!!!", "pushed walk 4"};
    record.players.push_back(std::move(player));
  }
  if (cycle % 40 == 0) record.events.push_back({at, "a goal \"\xff\" for <left>"});
  return record;
}

view::Timeline someMatch() {
  view::Timeline timeline;
  for (long cycle = 1; cycle <= kCycles; ++cycle) timeline.add(someCycle(cycle));
  return timeline;
}

/// The browser's end of a connection. What the viewer sends is taken and thrown away.
class Browser {
 public:
  explicit Browser(asio::io_context& io) : io_(io) {
    std::array<int, 2> ends{};
    demand(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) == 0,
           "a pair of sockets is to be had");
    fd_ = ends[0];
    viewers_ = ends[1];
  }
  Browser(const Browser&) = delete;
  Browser& operator=(const Browser&) = delete;
  ~Browser() { close(fd_); }

  /// The viewer's end; once.
  [[nodiscard]] boost::beast::tcp_stream viewersEnd() const {
    return boost::beast::tcp_stream(asio::ip::tcp::socket(io_, asio::ip::tcp::v4(), viewers_));
  }
  void send(std::string_view bytes) const {
    // A viewer that has closed its end takes no more.
    (void)::send(fd_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    settle();
  }
  /// Lets the viewer do all that it can do without waiting.
  void settle() const {
    std::array<char, 65536> taken{};
    do {
      io_.poll();
      io_.restart();
    } while (::recv(fd_, taken.data(), taken.size(), 0) > 0);
  }
  void hangUp() const {
    shutdown(fd_, SHUT_WR);
    settle();
  }

 private:
  asio::io_context& io_;
  int fd_ = -1;
  int viewers_ = -1;
};

std::string opening() {
  return "GET /stream HTTP/1.1\r\nHost: 127.0.0.1:8300\r\nUpgrade: websocket\r\n"
         "Connection: Upgrade\r\nSec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n"
         "Sec-WebSocket-Version: 13\r\n\r\n";
}

/// A text message as a browser frames it, with a mask of zeros.
std::string messageOf(std::string_view text) {
  constexpr std::size_t kShort = 125;
  std::string frame = "\x81";
  if (text.size() <= kShort) {
    frame += static_cast<char>(0x80U | text.size());
  } else {
    frame += static_cast<char>(0x80U | 126U);
    frame += static_cast<char>(text.size() >> 8U & 0xffU);
    frame += static_cast<char>(text.size() & 0xffU);
  }
  return frame.append(4, '\0').append(text);
}

std::vector<std::string> piecesOf(fuzz::Input& in, unsigned form) {
  std::array<std::size_t, 4> sizes{};
  // Small pieces are many: with a zero the rest comes at once.
  for (std::size_t& piece : sizes) piece = in.byte();
  std::vector<std::string> pieces;
  if (form != 0) pieces.push_back(opening());
  for (std::size_t i = 0; !in.empty(); ++i) {
    const std::size_t size = sizes[i % sizes.size()];
    if (form == 2) {
      pieces.push_back(messageOf(in.line().substr(0, 4000)));
    } else {
      pieces.emplace_back(in.bytes(size == 0 || i > 60 ? in.rest().size() : size));
    }
  }
  return pieces;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const view::Timeline recorded = someMatch();
  // The library for 3-D is a file like the others, only a hundred times as long.
  static const view::PagePlaces places{PITCH_SOURCE_DIR "/viewer/page",
                                       PITCH_SOURCE_DIR "/viewer/page/icon.svg"};
  fuzz::Input in(data, size);
  const unsigned form = in.byte();
  const bool live = form / 3 % 2 != 0;
  const std::vector<std::string> pieces = piecesOf(in, form % 3);
  view::Timeline growing(kLiveCycles);
  const view::Timeline& timeline = live ? growing : recorded;

  asio::io_context io{1};
  const Browser browser(io);
  std::shared_ptr<view::Page> page;
  std::make_shared<view::HttpSession>(
      browser.viewersEnd(), kPort, places,
      [&](boost::beast::tcp_stream stream, const view::HttpRequest& request) {
        demand(page == nullptr, "a connection becomes a stream once");
        page = std::make_shared<view::Page>(std::move(stream), timeline, live);
        page->accept(request);
      })
      ->start();

  auto now = view::Page::Clock::now();
  long cycle = 0;
  for (const std::string& piece : pieces) {
    browser.send(piece);
    if (live) growing.add(someCycle(++cycle));
    now += kTick;
    if (page) page->tick(now);
    browser.settle();
  }
  browser.hangUp();
  // Whatever a browser has said, its end is the end of the page and of the connection.
  demand(page == nullptr || page->isGone(), "a page is gone when its browser is");
  page.reset();
  browser.settle();
  return 0;
}
