#include "viewer/server/Viewer.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>
#include <chrono>
#include <exception>
#include <thread>
#include <utility>
#include <vector>

#include "viewer/server/HttpSession.h"
#include "viewer/server/Page.h"
#include "viewer/server/RecordQueue.h"

namespace arena::view {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;
using boost::system::error_code;

/// Half a cycle: a frame waits no longer than that.
constexpr std::chrono::milliseconds kTick{10};
/// Between two tries when the system has no descriptor left.
constexpr std::chrono::milliseconds kAcceptPause{100};
/// Some seconds at the highest speed of a match.
constexpr std::size_t kMostWaitingRecords = 2000;
/// Before they become pages: the match needs descriptors too.
constexpr std::size_t kMostConnections = 64;
/// On a full machine the match comes first.
constexpr int kNiceness = 10;

tcp::acceptor listener(asio::io_context& io, std::uint16_t port) {
  try {
    return {io, tcp::endpoint(asio::ip::address_v4::loopback(), port), /*reuse_addr=*/true};
  } catch (const boost::system::system_error& error) {
    throw ViewError("can't serve the page on 127.0.0.1:" + std::to_string(port) + ": " +
                    error.code().message());
  }
}

}  // namespace

struct Viewer::Impl {
  Impl(const ViewSettings& settings, Timeline shown, bool grows)
      : places(settings.places),
        acceptor(listener(io, settings.port)),
        port(acceptor.local_endpoint().port()),
        timeline(std::move(shown)),
        live(grows) {
    accept();
    nextTick = std::chrono::steady_clock::now();
    tick();
    thread = std::thread([this] {
      ::setpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()), kNiceness);
      serve();
    });
  }

  ~Impl() {
    // What the match has said last still goes out, as far as that needs no waiting.
    asio::post(io, [this] {
      takeRecords();
      for (const auto& page : pages) page->tick(std::chrono::steady_clock::now());
      asio::post(io, [this] { io.stop(); });
    });
    thread.join();
  }

  /// Until the object goes. What goes wrong with a page ends with that page, never with the match.
  void serve() {
    while (!io.stopped()) {
      try {
        io.run();
      } catch (const std::exception&) {
        continue;
      }
    }
  }

  void accept() {
    acceptor.async_accept([this](error_code error, tcp::socket socket) {
      if (error) {
        acceptTimer.expires_after(kAcceptPause);
        acceptTimer.async_wait([this](error_code) { accept(); });
        return;
      }
      const auto upgrade = [this](boost::beast::tcp_stream stream, const HttpRequest& request) {
        if (pages.size() >= kMostPages) return;
        pages.push_back(std::make_shared<Page>(std::move(stream), timeline, live));
        pages.back()->accept(request);
      };
      std::erase_if(connections, [](const auto& one) { return one.expired(); });
      if (connections.size() < kMostConnections) {
        const auto connection = std::make_shared<HttpSession>(
            boost::beast::tcp_stream(std::move(socket)), port, places, upgrade);
        connections.push_back(connection);
        connection->start();
      }
      accept();
    });
  }

  void tick() {
    // First: should anything below throw, the other pages go on with the next tick.
    const auto now = std::chrono::steady_clock::now();
    nextTick = std::max(nextTick + kTick, now);
    timer.expires_at(nextTick);
    timer.async_wait([this](error_code) { tick(); });
    takeRecords();
    for (const auto& page : pages) page->tick(now);
    std::erase_if(pages, [](const auto& page) { return page->isGone(); });
  }

  void takeRecords() {
    for (const auto& record : queue.takeAll()) timeline.add(*record);
  }

  const PagePlaces places;
  asio::io_context io{1};
  tcp::acceptor acceptor;
  const std::uint16_t port;
  asio::steady_timer timer{io};
  asio::steady_timer acceptTimer{io};
  std::chrono::steady_clock::time_point nextTick{};
  RecordQueue queue{kMostWaitingRecords};
  Timeline timeline;
  const bool live;
  std::vector<std::shared_ptr<Page>> pages{};
  std::vector<std::weak_ptr<HttpSession>> connections{};
  std::thread thread{};
};

Viewer::Viewer(const ViewSettings& settings) : Viewer(settings, Timeline(kLiveCycles), true) {}

Viewer::Viewer(const ViewSettings& settings, Timeline record)
    : Viewer(settings, std::move(record), false) {}

Viewer::Viewer(const ViewSettings& settings, Timeline timeline, bool live)
    : impl_(std::make_unique<Impl>(settings, std::move(timeline), live)) {}

Viewer::~Viewer() = default;

void Viewer::show(const CycleRecord& record) {
  impl_->queue.put(std::make_shared<const CycleRecord>(record));
}

std::string Viewer::address() const {
  return "http://127.0.0.1:" + std::to_string(impl_->port) + "/";
}

std::uint16_t Viewer::port() const {
  return impl_->port;
}

std::optional<std::string> Viewer::fault() const {
  return pageFault(impl_->places);
}

}  // namespace arena::view
