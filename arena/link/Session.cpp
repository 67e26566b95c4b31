#include "arena/link/Session.h"

#include <boost/asio/buffer.hpp>
#include <utility>

#include "arena/link/Effectors.h"

namespace arena {
namespace {

using boost::system::error_code;

/// [bytes] read from one session per cycle; a flood waits in its sender's own socket. Reading all
/// that 12 players and 52 others may send costs 3 ms of a cycle's 20 [measured: bench/faults].
/// A talkative player sends a tenth of it, and the largest frame fits in.
constexpr std::size_t kMaxBytesPerCycle = 16UL * 1024;
/// The same before it has asked for a body: that takes 30 bytes.
constexpr std::size_t kMaxBytesWithoutBody = 1024;

/// [bytes] of messages that the system may keep for a player: those of a second.
constexpr int kSystemBytes = 128 * 1024;

}  // namespace

Session::Session(boost::asio::ip::tcp::socket socket, const LinkSettings& settings)
    : socket_(std::move(socket)), maxWaitingBytes_(settings.maxWaitingBytes) {
  // A turn is many small frames; held back until the other end acknowledges they would come late.
  error_code ignored;
  socket_.set_option(boost::asio::ip::tcp::no_delay(true), ignored);
  // Left alone the system keeps megabytes for a player that doesn't read, and nobody counts them.
  socket_.set_option(boost::asio::socket_base::send_buffer_size(kSystemBytes), ignored);
}

void Session::start() {
  read();
}

void Session::read() {
  if (!open_) return;
  const std::size_t most = askedForBody_ ? kMaxBytesPerCycle : kMaxBytesWithoutBody;
  if (bytesSinceTaken_ >= most) {
    readingPaused_ = true;
    return;
  }
  socket_.async_read_some(boost::asio::buffer(piece_, most - bytesSinceTaken_),
                          [self = shared_from_this()](error_code error, std::size_t size) {
                            if (!self->open_) return;
                            if (error == boost::asio::error::eof)
                              return self->close("the player closed the connection");
                            if (error)
                              return self->close("the connection broke: " + error.message());
                            self->take({self->piece_.data(), size});
                            self->read();
                          });
}

void Session::take(std::string_view bytes) {
  bytesSinceTaken_ += bytes.size();
  reader_.feed(bytes);
  while (const auto frame = reader_.next()) {
    if (!readEffectors(*frame, commands_)) return close("a broken frame: parentheses don't match");
    askedForBody_ = askedForBody_ || commands_.scenes > 0;
    awaitingAnswer_ = false;
    silentSince_ = Clock::now();
    ++framesRead_;
  }
  if (const auto length = reader_.tooLong()) {
    close("a frame of " + std::to_string(*length) + " bytes, over the limit of " +
          std::to_string(kMaxPayloadBytes));
  }
}

Commands Session::takeCommands() {
  bytesSinceTaken_ = 0;
  if (std::exchange(readingPaused_, false)) read();
  return std::exchange(commands_, {});
}

void Session::send(std::string_view text) {
  if (!open_) return;
  if (!awaitingAnswer_) silentSince_ = Clock::now();
  awaitingAnswer_ = true;
  waiting_ += framed(text);
  if (bytesWaiting() > maxWaitingBytes_) {
    return close("a slow reader: " + std::to_string(bytesWaiting()) + " bytes wait for it");
  }
  if (inFlight_.empty()) write();
}

void Session::write() {
  if (inFlight_.empty()) {
    std::swap(inFlight_, waiting_);
    if (inFlight_.empty()) return;
  }
  socket_.async_write_some(
      boost::asio::buffer(inFlight_.data() + written_, inFlight_.size() - written_),
      [self = shared_from_this()](error_code error, std::size_t size) {
        if (!self->open_) return;
        if (error) return self->close("the connection broke: " + error.message());
        self->written_ += size;
        if (self->written_ == self->inFlight_.size()) {
          self->inFlight_.clear();
          self->written_ = 0;
        }
        self->write();
      });
}

void Session::close(std::string why) {
  if (!open_) return;
  open_ = false;
  whyClosed_ = std::move(why);
  // What the player did wrong may still fill its socket; errors here change nothing any more.
  error_code ignored;
  socket_.shutdown(boost::asio::ip::tcp::socket::shutdown_both, ignored);
  socket_.close(ignored);
}

}  // namespace arena
