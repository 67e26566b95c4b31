#include "arena/link/Hub.h"

#include <algorithm>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>
#include <functional>
#include <map>
#include <utility>

#include "arena/link/Session.h"

namespace arena {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;
using boost::system::error_code;

/// Between two tries when the system has no descriptor left for a new session.
constexpr std::chrono::milliseconds kAcceptPause{100};

/// For what has come in already when a deadline passes. The answers of twelve players take a tenth
/// of it; a crowd that keeps connecting must not make it longer.
constexpr std::chrono::milliseconds kPastDeadline{2};

std::string inWords(std::chrono::milliseconds span) {
  const auto count = span.count();
  return count % 1000 == 0 ? std::to_string(count / 1000) + " s" : std::to_string(count) + " ms";
}

tcp::acceptor listener(asio::io_context& io, const LinkSettings& settings) {
  const std::string where = settings.listen + ":" + std::to_string(settings.port);
  try {
    const tcp::endpoint endpoint(asio::ip::make_address(settings.listen), settings.port);
    return tcp::acceptor(io, endpoint, /*reuse_addr=*/true);
  } catch (const boost::system::system_error& error) {
    throw LinkError("can't listen on " + where + ": " + error.code().message());
  }
}

}  // namespace

struct Hub::Impl {
  explicit Impl(const LinkSettings& s)
      : settings(s), acceptor(listener(io, settings)), deadlineTimer(io), acceptTimer(io) {
    accept();
  }

  void accept() {
    acceptor.async_accept([this](error_code error, tcp::socket socket) {
      const SessionId id = nextId++;
      if (error) {
        lost.push_back({id, "it couldn't be accepted: " + error.message()});
        acceptTimer.expires_after(kAcceptPause);
        acceptTimer.async_wait([this](error_code) { accept(); });
        return;
      }
      if (sessions.size() >= settings.maxSessions && !makeRoom()) {
        lost.push_back({id, tooMany()});
      } else {
        const auto session = std::make_shared<Session>(std::move(socket), settings);
        session->start();
        sessions.emplace(id, session);
      }
      accept();
    });
  }

  [[nodiscard]] std::string tooMany() const {
    return "more than " + std::to_string(settings.maxSessions) + " sessions";
  }

  /// Ends the oldest of the sessions that have had their time to ask for a body and haven't: they
  /// must not keep out a player that comes back. False if there is none.
  bool makeRoom() {
    const Clock::time_point asked = Clock::now() - settings.timeToAsk;
    const auto idle = std::find_if(sessions.begin(), sessions.end(), [asked](const auto& entry) {
      const Session& session = *entry.second;
      return session.isOpen() && !session.hasAskedForBody() && session.accepted() < asked;
    });
    if (idle == sessions.end()) return false;
    idle->second->close(tooMany() + ", and it has no body");
    lost.push_back({idle->first, idle->second->whyClosed()});
    sessions.erase(idle);
    return true;
  }

  /// Runs handlers until DONE or DEADLINE. A timer of our own: the library's timed runs round up
  /// to whole milliseconds.
  void serve(Clock::time_point deadline, const std::function<bool()>& done) {
    bool passed = false;
    deadlineTimer.expires_at(deadline);
    // A cancelled wait completes in a later call, when `passed` is gone: it must not touch it.
    deadlineTimer.async_wait([&passed](error_code error) {
      if (!error) passed = true;
    });
    while (!passed && !done()) io.run_one();
    if (!passed && deadlineTimer.cancel() == 0) {
      // It has expired already and its completion is queued: let it come while `passed` lives.
      while (!passed) io.run_one();
    }
    // A deadline that lies behind us must not keep from being read what has come in already.
    const Clock::time_point end = Clock::now() + kPastDeadline;
    while (io.poll_one() > 0 && Clock::now() < end) continue;
  }

  [[nodiscard]] bool allAnswered() const {
    return std::all_of(sessions.begin(), sessions.end(), [](const auto& entry) {
      return !entry.second->isOpen() || entry.second->hasAnswered();
    });
  }

  [[nodiscard]] unsigned long framesRead() const {
    unsigned long count = 0;
    for (const auto& [id, session] : sessions) count += session->framesRead();
    return count;
  }

  [[nodiscard]] bool nothingWaits() const {
    return std::all_of(sessions.begin(), sessions.end(), [](const auto& entry) {
      return !entry.second->isOpen() || entry.second->bytesWaiting() == 0;
    });
  }

  LinkSettings settings;
  asio::io_context io{1};
  tcp::acceptor acceptor;
  asio::steady_timer deadlineTimer;
  asio::steady_timer acceptTimer;
  SessionId nextId = 1;
  std::map<SessionId, std::shared_ptr<Session>> sessions{};
  std::vector<Lost> lost{};  ///< connections that never became a session
};

Hub::Hub(const LinkSettings& settings) : impl_(std::make_unique<Impl>(settings)) {}

Hub::~Hub() = default;

std::uint16_t Hub::port() const {
  return impl_->acceptor.local_endpoint().port();
}

void Hub::serveUntil(Clock::time_point deadline) {
  impl_->serve(deadline, [] { return false; });
}

void Hub::serveUntilAnswered(Clock::duration quiet, Clock::time_point deadline) {
  impl_->serve(deadline, [this] { return impl_->allAnswered(); });
  while (Clock::now() < deadline) {
    const unsigned long seen = impl_->framesRead();
    const auto news = [this, seen] { return impl_->framesRead() != seen; };
    impl_->serve(std::min(deadline, Clock::now() + quiet), news);
    if (!news()) return;
  }
}

void Hub::finish(Clock::time_point deadline) {
  impl_->serve(deadline, [this] { return impl_->nothingWaits(); });
  for (const auto& [id, session] : impl_->sessions) session->close("the match is over");
}

std::vector<Lost> Hub::takeLost() {
  const Clock::time_point now = Clock::now();
  std::vector<Lost> lost = std::exchange(impl_->lost, {});
  std::erase_if(impl_->sessions, [&](const auto& entry) {
    Session& session = *entry.second;
    const auto since = session.silentSince();
    if (since && now - *since > impl_->settings.silence) {
      session.close("silent for " + inWords(impl_->settings.silence));
    }
    if (!session.isOpen()) lost.push_back({entry.first, session.whyClosed()});
    return !session.isOpen();
  });
  std::sort(lost.begin(), lost.end(), [](const Lost& a, const Lost& b) { return a.id < b.id; });
  return lost;
}

std::vector<Received> Hub::takeCommands() {
  std::vector<Received> received;
  for (const auto& [id, session] : impl_->sessions) {
    if (!session->isOpen()) continue;
    Commands commands = session->takeCommands();
    if (commands.frames > 0) received.push_back({id, std::move(commands)});
  }
  return received;
}

void Hub::send(SessionId id, std::string_view text) {
  const auto entry = impl_->sessions.find(id);
  if (entry != impl_->sessions.end()) entry->second->send(text);
}

void Hub::close(SessionId id) {
  const auto entry = impl_->sessions.find(id);
  if (entry == impl_->sessions.end()) return;
  entry->second->close("the match won't have it");
  impl_->sessions.erase(entry);
}

std::size_t Hub::bodiesAskedFor() const {
  return static_cast<std::size_t>(std::count_if(
      impl_->sessions.begin(), impl_->sessions.end(),
      [](const auto& entry) { return entry.second->isOpen() && entry.second->hasAskedForBody(); }));
}

}  // namespace arena
