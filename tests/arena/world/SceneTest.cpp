#include "arena/world/Scene.h"

#include <gtest/gtest.h>

#include <numbers>
#include <set>
#include <string>
#include <utility>

#include "arena/model/FieldTable.h"

namespace arena {
namespace {

/// The links whose shapes touch something in the state, with the goals' bars as "".
std::set<std::pair<std::string, std::string>> touching(const Scene& scene, mjData& data) {
  mj_fwdPosition(scene.model.get(), &data);
  std::set<std::pair<std::string, std::string>> pairs;
  const auto name = [&](int geom) {
    const char* text = mj_id2name(scene.model.get(), mjOBJ_GEOM, geom);
    return std::string(text != nullptr ? text : "");
  };
  for (int i = 0; i < data.ncon; ++i) {
    std::pair pair(name(data.contact[i].geom1), name(data.contact[i].geom2));
    if (pair.second < pair.first) std::swap(pair.first, pair.second);
    pairs.insert(std::move(pair));
  }
  return pairs;
}

void setJoint(const Scene& scene, mjData& data, std::string_view perceptor, double degrees) {
  data.qpos[scene.robots[0].jointPosition[rowOfPerceptor(perceptor)]] =
      degrees * std::numbers::pi / 180;
}

TEST(Scene, EngineHasTheTablesMassesOffsetsAxesAndRanges) {
  const Scene scene = makeScene(2, {});
  const mjModel& m = *scene.model;
  for (int robot = 0; robot < 2; ++robot) {
    for (const JointRow& row : kJoints) {
      const std::string name = nameInModel(robot, row.link);
      const int body = mj_name2id(&m, mjOBJ_BODY, name.c_str());
      const int joint = mj_name2id(&m, mjOBJ_JOINT, name.c_str());
      ASSERT_GE(body, 0);
      ASSERT_GE(joint, 0);
      EXPECT_NEAR(m.body_mass[body], row.mass, 1e-12);
      EXPECT_EQ(m.jnt_bodyid[joint], body);
      const int parent = m.body_parentid[body];
      EXPECT_EQ(mj_id2name(&m, mjOBJ_BODY, parent), nameInModel(robot, row.parent));
      for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(m.body_pos[3 * static_cast<std::size_t>(body) + i], row.offset[i], 1e-12);
        EXPECT_NEAR(m.jnt_axis[3 * static_cast<std::size_t>(joint) + i], row.axis[i], 1e-4);
        EXPECT_NEAR(m.jnt_pos[3 * static_cast<std::size_t>(joint) + i], row.anchor[i], 1e-12);
      }
      EXPECT_NEAR(m.jnt_range[2 * joint] * 180 / std::numbers::pi, row.lowDeg, 1e-9);
      EXPECT_NEAR(m.jnt_range[2 * joint + 1] * 180 / std::numbers::pi, row.highDeg, 1e-9);
    }
  }
}

TEST(Scene, MassFactorScalesEveryLinkAndNotTheBall) {
  const Scene plain = makeScene(1, {});
  const Scene heavy = makeScene(1, {.massFactor = 1.5});
  for (int body = 1; body < plain.model->nbody; ++body) {
    const bool isBall = plain.model->body_rootid[body] != plain.robots[0].torso;
    EXPECT_NEAR(heavy.model->body_mass[body], plain.model->body_mass[body] * (isBall ? 1.0 : 1.5),
                1e-12);
  }
}

TEST(Scene, EveryJointHasItsOwnPlaceInTheState) {
  const Scene scene = makeScene(12, {});
  std::set<int> positions;
  std::set<int> velocities;
  for (const RobotIndex& robot : scene.robots) {
    positions.insert(robot.jointPosition.begin(), robot.jointPosition.end());
    velocities.insert(robot.jointVelocity.begin(), robot.jointVelocity.end());
  }
  EXPECT_EQ(positions.size(), 12 * kJointCount);
  EXPECT_EQ(velocities.size(), 12 * kJointCount);
  EXPECT_EQ(scene.model->nv, 6 + 12 * 28);
}

TEST(Scene, StandingStraightOnlyTheFeetTouchAnything) {
  const Scene scene = makeScene(1, {});
  const DataPtr data = makeData(scene);
  data->qpos[scene.robots[0].position + 2] = kStandingHeight - 0.0001;
  data->qpos[scene.ball.position + 2] = 1;
  const std::set<std::pair<std::string, std::string>> feet{{"ground", "robot0/LFoot"},
                                                           {"ground", "robot0/RFoot"}};
  EXPECT_EQ(touching(scene, *data), feet);
}

TEST(Scene, ArmsHangingStraightDownPressIntoTheThighs) {
  const Scene scene = makeScene(1, {});
  const DataPtr data = makeData(scene);
  data->qpos[scene.robots[0].position + 2] = 2;
  setJoint(scene, *data, "laj1", -90);
  setJoint(scene, *data, "raj1", -90);
  const auto pairs = touching(scene, *data);
  EXPECT_TRUE(pairs.contains({"robot0/LLowerArm", "robot0/LThigh"}));
  EXPECT_TRUE(pairs.contains({"robot0/RLowerArm", "robot0/RThigh"}));
  // A little roll frees them.
  setJoint(scene, *data, "laj2", 12);
  setJoint(scene, *data, "raj2", -12);
  const auto freed = touching(scene, *data);
  EXPECT_FALSE(freed.contains({"robot0/LLowerArm", "robot0/LThigh"}));
  EXPECT_FALSE(freed.contains({"robot0/RLowerArm", "robot0/RThigh"}));
}

TEST(Scene, LegsOfOneRobotCollide) {
  const Scene scene = makeScene(1, {});
  const DataPtr data = makeData(scene);
  data->qpos[scene.robots[0].position + 2] = 2;
  setJoint(scene, *data, "llj2", -20);
  EXPECT_TRUE(touching(scene, *data).contains({"robot0/LFoot", "robot0/RFoot"}));
}

TEST(Scene, RobotsCollideWithEachOther) {
  const Scene scene = makeScene(2, {});
  const DataPtr data = makeData(scene);
  for (const RobotIndex& robot : scene.robots) data->qpos[robot.position + 2] = 2;
  data->qpos[scene.robots[1].position] = data->qpos[scene.robots[0].position] + 0.09;
  EXPECT_TRUE(touching(scene, *data).contains({"robot0/Torso", "robot1/Torso"}));
}

TEST(Scene, GoalPostsStandBesideTheGoalsOpening) {
  const Scene scene = makeScene(0, {});
  const DataPtr data = makeData(scene);
  const auto ballTouches = [&](double x, double y, double z) {
    data->qpos[scene.ball.position] = x;
    data->qpos[scene.ball.position + 1] = y;
    data->qpos[scene.ball.position + 2] = z;
    return !touching(scene, *data).empty();
  };
  for (const double x : {-9.02, 9.02}) {
    EXPECT_TRUE(ballTouches(x, 1.05, 0.4));
    EXPECT_TRUE(ballTouches(x, -1.05, 0.4));
    EXPECT_TRUE(ballTouches(x, 0, 0.8));
    EXPECT_FALSE(ballTouches(x, 1.05 - 0.043, 0.4));
    EXPECT_FALSE(ballTouches(x, 0, 0.8 - 0.043));
    EXPECT_FALSE(ballTouches(x, 0, 0.05));
  }
}

TEST(Scene, UnusableSettingsAreRefused) {
  EXPECT_THROW((void)makeScene(1, {.stepSeconds = -1}), std::invalid_argument);
}

}  // namespace
}  // namespace arena
