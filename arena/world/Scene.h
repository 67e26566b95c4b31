#pragma once

/// The constant side of a world: the compiled model for a given number of robots, and where in the
/// engine's arrays each robot and joint lies. Names resolve to indices once, here, and fail here.
/// A World makes one per number of robots that it has had on the field.

#include <mujoco/mujoco.h>

#include <array>
#include <memory>
#include <vector>

#include "arena/model/BodyTable.h"
#include "arena/model/Mjcf.h"

namespace arena {

struct ModelDeleter {
  void operator()(mjModel* model) const { mj_deleteModel(model); }
};
struct DataDeleter {
  void operator()(mjData* data) const { mj_deleteData(data); }
};
using ModelPtr = std::unique_ptr<mjModel, ModelDeleter>;
using DataPtr = std::unique_ptr<mjData, DataDeleter>;

inline constexpr int kFreePositions = 7;   ///< place and quaternion of a free body
inline constexpr int kFreeVelocities = 6;  ///< linear in the field frame, angular in its own

/// Where the ball lies in the engine's arrays.
struct BallIndex {
  int position = 0;  ///< first entry in qpos
  int velocity = 0;  ///< first entry in qvel
  int geom = 0;
};

/// Where one robot lies in the engine's arrays.
struct RobotIndex {
  int position = 0;  ///< first entry of the torso in qpos
  int velocity = 0;  ///< first entry of the torso in qvel
  std::array<int, kJointCount> jointPosition{};
  std::array<int, kJointCount> jointVelocity{};
  int torso = 0, head = 0, leftLowerArm = 0, rightLowerArm = 0, leftFoot = 0, rightFoot = 0;
  int leftFootGeom = 0, rightFootGeom = 0;
};

/// Whose joint an entry of qvel is; robot -1 for the free bodies.
struct DofOwner {
  int robot = -1;
  int joint = -1;
};

struct Scene {
  ModelPtr model;
  BallIndex ball;
  std::vector<RobotIndex> robots;
  std::vector<int> robotOfGeom;    ///< -1 for the field and the ball
  std::vector<DofOwner> dofOwner;  ///< by index into qvel
};

/// Throws std::invalid_argument for unusable settings, std::runtime_error when the engine refuses
/// the model.
Scene makeScene(int robots, const ModelSettings& settings);

/// A fresh state for SCENE. Throws std::bad_alloc.
DataPtr makeData(const Scene& scene);

}  // namespace arena
