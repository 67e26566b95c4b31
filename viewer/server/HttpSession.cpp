#include "viewer/server/HttpSession.h"

#include <boost/beast/http/read.hpp>
#include <boost/beast/http/write.hpp>
#include <boost/beast/websocket/rfc6455.hpp>
#include <chrono>
#include <utility>

namespace arena::view {
namespace {

using boost::system::error_code;

/// For a request to come in whole, and for an answer to be taken.
constexpr std::chrono::seconds kPatience{20};
constexpr std::uint32_t kLongestHeader = 8192;

}  // namespace

HttpSession::HttpSession(boost::beast::tcp_stream stream, std::uint16_t port,
                         const PagePlaces& places, Upgrade upgrade)
    : stream_(std::move(stream)), port_(port), places_(places), upgrade_(std::move(upgrade)) {}

void HttpSession::read() {
  parser_.emplace();
  parser_->header_limit(kLongestHeader);
  stream_.expires_after(kPatience);
  http::async_read(stream_, received_, *parser_,
                   [self = shared_from_this()](error_code error, std::size_t) {
                     if (error) return self->leave();
                     self->answer(self->parser_->release());
                   });
}

void HttpSession::answer(const HttpRequest& request) {
  const auto target = request.target();
  if (boost::beast::websocket::is_upgrade(request) &&
      std::string_view(target.data(), target.size()) == kStreamTarget &&
      isWelcome(request, port_)) {
    stream_.expires_never();
    upgrade_(std::move(stream_), request);
    return;
  }
  response_ = answerTo(request, port_, places_);
  http::async_write(stream_, response_, [self = shared_from_this()](error_code error, std::size_t) {
    if (error || self->response_.need_eof()) return self->leave();
    self->read();
  });
}

void HttpSession::leave() {
  error_code ignored;
  stream_.socket().shutdown(boost::asio::ip::tcp::socket::shutdown_both, ignored);
  stream_.close();
}

}  // namespace arena::view
