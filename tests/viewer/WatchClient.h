#pragma once

/// A page without a browser: opens the viewer's stream, counts what comes, asks for things. For
/// tests and benchmarks of the viewer's server; it blocks, at most for kPatience at a time.

#include <boost/asio/io_context.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/websocket/stream.hpp>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

namespace arena::test {

inline constexpr std::chrono::seconds kPatience{20};

/// What a test wants to know of a frame.
struct SeenFrame {
  int players = 0;
  int mode = 0;
  long cycle = 0;
  int score[2]{};
  double ballX = 0;  ///< [m]
  std::string bytes{};
};

struct HttpAnswer {
  int status = 0;
  std::string type{};
  std::string policy{};  ///< Content-Security-Policy
  std::string body{};
};

/// A request of its own connection. An empty HEADER value leaves the header out.
HttpAnswer fetch(std::uint16_t port, const std::string& target,
                 const std::map<std::string, std::string>& headers = {},
                 const std::string& method = "GET");

class WatchClient {
 public:
  /// Throws boost::system::system_error when it isn't let in.
  explicit WatchClient(std::uint16_t port, const std::string& host = {},
                       const std::string& origin = {});

  /// Reads one message; answers frames with "got" unless told not to. Throws at the end and when
  /// nothing comes.
  void read(bool acknowledge = true);
  /// Reads until DONE says so.
  void readUntil(const std::function<bool()>& done);
  void send(const nlohmann::json& request);

  [[nodiscard]] const SeenFrame& frame() const { return frame_; }
  [[nodiscard]] long frames() const { return frames_; }
  [[nodiscard]] std::size_t bytes() const { return bytes_; }
  /// The last text of each kind, null before the first.
  [[nodiscard]] nlohmann::json last(const std::string& kind) const;
  [[nodiscard]] const nlohmann::json& events() const { return events_; }

 private:
  boost::asio::io_context io_{1};
  boost::beast::websocket::stream<boost::beast::tcp_stream> stream_{io_};
  boost::beast::flat_buffer buffer_{};
  SeenFrame frame_{};
  long frames_ = 0;
  std::size_t bytes_ = 0;
  std::map<std::string, nlohmann::json> texts_{};
  nlohmann::json events_ = nlohmann::json::array();
};

/// Reads the layout of viewer/server/Frame.h once more, by hand.
SeenFrame seenFrame(const std::string& bytes);

}  // namespace arena::test
