#include "workshop/generate/Shelf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>

#include "workshop/generate/ScriptJoints.h"

namespace workshop {
namespace {

const std::filesystem::path kRoot = PITCH_SOURCE_DIR;

std::string contents(const std::filesystem::path& file) {
  std::ifstream in(file);
  return {std::istreambuf_iterator<char>(in), {}};
}

TEST(Shelf, ShippedScriptsAreWhatTheShippedParametersMake) {
  const Scripts scripts = allScripts(readDescriptions(kRoot / "workshop/parameters"));
  std::set<std::string> made;
  for (const auto& [file, text] : scripts) {
    EXPECT_EQ(contents(kRoot / "scripts" / file), text) << file;
    made.insert(file);
  }
  std::set<std::string> shipped;
  for (const auto& entry : std::filesystem::directory_iterator(kRoot / "scripts")) {
    if (entry.path().extension() == ".txt") shipped.insert(entry.path().filename());
  }
  EXPECT_EQ(shipped, made);
}

TEST(Shelf, EveryLocomotionScriptIsMade) {
  const Scripts scripts = allScripts(readDescriptions(kRoot / "workshop/parameters"));
  for (const char* file : {"initialstate.txt", "initialstateforwalk.txt",
                           "walkstart.txt",    "walkloop1.txt",
                           "walkloop2.txt",    "walkloop3.txt",
                           "walkloop4.txt",    "walkend.txt",
                           "turnL9.txt",       "turnR9.txt",
                           "turnL15.txt",      "turnR15.txt",
                           "turnL40.txt",      "turnR40.txt",
                           "turnL60.txt",      "turnR60.txt",
                           "turnL180.txt",     "turnR180.txt",
                           "sideL.txt",        "sideR.txt",
                           "sideLm.txt",       "sideRm.txt",
                           "back.txt"}) {
    EXPECT_TRUE(scripts.contains(file)) << file;
  }
}

TEST(Shelf, AFileMadeTwiceIsAnError) {
  Descriptions descriptions = readDescriptions(kRoot / "workshop/parameters");
  descriptions["again"] = descriptions.at("turn15");
  EXPECT_THROW(allScripts(descriptions), ParameterError);
}

TEST(Shelf, AnUnknownKindIsAnError) {
  Descriptions descriptions = readDescriptions(kRoot / "workshop/parameters");
  descriptions["odd"] = Json{{"kind", "dance"}};
  EXPECT_THROW(scriptsOf(descriptions, "odd"), ParameterError);
  EXPECT_THROW(scriptsOf(descriptions, "absent"), ParameterError);
}

TEST(Shelf, AFolderThatIsNotThereIsAnError) {
  EXPECT_THROW(readDescriptions(kRoot / "no such folder"), ParameterError);
}

}  // namespace
}  // namespace workshop
