#include "workshop/trial/ScriptFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <system_error>

namespace workshop {
namespace {

std::string contentOf(const std::filesystem::path& file) {
  std::ifstream in(file);
  return {std::istreambuf_iterator<char>(in), {}};
}

TEST(ScriptFolder, IsACopyInWhichScriptsCanBeReplaced) {
  const ScriptFolder base;
  base.write("a.txt", "one");
  base.write("b.txt", "two");
  base.write("README.md", "no script");
  const ScriptFolder copy(base.path());
  copy.write("b.txt", "three");
  EXPECT_EQ(contentOf(copy.path() / "a.txt"), "one");
  EXPECT_EQ(contentOf(copy.path() / "b.txt"), "three");
  EXPECT_EQ(contentOf(base.path() / "b.txt"), "two");
  EXPECT_FALSE(std::filesystem::exists(copy.path() / "README.md"));
}

TEST(ScriptFolder, GoesWithTheObject) {
  std::filesystem::path path;
  {
    const ScriptFolder folder;
    folder.write("a.txt", "one");
    path = folder.path();
    EXPECT_TRUE(std::filesystem::exists(path));
  }
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(ScriptFolder, NeedsABaseThatIsThere) {
  const ScriptFolder empty;
  EXPECT_THROW(ScriptFolder(empty.path() / "none"), std::system_error);
}

}  // namespace
}  // namespace workshop
