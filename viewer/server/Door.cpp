#include "viewer/server/Door.h"

#include <string>

namespace arena::view {
namespace {

/// Own scripts, styles and stream; nothing from elsewhere, whatever slips into the page.
constexpr const char* kPolicy =
    "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; connect-src 'self'; "
    "base-uri 'none'; form-action 'none'; frame-ancestors 'none'";

bool namesUs(std::string_view host, std::uint16_t port) {
  const std::string number = ":" + std::to_string(port);
  for (const char* name : {"127.0.0.1", "localhost"}) {
    if (host == name + number) return true;
    if (port == 80 && host == name) return true;
  }
  return false;
}

HttpResponse plain(const HttpRequest& request, http::status status, const std::string& text) {
  HttpResponse response(status, request.version());
  response.set(http::field::content_type, "text/plain; charset=utf-8");
  response.body() = text + "\n";
  return response;
}

HttpResponse chosen(const HttpRequest& request, std::uint16_t port, const PagePlaces& places) {
  if (!isWelcome(request, port)) {
    return plain(request, http::status::forbidden, "this page is for this machine's own browsers");
  }
  if (request.method() != http::verb::get && request.method() != http::verb::head) {
    HttpResponse response = plain(request, http::status::method_not_allowed, "GET or HEAD only");
    response.set(http::field::allow, "GET, HEAD");
    return response;
  }
  const auto target = request.target();
  auto file = pageFile(places, {target.data(), target.size()});
  if (!file) return plain(request, http::status::not_found, "there is no such file here");
  HttpResponse response(http::status::ok, request.version());
  response.set(http::field::content_type, {file->type.data(), file->type.size()});
  response.body() = std::move(file->content);
  return response;
}

}  // namespace

bool isWelcome(const HttpRequest& request, std::uint16_t port) {
  if (request.count(http::field::host) != 1 || request.count(http::field::origin) > 1) {
    return false;
  }
  const auto host = request[http::field::host];
  if (!namesUs({host.data(), host.size()}, port)) return false;
  if (request.count(http::field::origin) == 0) return true;
  constexpr std::string_view kScheme = "http://";
  const auto field = request[http::field::origin];
  const std::string_view origin(field.data(), field.size());
  return origin.starts_with(kScheme) && namesUs(origin.substr(kScheme.size()), port);
}

HttpResponse answerTo(const HttpRequest& request, std::uint16_t port, const PagePlaces& places) {
  HttpResponse response = chosen(request, port, places);
  response.set(http::field::cache_control, "no-store");
  response.set("Content-Security-Policy", kPolicy);
  response.set("X-Content-Type-Options", "nosniff");
  response.set("Cross-Origin-Resource-Policy", "same-origin");
  response.set("Referrer-Policy", "no-referrer");
  response.keep_alive(request.keep_alive());
  response.prepare_payload();
  if (request.method() == http::verb::head) response.body().clear();
  return response;
}

}  // namespace arena::view
