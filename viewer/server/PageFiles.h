#pragma once

/// The files that make the page, and nothing else: what isn't in this list can't be fetched. The
/// page's own lie in one folder, viewer/page/ of the data folder; three.js where the distribution's
/// package puts it. Read anew for each request, so that a change shows at the next reload.

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace arena::view {

/// Where Debian's libjs-three has its module build.
inline constexpr std::string_view kThreeModule = "/usr/share/javascript/three/three.module.js";

/// Where the files lie.
struct PagePlaces {
  std::string pageFolder{};
  std::string threeModule{kThreeModule};
};

/// One file as it is sent.
struct PageFile {
  std::string_view type{};
  std::string content{};
};

/// What stands behind TARGET, the path of a request; empty when nothing does, or when the file
/// can't be read.
std::optional<PageFile> pageFile(const PagePlaces& places, std::string_view target);

/// What keeps the page from working, one line for a person; empty when nothing does.
std::optional<std::string> pageFault(const PagePlaces& places);

}  // namespace arena::view
