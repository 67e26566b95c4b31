#include "workshop/tune/Tuning.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <stdexcept>

#include "workshop/trial/ScriptFolder.h"

namespace workshop {
namespace {

Json readJson(const std::filesystem::path& file) {
  std::ifstream in(file);
  return Json::parse(in);
}

/// One parameter file that can be tuned, in the nominal world alone: as short as a run can be.
class TuningTest : public testing::Test {
 protected:
  TuningTest() {
    settings.parameters = std::filesystem::path(PITCH_SOURCE_DIR) / "workshop/parameters";
    settings.work = folder.path();
    settings.name = "turn9";
    settings.evaluation.worlds = 0;
    settings.search.seed = settings.evaluation.seed = 5;
    settings.search.population = 5;
    settings.generations = 1;
  }

  ScriptFolder folder;
  TuningSettings settings;
  std::ostringstream status;
};

TEST_F(TuningTest, RunLeavesACheckpointAndARecordAndGoesOn) {
  tune(settings, status);
  EXPECT_TRUE(std::filesystem::exists(folder.path() / "turn9-5.checkpoint"));
  const Json first = readJson(folder.path() / "turn9-5.json").at("tuned");
  EXPECT_EQ(first.at("seed"), 5);
  EXPECT_EQ(first.at("worlds"), 0);
  EXPECT_EQ(first.at("sigma"), 0.1);
  EXPECT_EQ(first.at("generations"), 1);
  EXPECT_EQ(first.at("evaluations"), 10);  // the population to begin with, and one generation
  EXPECT_NE(status.str().find("generation 1/1, 10 evaluations"), std::string::npos);

  settings.resume = true;
  settings.generations = 2;
  tune(settings, status);
  const Json second = readJson(folder.path() / "turn9-5.json").at("tuned");
  EXPECT_EQ(second.at("generations"), 2);
  EXPECT_EQ(second.at("evaluations"), 15);
  EXPECT_LE(second.at("cost").get<double>(), first.at("cost").get<double>());

  settings.evaluation.worlds = 1;
  EXPECT_THROW(tune(settings, status), std::runtime_error);
  settings.evaluation.worlds = 0;
  settings.search.sigma = 0.2;
  EXPECT_THROW(tune(settings, status), std::runtime_error);
}

TEST_F(TuningTest, RunThatWasNeverBegunCannotGoOn) {
  settings.resume = true;
  EXPECT_THROW(tune(settings, status), std::runtime_error);
}

TEST_F(TuningTest, UnknownParametersAreAnError) {
  settings.name = "somersault";
  EXPECT_THROW(tune(settings, status), ParameterError);
}

}  // namespace
}  // namespace workshop
