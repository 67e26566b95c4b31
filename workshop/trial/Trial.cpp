#include "workshop/trial/Trial.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <numbers>
#include <random>
#include <utility>

#include "arena/model/FieldTable.h"
#include "arena/model/PhysicsTable.h"
#include "arena/senses/Perception.h"
#include "arena/world/World.h"
#include "workshop/trial/Figures.h"
#include "workshop/trial/Perturbation.h"
#include "workshop/trial/Player.h"
#include "workshop/trial/Program.h"
#include "workshop/trial/StartPlace.h"

namespace workshop {
namespace {

constexpr int kSlot = 0;
constexpr int kFieldPlayer = 2;
constexpr int kGoalkeeper = 1;  ///< its head rests
/// The player's clock when a trial begins: past its introduction, and even.
constexpr int kFirstCycle = 200;
constexpr int kReadyRest = 40;  ///< [cycles] of standing in the initial pose
constexpr const char* kInitialPose = "initialstate.txt";
constexpr arena::Vec3 kFarAway{0, -5, arena::kBallRadius};
constexpr double kToeAhead = 0.08;  ///< [m] from the foot's middle

double degrees(double radians) {
  return radians * 180.0 / std::numbers::pi;
}

std::vector<Step> withStart(const TrialJob& job) {
  std::vector<Step> steps = job.steps;
  if (job.start == Start::kReady) steps.insert(steps.begin(), playPose(kInitialPose, kReadyRest));
  return steps;
}

class Trial {
 public:
  explicit Trial(const TrialJob& job)
      : job_(job),
        odd_(drawPerturbation(job.seed)),
        world_(odd_.world),
        player_(job.scripts, job.scanHead ? kFieldPlayer : kGoalkeeper),
        program_(withStart(job), job.maxSequences),
        firstStep_(job.start == Start::kReady ? 1 : 0),
        dice_(odd_.noiseSeed) {
    world_.setBall(kFarAway);
    placeRobot();
  }

  TrialResult run() {
    const std::clock_t began = std::clock();
    TrialResult result;
    bool fell = false;
    for (int settled = 0; settled < job_.settleCycles;) {
      cycle(result.series);
      if (program_.finished()) ++settled;
      const Sample& now = result.series.back();
      const bool down = isTippedOver(now) || now.bodyState != 0;
      if (down && !expectsFall()) {
        fell = true;
        if (job_.endAtFall) break;
      }
    }
    result.figures = measure(result.series, static_cast<int>(job_.steps.size()));
    result.figures.fell = fell;
    result.figures.sequences = program_.sequences();
    result.figures.simulatedSeconds = world_.time();
    result.figures.cpuSeconds =
        static_cast<double>(std::clock() - began) / static_cast<double>(CLOCKS_PER_SEC);
    if (!job_.keepSeries) result.series.clear();
    return result;
  }

 private:
  [[nodiscard]] bool expectsFall() const { return program_.expectsFall() || isLying(job_.start); }

  void placeRobot() {
    world_.addRobot(kSlot, kStartPose);
    std::array<double, arena::kJointCount> angles{};
    if (isLying(job_.start)) angles = jointsOfPose(player_.agent(), kInitialPose);
    if (job_.start != Start::kReady) {
      for (std::size_t j = 0; j < angles.size(); ++j) angles[j] += odd_.startOffsetDeg[j];
    }
    angles[arena::rowOfPerceptor("hj1")] = job_.scanHead ? player_.skipScan(odd_.headPhase) : 0.0;
    for (std::size_t j = 0; j < angles.size(); ++j) {
      angles[j] = std::clamp(angles[j], arena::kJoints[j].lowDeg, arena::kJoints[j].highDeg);
    }
    player_.setClock(kFirstCycle + odd_.clockOffset);
    world_.setJointAngles(kSlot, angles);
    if (isLying(job_.start)) world_.setTorso(kSlot, tippingOver(job_.start, odd_.tipDeg));
  }

  void cycle(std::vector<Sample>& series) {
    const bool mayDecide = player_.cycle(message());
    program_.afterCycle(player_.agent(), mayDecide);
    if (!begun_ && program_.current() >= firstStep_) begin();
    act();
    if (age_ == pushAt_) push();
    world_.advance();
    ++age_;
    series.push_back(sample(series.empty() ? nullptr : &series.back()));
  }

  /// The motion itself begins: what came before only brought the robot into its pose. The ball is
  /// put there, and the push is to come while the motion runs.
  void begin() {
    begun_ = true;
    if (job_.start == Start::kReady) disturbPose();
    if (job_.ball) placeBall(*job_.ball);
    if (odd_.pushImpulse > 0) {
      pushAt_ = age_ + static_cast<int>(odd_.pushMoment * (program_.expectedCycles() - age_));
    }
  }

  /// The initial pose drives every joint to its place exactly, so offsets from before it would be
  /// gone by now. The head keeps to its scan.
  void disturbPose() {
    std::array<double, arena::kJointCount> angles = world_.robot(kSlot).jointAngleDeg;
    for (std::size_t j = 0; j < angles.size(); ++j) {
      const arena::JointRow& joint = arena::kJoints[j];
      if (joint.perceptor == "hj1" || joint.perceptor == "hj2") continue;
      angles[j] = std::clamp(angles[j] + odd_.startOffsetDeg[j], joint.lowDeg, joint.highDeg);
    }
    world_.setJointAngles(kSlot, angles);
  }

