#include "arena/model/Mjcf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "arena/model/BodyTable.h"

namespace arena {
namespace {

using testing::HasSubstr;
using testing::Not;

int count(const std::string& text, const std::string& what) {
  int found = 0;
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++found;
  return found;
}

TEST(Mjcf, EveryRobotHasItsOwnSetOfNamedLinks) {
  const std::string text = mjcf(3, {});
  for (int robot = 0; robot < 3; ++robot) {
    EXPECT_EQ(count(text, "<body name='" + nameInModel(robot, kTorsoName) + "'"), 1);
    for (const JointRow& row : kJoints) {
      EXPECT_EQ(count(text, "<body name='" + nameInModel(robot, row.link) + "'"), 1);
      EXPECT_EQ(count(text, "<joint name='" + nameInModel(robot, row.link) + "'"), 1);
    }
  }
  EXPECT_EQ(count(text, "<body "), 1 + 3 * 23);
  EXPECT_EQ(count(text, "</body>"), 1 + 3 * 23);
}

TEST(Mjcf, EmptyFieldHasBallAndGroundAndNoRobot) {
  const std::string text = mjcf(0, {});
  EXPECT_THAT(text, HasSubstr("name='ball'"));
  EXPECT_THAT(text, HasSubstr("name='ground'"));
  EXPECT_THAT(text, Not(HasSubstr("robot0")));
  EXPECT_THAT(text, Not(HasSubstr("<exclude")));
}

TEST(Mjcf, EqualSettingsGiveEqualText) {
  EXPECT_EQ(mjcf(2, {}), mjcf(2, {}));
}

TEST(Mjcf, SettingsShowInTheText) {
  ModelSettings settings;
  settings.stepSeconds = 0.005;
  settings.motorTorqueLimit = 12.5;
  settings.groundFriction = 0.75;
  settings.contactTimeConstant = 0.0625;
  const std::string text = mjcf(1, settings);
  EXPECT_THAT(text, HasSubstr("timestep='0.005"));
  EXPECT_THAT(text, HasSubstr("frictionloss='12.5'"));
  EXPECT_THAT(text, HasSubstr("friction='0.75 "));
  EXPECT_THAT(text, HasSubstr("solref='0.0625 1'"));
}

TEST(Mjcf, SettingsThatNoModelCanHaveAreRefused) {
  const auto refused = [](double ModelSettings::*field, double value) {
    ModelSettings settings;
    settings.*field = value;
    EXPECT_THROW((void)mjcf(1, settings), std::invalid_argument);
  };
  refused(&ModelSettings::stepSeconds, 0);
  refused(&ModelSettings::motorTorqueLimit, -1);
  refused(&ModelSettings::groundFriction, std::numeric_limits<double>::quiet_NaN());
  refused(&ModelSettings::contactTimeConstant, std::numeric_limits<double>::infinity());
  refused(&ModelSettings::massFactor, 0);
}

}  // namespace
}  // namespace arena
