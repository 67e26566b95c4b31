#pragma once

/// A real browser without a window, driven through WebDriver: for tests of the page as a person
/// meets it. Starts the distribution's driver, which starts its Chromium; both end with the object.
/// Every wait is for a condition, for at most kBrowserPatience: a full machine is slow.

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/support/TempDir.h"

namespace arena::test {

inline constexpr std::chrono::seconds kBrowserPatience{60};

/// What a picture looks like, told by its pixels.
struct Pixels {
  int width = 0;
  int height = 0;
  int colours = 0;       ///< distinct ones
  double commonest = 1;  ///< share of the picture that has its commonest colour
  double green = 0;      ///< share that is clearly green: the field
};

class Browser {
 public:
  /// Throws std::runtime_error when no browser can be started.
  Browser();
  ~Browser();
  Browser(const Browser&) = delete;
  Browser& operator=(const Browser&) = delete;

  void open(const std::string& address);
  void reload();
  /// The value of an expression of the page's language.
  nlohmann::json eval(const std::string& expression);
  /// Waits until EXPRESSION is true; fails the test and throws when that doesn't happen in time.
  void waitFor(const std::string& expression);
  /// Presses keys one after the other, as a keyboard does.
  void press(const std::string& keys);
  void click(const std::string& selector);
  /// What the browser's console has had since the last call, one line each, errors only.
  std::vector<std::string> errors();
  /// The picture as PNG.
  std::string screenshot();
  /// Decodes a PNG; leaves the page for an empty one.
  Pixels pixelsOf(const std::string& png);

 private:
  nlohmann::json command(const std::string& method, const std::string& path,
                         const nlohmann::json& body = nlohmann::json::object());
  void startDriver();
  void end();

  TempDir profile_{};
  pid_t driver_ = -1;
  int output_ = -1;
  std::uint16_t port_ = 0;
  std::string session_{};
};

}  // namespace arena::test
