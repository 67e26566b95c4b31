#include "arena/world/World.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <numbers>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "arena/model/FieldTable.h"
#include "arena/world/Scene.h"
#include "arena/world/Sensors.h"
#include "arena/world/Servo.h"

namespace arena {
namespace {

constexpr double radians(double degrees) {
  return degrees * (std::numbers::pi / 180.0);
}

/// What a robot remembers besides the engine's state.
struct Robot {
  Servos servos{};
  Accelerometer accelerometer;
  FootForce leftFoot;
  FootForce rightFoot;
  bool touchedBall = false;
};

template <typename Numbers>
void requireFinite(const Numbers& numbers, const char* what) {
  for (const double number : numbers) {
    if (!std::isfinite(number)) {
      throw std::invalid_argument(std::string("world: ") + what + " must be finite");
    }
  }
}

int stepsPerCycle(double stepSeconds) {
  const double steps = kCycleSeconds / stepSeconds;
  const double whole = std::round(steps);
  if (!(whole >= 1) || std::abs(steps - whole) > 1e-6) {
    throw std::invalid_argument("world: the step must divide the cycle");
  }
  return static_cast<int>(whole);
}

Frame standing(const Pose& pose) {
  const double heading = radians(pose.headingDeg);
  const double c = std::cos(heading);
  const double s = std::sin(heading);
  // Forward, the second axis, points along the heading; right, the first, a quarter turn clockwise.
  return {{pose.x, pose.y, kStandingHeight}, {s, c, 0, -c, s, 0, 0, 0, 1}};
}

}  // namespace

struct World::Physics {
  explicit Physics(const WorldSettings& worldSettings)
      : settings(worldSettings), steps(stepsPerCycle(worldSettings.stepSeconds)) {
    if (!std::isfinite(settings.servoSpeedFactor) || settings.servoSpeedFactor <= 0) {
      throw std::invalid_argument("world: servo speed factor must be above zero");
    }
    scene = &sceneFor(0);
    data = makeData(*scene);
    refresh();
  }

  [[nodiscard]] Robot& at(int slot) {
    if (!has(slot)) throw std::invalid_argument("world: no robot in slot " + std::to_string(slot));
    return *robots[static_cast<std::size_t>(slot)];
  }
  [[nodiscard]] bool has(int slot) const {
    return slot >= 0 && slot < kMaxRobots && robots[static_cast<std::size_t>(slot)].has_value();
  }
  /// Where the robot in SLOT lies in the model: robots stand there in the order of their slots.
  [[nodiscard]] const RobotIndex& indexOf(int slot) const {
    return scene->robots[static_cast<std::size_t>(ordinalOf(slot))];
  }
  [[nodiscard]] int ordinalOf(int slot) const {
    return static_cast<int>(std::count_if(robots.begin(), robots.begin() + slot,
                                          [](const auto& robot) { return robot.has_value(); }));
  }

  const Scene& sceneFor(int count) {
    std::unique_ptr<const Scene>& slot = scenes[static_cast<std::size_t>(count)];
    if (!slot) {
      slot = std::make_unique<const Scene>(makeScene(
          count, {settings.stepSeconds, settings.motorTorqueLimit, settings.groundFriction,
                  settings.contactTimeConstant, settings.massFactor}));
    }
    return *slot;
  }

  void prepare(int most) {
    for (int count = 0; count <= most; ++count) (void)sceneFor(count);
    // A state of twelve robots is 50 MB, and two are there while one replaces the other. A process
    // that keeps what it has freed has the pages from here on; one more is for gaps between them.
    std::array<DataPtr, 3> reserve;
    for (DataPtr& one : reserve) one = makeData(sceneFor(most));
  }

  /// Takes CHANGED as the robots on the field; whoever was there before keeps moving as it was.
  void replaceRobots(std::array<std::optional<Robot>, kMaxRobots> changed) {
    const auto count = std::count_if(changed.begin(), changed.end(),
                                     [](const auto& robot) { return robot.has_value(); });
    const Scene& nextScene = sceneFor(static_cast<int>(count));
    DataPtr next = makeData(nextScene);
    next->time = data->time;
    copyMotion(scene->ball.position, scene->ball.velocity, *next, nextScene.ball.position,
               nextScene.ball.velocity, 0);
    std::size_t to = 0;
    for (int slot = 0; slot < kMaxRobots; ++slot) {
      if (!changed[static_cast<std::size_t>(slot)]) continue;
      if (has(slot)) {
        const RobotIndex& from = indexOf(slot);
        const RobotIndex& into = nextScene.robots[to];
        copyMotion(from.position, from.velocity, *next, into.position, into.velocity, kJointCount);
      }
      ++to;
    }
    robots = std::move(changed);
    scene = &nextScene;
    data = std::move(next);
    refresh();
  }

