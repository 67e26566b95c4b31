#include "viewer/server/PageFiles.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace arena::view {
namespace {

struct Row {
  std::string_view target;
  std::string_view file;  ///< in the page's folder; empty: three.js
  std::string_view type;
};

constexpr std::string_view kHtml = "text/html; charset=utf-8";
constexpr std::string_view kScript = "text/javascript; charset=utf-8";

// clang-format off
constexpr std::array kRows{
    Row{"/",                 "index.html",       kHtml},
    Row{"/style.css",        "style.css",        "text/css; charset=utf-8"},
    Row{"/icon.svg",         "icon.svg",         "image/svg+xml"},
    Row{"/main.js",          "main.js",          kScript},
    Row{"/app.js",           "app.js",           kScript},
    Row{"/stream.js",        "stream.js",        kScript},
    Row{"/frame.js",         "frame.js",         kScript},
    Row{"/motion.js",        "motion.js",        kScript},
    Row{"/field.js",         "field.js",         kScript},
    Row{"/robots.js",        "robots.js",        kScript},
    Row{"/labels.js",        "labels.js",        kScript},
    Row{"/cameras.js",       "cameras.js",       kScript},
    Row{"/minds.js",         "minds.js",         kScript},
    Row{"/mindpanel.js",     "mindpanel.js",     kScript},
    Row{"/actions.js",       "actions.js",       kScript},
    Row{"/board.js",         "board.js",         kScript},
    Row{"/timebar.js",       "timebar.js",       kScript},
    Row{"/keys.js",          "keys.js",          kScript},
    Row{"/three.module.js",  "",                 kScript},
};
// clang-format on

std::string pathOf(const PagePlaces& places, const Row& row) {
  return row.file.empty() ? places.threeModule : places.pageFolder + "/" + std::string(row.file);
}

}  // namespace

std::optional<PageFile> pageFile(const PagePlaces& places, std::string_view target) {
  const auto* const row = std::find_if(kRows.begin(), kRows.end(),
                                       [target](const Row& one) { return one.target == target; });
  if (row == kRows.end()) return std::nullopt;
  std::ifstream file(pathOf(places, *row), std::ios::binary);
  if (!file) return std::nullopt;
  return PageFile{row->type, {std::istreambuf_iterator<char>(file), {}}};
}

std::optional<std::string> pageFault(const PagePlaces& places) {
  for (const Row& row : kRows) {
    const std::string path = pathOf(places, row);
    if (std::ifstream(path)) continue;
    if (row.file.empty()) {
      return "three.js is not there (" + path + "): install the package libjs-three";
    }
    return "a file of the page is not there: " + path;
  }
  return std::nullopt;
}

}  // namespace arena::view