  std::string message() {
    arena::Snapshot shot;
    // Sight comes in every third cycle; one that three doesn't divide has none.
    shot.cycle = job_.sight ? age_ + 1 : 1;
    shot.now = (age_ + 1) * arena::kCycleSeconds;
    shot.clock = shot.now;
    shot.mode = arena::PlayMode::kPlayOn;
    shot.teamNames = {"Workshop", ""};
    shot.ball = world_.ball();
    arena::Actor self{world_.robot(kSlot),
                      arena::Shirt{arena::Side::kLeft, job_.scanHead ? kFieldPlayer : kGoalkeeper},
                      kSlot};
    if (odd_.readingNoiseDeg > 0) {
      std::normal_distribution<double> noise(0, odd_.readingNoiseDeg);
      for (double& angle : self.body.jointAngleDeg) angle += noise(dice_);
    }
    shot.actors.push_back(self);
    return arena::perceive(shot, 0, senses_);
  }

  /// Lets the player's commands act, or come together with the next cycle's.
  void act() {
    const arena::Commands sent = player_.takeCommands();
    for (std::size_t j = 0; j < arena::kJointCount; ++j) {
      if (sent.jointSpeeds[j]) waiting_[j] = sent.jointSpeeds[j];
    }
    const bool late = std::uniform_real_distribution<double>(0, 1)(dice_) < odd_.lateShare;
    if (late && !wasLate_) {
      wasLate_ = true;
      return;
    }
    wasLate_ = false;
    for (std::size_t j = 0; j < arena::kJointCount; ++j) {
      if (!waiting_[j]) continue;
      world_.setJointSpeed(kSlot, static_cast<int>(j), *waiting_[j]);
      speeds_[j] = std::clamp(*waiting_[j], -arena::kMaxJointSpeed, arena::kMaxJointSpeed);
      waiting_[j].reset();
    }
  }

  void push() {
    const double direction = odd_.pushDirectionDeg * std::numbers::pi / 180.0;
    world_.push(
        kSlot, {odd_.pushImpulse * std::cos(direction), odd_.pushImpulse * std::sin(direction), 0});
  }

  void placeBall(const BallPlace& ball) {
    const arena::RobotState robot = world_.robot(kSlot);
    const double heading = headingOf(robot.torso);
    const auto ahead = [&](const arena::Vec3& point) {
      return (point[0] - robot.torso.position[0]) * std::cos(heading) +
             (point[1] - robot.torso.position[1]) * std::sin(heading);
    };
    const double toes =
        std::max(ahead(robot.leftFootPosition), ahead(robot.rightFootPosition)) + kToeAhead;
    const double forward =
        ball.ahead + odd_.ballShiftAhead * ball.aheadSpread + (ball.beforeToes ? toes : 0.0);
    const double right = ball.right + odd_.ballShiftRight * ball.rightSpread;
    world_.setBall(
        {robot.torso.position[0] + forward * std::cos(heading) + right * std::sin(heading),
         robot.torso.position[1] + forward * std::sin(heading) - right * std::cos(heading),
         arena::kBallRadius});
  }

  Sample sample(const Sample* last) {
    const arena::RobotState robot = world_.robot(kSlot);
    const arena::BallState ball = world_.ball();
    Sample now;
    now.time = world_.time();
    now.torso = robot.torso.position;
    const double heading = degrees(headingOf(robot.torso));
    now.headingDeg = last != nullptr
                         ? last->headingDeg + std::remainder(heading - last->headingDeg, 360.0)
                         : heading;
    now.tiltDeg = degrees(std::acos(std::clamp(robot.torso.axes[8], -1.0, 1.0)));
    now.ball = ball.position;
    now.ballVelocity = ball.velocity;
    now.ballTouched = world_.touchedBall(kSlot);
    const double lineY = kStartPose.y;  // the start looks along x
    for (const arena::Vec3& part : {robot.head, robot.leftLowerArm, robot.rightLowerArm,
                                    robot.leftFootPosition, robot.rightFootPosition}) {
      now.reachLeft = std::max(now.reachLeft, part[1] - lineY);
      now.reachRight = std::max(now.reachRight, lineY - part[1]);
    }
    for (std::size_t j = 0; j < arena::kJointCount; ++j) {
      const auto from =
          last != nullptr ? static_cast<double>(last->angleDeg[j]) : robot.jointAngleDeg[j];
      now.askedDeg[j] = static_cast<float>(from + degrees(speeds_[j]) * arena::kCycleSeconds);
      now.angleDeg[j] = static_cast<float>(robot.jointAngleDeg[j]);
    }
    now.step = program_.current() - firstStep_;
    now.bodyState = player_.agent().bodyState;
    now.walking = program_.walking();
    return now;
  }

  const TrialJob& job_;
  Perturbation odd_;
  arena::World world_;
  Player player_;
  Program program_;
  int firstStep_;  ///< steps that only bring the robot into its start
  std::mt19937_64 dice_;
  arena::SenseSettings senses_{};
  int age_ = 0;  ///< [cycles]
  int pushAt_ = -1;
  bool wasLate_ = false;
  bool begun_ = false;
  std::array<std::optional<double>, arena::kJointCount> waiting_{};  ///< [rad/s]
  std::array<double, arena::kJointCount> speeds_{};                  ///< [rad/s] in force
};

}  // namespace

TrialResult runTrialHere(const TrialJob& job) {
  return Trial(job).run();
}

}  // namespace workshop