  void copyMotion(int fromPosition, int fromVelocity, mjData& next, int toPosition, int toVelocity,
                  std::size_t joints) const {
    const std::size_t velocities = kFreeVelocities + joints;
    std::copy_n(data->qpos + fromPosition, kFreePositions + joints, next.qpos + toPosition);
    std::copy_n(data->qvel + fromVelocity, velocities, next.qvel + toVelocity);
    std::copy_n(data->qacc_warmstart + fromVelocity, velocities, next.qacc_warmstart + toVelocity);
  }

  void placeTorso(int slot, const Frame& torso) {
    const RobotIndex& index = indexOf(slot);
    std::copy_n(torso.position.begin(), 3, data->qpos + index.position);
    mju_mat2Quat(data->qpos + index.position + 3, torso.axes.data());
    std::fill_n(data->qvel + index.velocity, kFreeVelocities, 0.0);
    std::fill_n(data->qacc_warmstart + index.velocity, kFreeVelocities, 0.0);
    Robot& robot = at(slot);
    robot.accelerometer.reset(torso.axes);
    robot.leftFoot = robot.rightFoot = {};
  }

  void placeJoints(int slot, const std::array<double, kJointCount>& degrees) {
    const RobotIndex& index = indexOf(slot);
    Robot& robot = at(slot);
    for (std::size_t j = 0; j < kJointCount; ++j) {
      const double angle = radians(degrees[j]);
      data->qpos[index.jointPosition[j]] = angle;
      data->qvel[index.jointVelocity[j]] = 0;
      data->qacc_warmstart[index.jointVelocity[j]] = 0;
      robot.servos[j].held = angle;
    }
  }

  /// Brings the places of all bodies up to date with the positions.
  void refresh() { mj_kinematics(scene->model.get(), data.get()); }

  void step(std::span<Servos* const> servos) {
    mj_step1(scene->model.get(), data.get());
    driveJoints(*scene, *data, servos);
    mj_step2(scene->model.get(), data.get());
  }

  void noteBallTouches(std::span<Robot* const> present) const {
    for (int i = 0; i < data->ncon; ++i) {
      const int robot = robotAtBall(data->contact[i]);
      if (robot >= 0) present[static_cast<std::size_t>(robot)]->touchedBall = true;
    }
  }

  /// Which robot of the scene meets the ball in CONTACT; -1 for none.
  [[nodiscard]] int robotAtBall(const mjContact& contact) const {
    if (contact.geom1 != scene->ball.geom && contact.geom2 != scene->ball.geom) return -1;
    const int other = contact.geom1 == scene->ball.geom ? contact.geom2 : contact.geom1;
    return scene->robotOfGeom[static_cast<std::size_t>(other)];
  }

  /// The engine starts over by itself when its numbers run away; a match must not go on silently.
  void requireSound() const {
    for (const int kind : {mjWARN_BADQPOS, mjWARN_BADQVEL, mjWARN_BADQACC}) {
      if (data->warning[kind].number > 0) throw Diverged("the physics diverged");
    }
  }

