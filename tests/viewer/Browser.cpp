#include "tests/viewer/Browser.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <boost/asio/connect.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core/detail/base64.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http/message.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/string_body.hpp>
#include <boost/beast/http/write.hpp>
#include <stdexcept>
#include <thread>

namespace arena::test {
namespace {

namespace beast = boost::beast;
namespace http = beast::http;
using nlohmann::json;

constexpr const char* kDriver = "/usr/bin/chromedriver";
constexpr const char* kReady = "started successfully on port ";
constexpr std::chrono::milliseconds kBetweenLooks{50};
constexpr std::uint64_t kLongestAnswer = 64U << 20U;

json capabilities(const std::string& profile) {
  json arguments{"--headless=new", "--window-size=1280,880", "--force-device-scale-factor=1",
                 "--user-data-dir=" + profile, "--no-first-run", "--disable-background-networking",
                 "--disable-component-update", "--disable-default-apps", "--disable-dev-shm-usage",
                 "--disable-extensions", "--mute-audio",
                 // No graphics card is taken for granted.
                 "--use-angle=swiftshader", "--enable-unsafe-swiftshader",
                 // Nothing from elsewhere could come, should the page ask for it.
                 "--host-resolver-rules=MAP * ~NOTFOUND, EXCLUDE 127.0.0.1"};
  // Its sandbox refuses to work for root.
  if (::geteuid() == 0) arguments.push_back("--no-sandbox");
  return {{"capabilities",
           {{"alwaysMatch",
             {{"browserName", "chrome"},
              {"goog:chromeOptions", {{"args", arguments}, {"binary", "/usr/bin/chromium"}}},
              {"goog:loggingPrefs", {{"browser", "ALL"}}}}}}}};
}

std::string decoded(const std::string& base64) {
  std::string bytes(beast::detail::base64::decoded_size(base64.size()), '\0');
  bytes.resize(beast::detail::base64::decode(bytes.data(), base64.data(), base64.size()).first);
  return bytes;
}

std::string encoded(const std::string& bytes) {
  std::string base64(beast::detail::base64::encoded_size(bytes.size()), '\0');
  base64.resize(beast::detail::base64::encode(base64.data(), bytes.data(), bytes.size()));
  return base64;
}

}  // namespace

Browser::Browser() {
  startDriver();
  try {
    const json made = command("POST", "/session", capabilities(profile_.path().string()));
    session_ = "/session/" + made.at("sessionId").get<std::string>();
    const auto patience =
        std::chrono::duration_cast<std::chrono::milliseconds>(kBrowserPatience).count();
    command("POST", session_ + "/timeouts", {{"script", patience}, {"pageLoad", patience}});
  } catch (...) {
    end();
    throw;
  }
}

Browser::~Browser() {
  try {
    if (!session_.empty()) command("DELETE", session_);
  } catch (const std::exception&) {
    // The driver takes its browser with it anyway.
  }
  end();
}

void Browser::startDriver() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe for the driver");
  driver_ = ::fork();
  if (driver_ == 0) {
    // A group of its own, so that the browser's processes end with it.
    ::setpgid(0, 0);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::dup2(ends[1], STDOUT_FILENO);
    ::dup2(ends[1], STDERR_FILENO);
    // The library's sockets are inherited: a viewer's port would stay taken as long as this lives.
    ::close_range(STDERR_FILENO + 1, ~0U, 0);
    ::execl(kDriver, kDriver, "--port=0", static_cast<char*>(nullptr));
    ::_exit(127);
  }
  ::close(ends[1]);
  output_ = ends[0];
  if (driver_ < 0) throw std::runtime_error("the driver can't be started");
  std::string text;
  std::array<char, 512> piece{};
  for (;;) {
    const auto at = text.find(kReady);
    if (at != std::string::npos && text.find('.', at) != std::string::npos) {
      port_ = static_cast<std::uint16_t>(std::stoi(text.substr(at + std::string(kReady).size())));
      return;
    }
    const ssize_t got = ::read(output_, piece.data(), piece.size());
    if (got <= 0) {
      end();
      throw std::runtime_error(std::string(kDriver) + " does not start: " + text);
    }
    text.append(piece.data(), static_cast<std::size_t>(got));
  }
}

void Browser::end() {
  if (driver_ > 0) {
    ::kill(-driver_, SIGKILL);
    while (::waitpid(driver_, nullptr, 0) < 0 && errno == EINTR) continue;
    driver_ = -1;
  }
  if (output_ >= 0) ::close(output_);
  output_ = -1;
}

