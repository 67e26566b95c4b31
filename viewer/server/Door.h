#pragma once

/// Who may come in, and what an HTTP request gets: pure functions from request to answer. The page
/// is for browsers on this machine that were led to it by its own address: a foreign page must not
/// reach it through its visitor's browser, neither by its own name for this machine (Host) nor from
/// its own place (Origin).

#include <boost/beast/http/empty_body.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/beast/http/string_body.hpp>
#include <cstdint>
#include <string_view>

#include "viewer/server/PageFiles.h"

namespace arena::view {

namespace http = boost::beast::http;

/// Where the page opens its stream.
inline constexpr std::string_view kStreamTarget = "/stream";

using HttpRequest = http::request<http::empty_body>;
using HttpResponse = http::response<http::string_body>;

/// Whether the request names this machine's loopback and PORT as its host, once, and comes from no
/// other origin. A program that is no browser names no origin; that is fine.
bool isWelcome(const HttpRequest& request, std::uint16_t port);

/// The answer to anything but the opening of a stream.
HttpResponse answerTo(const HttpRequest& request, std::uint16_t port, const PagePlaces& places);

}  // namespace arena::view
