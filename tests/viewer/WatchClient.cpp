#include "tests/viewer/WatchClient.h"

#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/buffers_to_string.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/string_body.hpp>
#include <boost/beast/http/write.hpp>
#include <boost/beast/websocket/rfc6455.hpp>
#include <optional>
#include <stdexcept>

namespace arena::test {
namespace {

namespace beast = boost::beast;
namespace http = beast::http;
namespace websocket = beast::websocket;
using boost::asio::ip::tcp;
using boost::system::error_code;

tcp::endpoint endpointOf(std::uint16_t port) {
  return {boost::asio::ip::address_v4::loopback(), port};
}

std::string usualHost(std::uint16_t port) {
  return "127.0.0.1:" + std::to_string(port);
}

/// Runs one operation to its end: the library's timeouts work for asynchronous ones alone.
template <typename Start>
void waitFor(boost::asio::io_context& io, const Start& start) {
  std::optional<error_code> result;
  start([&result](error_code error, auto&&...) { result = error; });
  io.restart();
  while (!result && io.run_one() > 0) continue;
  if (!result) throw std::logic_error("an operation without an end");
  if (*result) throw boost::system::system_error(*result);
}

long wholeAt(const std::string& bytes, std::size_t at, std::size_t count) {
  long value = 0;
  for (std::size_t i = 0; i < count; ++i) {
    value |= static_cast<long>(static_cast<unsigned char>(bytes.at(at + i))) << (8 * i);
  }
  return value;
}

}  // namespace

SeenFrame seenFrame(const std::string& bytes) {
  SeenFrame frame;
  frame.bytes = bytes;
  frame.players = static_cast<int>(wholeAt(bytes, 1, 1));
  frame.mode = static_cast<int>(wholeAt(bytes, 2, 1));
  frame.cycle = wholeAt(bytes, 4, 4);
  frame.score[0] = static_cast<int>(wholeAt(bytes, 12, 1));
  frame.score[1] = static_cast<int>(wholeAt(bytes, 13, 1));
  frame.ballX = static_cast<std::int16_t>(wholeAt(bytes, 16, 2)) / 1000.0;
  return frame;
}

HttpAnswer fetch(std::uint16_t port, const std::string& target,
                 const std::map<std::string, std::string>& headers, const std::string& method) {
  boost::asio::io_context io{1};
  beast::tcp_stream stream(io);
  stream.connect(endpointOf(port));
  http::request<http::string_body> request;
  request.version(11);
  request.method_string(method);
  request.target(target);
  request.set(http::field::host, usualHost(port));
  for (const auto& [name, value] : headers) {
    value.empty() ? static_cast<void>(request.erase(name)) : request.set(name, value);
  }
  http::write(stream, request);

  beast::flat_buffer buffer;
  http::response_parser<http::string_body> parser;
  parser.skip(method == "HEAD");
  stream.expires_after(kPatience);
  waitFor(io, [&](auto done) { http::async_read(stream, buffer, parser, done); });
  const auto& response = parser.get();
  const auto text = [&response](beast::string_view name) {
    const auto value = response[name];
    return std::string(value.data(), value.size());
  };
  return {static_cast<int>(response.result_int()), text("Content-Type"),
          text("Content-Security-Policy"), response.body()};
}

WatchClient::WatchClient(std::uint16_t port, const std::string& host, const std::string& origin) {
  beast::get_lowest_layer(stream_).connect(endpointOf(port));
  stream_.set_option(websocket::stream_base::decorator([origin](websocket::request_type& request) {
    if (!origin.empty()) request.set(http::field::origin, origin);
  }));
  stream_.handshake(host.empty() ? usualHost(port) : host, "/stream");
}

void WatchClient::read(bool acknowledge) {
  beast::get_lowest_layer(stream_).expires_after(kPatience);
  waitFor(io_, [&](auto done) { stream_.async_read(buffer_, done); });
  const std::string message = beast::buffers_to_string(buffer_.data());
  buffer_.clear();
  bytes_ += message.size();
  if (stream_.got_binary()) {
    frame_ = seenFrame(message);
    ++frames_;
    if (acknowledge) send({{"do", "got"}});
    return;
  }
  const auto texts = nlohmann::json::parse(message);
  for (const auto& [kind, value] : texts.items()) {
    texts_[kind] = value;
    if (kind == "events") events_.insert(events_.end(), value.begin(), value.end());
  }
}

void WatchClient::readUntil(const std::function<bool()>& done) {
  while (!done()) read();
}

void WatchClient::send(const nlohmann::json& request) {
  stream_.text(true);
  stream_.write(boost::asio::buffer(request.dump()));
}

nlohmann::json WatchClient::last(const std::string& kind) const {
  const auto entry = texts_.find(kind);
  return entry == texts_.end() ? nlohmann::json() : entry->second;
}

}  // namespace arena::test