json Browser::command(const std::string& method, const std::string& path, const json& body) {
  boost::asio::io_context io{1};
  beast::tcp_stream stream(io);
  stream.connect({boost::asio::ip::address_v4::loopback(), port_});
  http::request<http::string_body> request;
  request.version(11);
  request.method_string(method);
  request.target(path);
  request.set(http::field::host, "127.0.0.1:" + std::to_string(port_));
  request.set(http::field::content_type, "application/json");
  request.set(http::field::connection, "close");
  if (method == "POST") request.body() = body.dump();
  request.prepare_payload();
  http::write(stream, request);
  beast::flat_buffer buffer;
  http::response_parser<http::string_body> parser;
  parser.body_limit(kLongestAnswer);
  http::read(stream, buffer, parser);
  json value = json::parse(parser.get().body()).at("value");
  if (parser.get().result() != http::status::ok) {
    throw std::runtime_error(method + " " + path + ": " + value.value("error", "") + ": " +
                             value.value("message", ""));
  }
  return value;
}

void Browser::open(const std::string& address) {
  command("POST", session_ + "/url", {{"url", address}});
}

void Browser::reload() {
  command("POST", session_ + "/refresh");
}

json Browser::eval(const std::string& expression) {
  return command("POST", session_ + "/execute/sync",
                 {{"script", "return " + expression}, {"args", json::array()}});
}

void Browser::waitFor(const std::string& expression) {
  const auto deadline = std::chrono::steady_clock::now() + kBrowserPatience;
  while (std::chrono::steady_clock::now() < deadline) {
    const json value =
        eval("(() => { try { return Boolean(" + expression + "); } catch { return false; } })()");
    if (value == true) return;
    std::this_thread::sleep_for(kBetweenLooks);
  }
  const std::string state = eval("JSON.stringify(window.pitch?.state ?? null)").dump();
  ADD_FAILURE() << "in vain waited for: " << expression << "\nthe page's state: " << state;
  throw std::runtime_error("in vain waited for: " + expression);
}

void Browser::press(const std::string& keys) {
  json actions = json::array();
  for (const char key : keys) {
    const bool shifted = key >= 'A' && key <= 'Z';
    const std::string value(1, key);
    if (shifted) actions.push_back({{"type", "keyDown"}, {"value", "\uE008"}});
    actions.push_back({{"type", "keyDown"}, {"value", value}});
    actions.push_back({{"type", "keyUp"}, {"value", value}});
    if (shifted) actions.push_back({{"type", "keyUp"}, {"value", "\uE008"}});
  }
  command("POST", session_ + "/actions",
          {{"actions", {{{"type", "key"}, {"id", "keyboard"}, {"actions", actions}}}}});
}

void Browser::click(const std::string& selector) {
  const json element =
      command("POST", session_ + "/element", {{"using", "css selector"}, {"value", selector}});
  command("POST", session_ + "/element/" + element.begin().value().get<std::string>() + "/click");
}

std::vector<std::string> Browser::errors() {
  std::vector<std::string> lines;
  for (const json& entry : command("POST", session_ + "/se/log", {{"type", "browser"}})) {
    if (entry.at("level") == "SEVERE") lines.push_back(entry.at("message"));
  }
  return lines;
}

std::string Browser::screenshot() {
  return decoded(command("GET", session_ + "/screenshot").get<std::string>());
}

Pixels Browser::pixelsOf(const std::string& png) {
  open("about:blank");
  const json found =
      command("POST", session_ + "/execute/async", {{"args", {encoded(png)}}, {"script", R"(
      const [base64, done] = arguments;
      const image = new Image();
      image.onload = () => {
        const canvas = document.createElement('canvas');
        canvas.width = image.width;
        canvas.height = image.height;
        const pen = canvas.getContext('2d');
        pen.drawImage(image, 0, 0);
        const data = pen.getImageData(0, 0, image.width, image.height).data;
        const counts = new Map();
        let green = 0;
        for (let i = 0; i < data.length; i += 4) {
          const colour = data[i] << 16 | data[i + 1] << 8 | data[i + 2];
          counts.set(colour, (counts.get(colour) ?? 0) + 1);
          if (data[i + 1] > 70 && data[i + 1] > 1.3 * data[i] && data[i + 1] > 1.3 * data[i + 2]) ++green;
        }
        const all = image.width * image.height;
        done([image.width, image.height, counts.size, Math.max(...counts.values()) / all, green / all]);
      };
      image.onerror = () => done(null);
      image.src = 'data:image/png;base64,' + base64;)"}});
  if (!found.is_array()) throw std::runtime_error("that is no picture");
  return {found[0], found[1], found[2], found[3], found[4]};
}

}  // namespace arena::test
