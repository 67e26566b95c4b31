#pragma once

/// The simulation: up to twelve robots and a ball on the field, advanced one cycle of 0.02 s at a
/// time. No sockets, no text, no rules, no noise. Several worlds may live in one process.
///
/// One cycle: commands set since the last advance() act together from its first physics step; the
/// states read afterwards are those at the end of its last step.

#include <memory>
#include <stdexcept>
#include <vector>

#include "arena/world/State.h"

namespace arena {

inline constexpr int kMaxRobots = 12;
inline constexpr double kCycleSeconds = 0.02;

/// Physics that a caller may vary; the defaults are the nominal world.
struct WorldSettings {
  double stepSeconds = 0.004;         ///< [s] must divide the cycle: 0.002, 0.004, 0.005 ...
  double motorTorqueLimit = 20.0;     ///< [N m]
  double groundFriction = 1.0;        ///< sliding friction coefficient
  double contactTimeConstant = 0.02;  ///< [s]
  double massFactor = 1.0;            ///< on every link
  double servoSpeedFactor = 1.0;      ///< on every commanded speed
};

/// The physics ran away: numbers that no world has.
struct Diverged : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class World {
 public:
  /// The ball lies at the centre, no robot is there. Throws std::invalid_argument for settings that
  /// are not finite and above zero, or a step that does not divide the cycle.
  explicit World(const WorldSettings& settings = {});
  ~World();
  World(World&&) noexcept;
  World& operator=(World&&) noexcept;
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  /// Compiles the models for up to MOST robots (12 at the most) and reserves the memory that
  /// changing between them takes; with twelve that is 0.2 s of work. Otherwise it happens when a
  /// robot comes or goes, and takes longer than a cycle. Who has no deadlines can do without.
  void prepareModels(int most);

  // Everything below that names a SLOT throws std::invalid_argument when no robot is there, unless
  // it says otherwise, and for numbers that are not finite.

  /// Puts a robot on the field in a free SLOT (0 to 11); the others go on undisturbed.
  /// Throws std::invalid_argument for a slot that is taken or out of range.
  void addRobot(int slot, const Pose& pose);
  /// Several at once, for the price of one; all or none.
  void addRobots(const std::vector<Arrival>& arrivals);
  /// Takes a robot off the field; a free slot is left alone.
  void removeRobot(int slot);
  [[nodiscard]] bool hasRobot(int slot) const;

  /// Moves a robot: upright, joints at zero, at rest, servo speeds zero.
  void beam(int slot, const Pose& pose);
  /// The servo of joint JOINT (row of kJoints) keeps SPEED until told otherwise; cut to 7 rad/s
  /// either way, in the server's sign convention. A non-finite speed is refused with
  /// std::invalid_argument.
  void setJointSpeed(int slot, int joint, double radPerSec);
  /// Sets joint angles at once, without motion (for tests and for start poses). Degrees.
  void setJointAngles(int slot, const std::array<double, kJointCount>& degrees);
  /// Puts the torso at a place and attitude, at rest (for tests: lying on the back, say).
  void setTorso(int slot, const Frame& torso);
  /// Moves a robot along the ground as it is: posture, motion and servo speeds go on.
  void shift(int slot, double dx, double dy);
  /// Pushes the torso, at its centre of mass: an IMPULSE (N s, field frame) spread evenly over the
  /// next cycle. Several pushes add up; what is on the way is lost when a robot comes or goes.
  void push(int slot, const Vec3& impulse);
  /// Puts the ball somewhere with a velocity, not spinning.
  void setBall(const Vec3& position, const Vec3& velocity = {});

  /// One cycle of 0.02 s. Throws Diverged, and the world is of no use then.
  void advance();

  [[nodiscard]] RobotState robot(int slot) const;
  [[nodiscard]] BallState ball() const;
  /// Did SLOT touch the ball during the last cycle?
  [[nodiscard]] bool touchedBall(int slot) const;
  /// Is the ball, as everything lies now, in or against the robot in SLOT?
  [[nodiscard]] bool overlapsBall(int slot) const;
  /// [s] simulated since construction.
  [[nodiscard]] double time() const;

 private:
  struct Physics;
  std::unique_ptr<Physics> physics_;
};

}  // namespace arena