  WorldSettings settings;
  int steps;
  /// By number of robots, made when first needed or by prepare().
  std::array<std::unique_ptr<const Scene>, kMaxRobots + 1> scenes;
  const Scene* scene = nullptr;  ///< one of scenes
  DataPtr data;
  std::array<std::optional<Robot>, kMaxRobots> robots;
};

World::World(const WorldSettings& settings) : physics_(std::make_unique<Physics>(settings)) {}
World::~World() = default;
World::World(World&&) noexcept = default;
World& World::operator=(World&&) noexcept = default;

void World::prepareModels(int most) {
  physics_->prepare(std::clamp(most, 0, kMaxRobots));
}

void World::addRobot(int slot, const Pose& pose) {
  addRobots({{slot, pose}});
}

void World::addRobots(const std::vector<Arrival>& arrivals) {
  if (arrivals.empty()) return;
  auto robots = physics_->robots;
  for (const auto& [slot, pose] : arrivals) {
    if (slot < 0 || slot >= kMaxRobots || robots[static_cast<std::size_t>(slot)]) {
      throw std::invalid_argument("world: slot " + std::to_string(slot) + " can't be filled");
    }
    requireFinite(std::array{pose.x, pose.y, pose.headingDeg}, "pose");
    robots[static_cast<std::size_t>(slot)].emplace();
  }
  physics_->replaceRobots(std::move(robots));
  for (const auto& [slot, pose] : arrivals) beam(slot, pose);
}

void World::removeRobot(int slot) {
  if (!hasRobot(slot)) return;
  auto robots = physics_->robots;
  robots[static_cast<std::size_t>(slot)].reset();
  physics_->replaceRobots(std::move(robots));
}

bool World::hasRobot(int slot) const {
  return physics_->has(slot);
}

void World::beam(int slot, const Pose& pose) {
  requireFinite(std::array{pose.x, pose.y, pose.headingDeg}, "pose");
  physics_->at(slot).servos = {};
  physics_->placeTorso(slot, standing(pose));
  physics_->placeJoints(slot, {});
  physics_->refresh();
}

void World::setJointSpeed(int slot, int joint, double radPerSec) {
  requireFinite(std::array{radPerSec}, "joint speed");
  Robot& robot = physics_->at(slot);
  if (joint < 0 || joint >= static_cast<int>(kJointCount)) {
    throw std::invalid_argument("world: no joint " + std::to_string(joint));
  }
  robot.servos[static_cast<std::size_t>(joint)].speed =
      physics_->settings.servoSpeedFactor * cutSpeed(radPerSec);
}

void World::setJointAngles(int slot, const std::array<double, kJointCount>& degrees) {
  requireFinite(degrees, "joint angle");
  (void)physics_->at(slot);
  physics_->placeJoints(slot, degrees);
  physics_->refresh();
}

void World::setTorso(int slot, const Frame& torso) {
  requireFinite(torso.position, "torso's place");
  requireFinite(torso.axes, "torso's attitude");
  (void)physics_->at(slot);
  physics_->placeTorso(slot, torso);
  physics_->refresh();
}

void World::shift(int slot, double dx, double dy) {
  requireFinite(std::array{dx, dy}, "shift");
  (void)physics_->at(slot);
  const int position = physics_->indexOf(slot).position;
  physics_->data->qpos[position] += dx;
  physics_->data->qpos[position + 1] += dy;
  physics_->refresh();
}

void World::push(int slot, const Vec3& impulse) {
  requireFinite(impulse, "push");
  (void)physics_->at(slot);
  mjtNum* const force = physics_->data->xfrc_applied + 6 * physics_->indexOf(slot).torso;
  for (std::size_t i = 0; i < impulse.size(); ++i) force[i] += impulse[i] / kCycleSeconds;
}

void World::setBall(const Vec3& position, const Vec3& velocity) {
  requireFinite(position, "ball's place");
  requireFinite(velocity, "ball's velocity");
  const BallIndex& ball = physics_->scene->ball;
  mjData& data = *physics_->data;
  std::copy(position.begin(), position.end(), data.qpos + ball.position);
  const std::array<double, 4> upright{1, 0, 0, 0};
  std::copy(upright.begin(), upright.end(), data.qpos + ball.position + 3);
  std::fill_n(data.qvel + ball.velocity, kFreeVelocities, 0.0);
  std::copy(velocity.begin(), velocity.end(), data.qvel + ball.velocity);
  std::fill_n(data.qacc_warmstart + ball.velocity, kFreeVelocities, 0.0);
  physics_->refresh();
}

void World::advance() {
  Physics& physics = *physics_;
  std::vector<Robot*> present;
  std::vector<Servos*> servos;
  for (std::optional<Robot>& robot : physics.robots) {
    if (!robot) continue;
    robot->touchedBall = false;
    present.push_back(&*robot);
    servos.push_back(&robot->servos);
  }
  for (int i = 0; i < physics.steps; ++i) {
    physics.step(servos);
    physics.noteBallTouches(present);
  }
  std::fill_n(physics.data->xfrc_applied, 6 * physics.scene->model->nbody, 0.0);
  physics.requireSound();
  const mjModel& model = *physics.scene->model;
  const mjData& data = *physics.data;
  // Contacts and forces are those of the last step's start, and so are the feet's places: they are
  // read together, before the places move on.
  for (std::size_t r = 0; r < present.size(); ++r) {
    const RobotIndex& index = physics.scene->robots[r];
    present[r]->leftFoot = footForce(model, data, index.leftFootGeom);
    present[r]->rightFoot = footForce(model, data, index.rightFootGeom);
  }
  physics.refresh();
  for (std::size_t r = 0; r < present.size(); ++r) {
    const RobotIndex& index = physics.scene->robots[r];
    const RobotState state = observe(data, index);
    present[r]->accelerometer.update(state.torso.axes, state.torsoVelocity, kCycleSeconds);
  }
}

RobotState World::robot(int slot) const {
  const Robot& robot = physics_->at(slot);
  RobotState state = observe(*physics_->data, physics_->indexOf(slot));
  state.accelerometer = robot.accelerometer.reading();
  state.leftFoot = robot.leftFoot;
  state.rightFoot = robot.rightFoot;
  return state;
}

BallState World::ball() const {
  return observeBall(*physics_->data, physics_->scene->ball);
}

bool World::touchedBall(int slot) const {
  return physics_->at(slot).touchedBall;
}

bool World::overlapsBall(int slot) const {
  (void)physics_->at(slot);
  mj_collision(physics_->scene->model.get(), physics_->data.get());
  const mjData& data = *physics_->data;
  return std::any_of(data.contact, data.contact + data.ncon, [&](const mjContact& contact) {
    return physics_->robotAtBall(contact) == physics_->ordinalOf(slot);
  });
}

double World::time() const {
  return physics_->data->time;
}

}  // namespace arena
