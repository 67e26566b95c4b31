#include "soak/MemoryPicture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace soak {
namespace {

using testing::HasSubstr;

ProcessMemory steady(const std::string& name, double ownKb) {
  ProcessMemory memory;
  memory.process = name;
  for (int cycle = 0; cycle <= 1000; cycle += 500) {
    memory.levels.push_back({static_cast<double>(cycle), ownKb, ownKb, ownKb});
  }
  return memory;
}

/// The points of the line that is called NAME.
std::string lineOf(const std::string& svg, const std::string& name) {
  const auto end = svg.find("<title>" + name + "</title>");
  if (end == std::string::npos) return {};
  const auto start = svg.rfind("points=\"", end) + 8;
  return svg.substr(start, svg.find('"', start) - start);
}

// The diagram of the players begins 302 below the picture's edge and is 150 high; 400 kB are at
// half height when the scale ends at 800. Cycles go from 80 to 720.
TEST(MemoryPicture, LevelLineLiesAtItsHeight) {
  const std::string svg =
      pictureOf({steady("left-1", 400), steady("pitcharena", 2048), steady("play", 800)});
  EXPECT_EQ(lineOf(svg, "left-1"), "80.0,392.0 720.0,392.0 ");
  EXPECT_THAT(svg, HasSubstr(">1,000</text>"));
}

TEST(MemoryPicture, NothingSampledIsAPictureToo) {
  const std::string svg = pictureOf({});
  EXPECT_THAT(svg, testing::StartsWith("<svg "));
  EXPECT_THAT(svg, testing::EndsWith("</svg>\n"));
  EXPECT_THAT(svg, testing::Not(HasSubstr("nan")));
  EXPECT_THAT(svg, testing::Not(HasSubstr("inf")));
}

}  // namespace
}  // namespace soak
