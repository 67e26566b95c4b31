#include "data/DataFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/TempDir.h"

namespace data {
namespace {

TEST(DataFolder, LiesBesideTheFolderOfTheProgram) {
  EXPECT_EQ(folderFor("/usr/bin/pitcharena", nullptr), "/usr/share/pitchagent");
  EXPECT_EQ(folderFor("/home/me/pitch/bin/pitchmotion", nullptr),
            "/home/me/pitch/share/pitchagent");
}

TEST(DataFolder, IsTheOneThatTheEnvironmentNames) {
  EXPECT_EQ(folderFor("/usr/bin/pitcharena", "/srv/mine"), "/srv/mine");
}

TEST(DataFolder, EmptyNameInTheEnvironmentIsNone) {
  EXPECT_EQ(folderFor("/usr/bin/pitcharena", ""), "/usr/share/pitchagent");
}

TEST(DataFolder, OfABuildHasThePartsOfTheSourceTree) {
  const auto folder = folderFor(PITCH_BIN_DIR "/pitcharena", nullptr);
  for (const auto* const part :
       {"viewer/page/index.html", "scripts/back.txt", "workshop/parameters/walk.json"}) {
    EXPECT_TRUE(
        std::filesystem::equivalent(folder / part, std::filesystem::path(PITCH_SOURCE_DIR) / part))
        << part;
  }
}

TEST(DataFolder, WorkingDirectoryGoesFirstWhereItHasTheName) {
  TempDir here;
  here.enter();
  EXPECT_EQ(nearest("scripts", "/usr/share/pitchagent"), "/usr/share/pitchagent/scripts");
  std::filesystem::create_directory(here.path() / "scripts");
  EXPECT_EQ(nearest("scripts", "/usr/share/pitchagent"), "scripts");
}

}  // namespace
}  // namespace data
