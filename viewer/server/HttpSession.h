#pragma once

/// One HTTP connection to the viewer: answers its requests one after the other, and hands the
/// connection on when it becomes a page's stream. The viewer makes one for each connection;
/// everything happens on the viewer's thread.

#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http/parser.hpp>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "viewer/server/Door.h"
#include "viewer/server/PageFiles.h"

namespace arena::view {

class HttpSession : public std::enable_shared_from_this<HttpSession> {
 public:
  /// Takes over a connection that is to become a stream.
  using Upgrade = std::function<void(boost::beast::tcp_stream, const HttpRequest&)>;

  /// PLACES outlives the session. PORT is the viewer's own.
  HttpSession(boost::beast::tcp_stream stream, std::uint16_t port, const PagePlaces& places,
              Upgrade upgrade);
  void start() { read(); }

 private:
  void read();
  void answer(const HttpRequest& request);
  void leave();

  boost::beast::tcp_stream stream_;
  boost::beast::flat_buffer received_{};
  std::uint16_t port_;
  const PagePlaces& places_;
  Upgrade upgrade_;
  std::optional<http::request_parser<http::empty_body>> parser_{};
  HttpResponse response_{};
};

}  // namespace arena::view
