#pragma once

/// What one trial is asked to do: which world, how the robot starts, and the steps that the player
/// is made to take, one after the other. Plain values; judge, play and tune fill them in.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace workshop {

enum class Foot { kLeft, kRight };

/// How the robot is found when the trial begins.
enum class Start {
  kUpright,  ///< joints at zero, as after a beam
  kReady,    ///< standing in the initial pose, as one motion leaves it to the next
  kOnFront,  ///< tipping over forward out of the initial pose, and so on
  kOnBack,
  kOnLeft,
  kOnRight,
};

/// One thing that the player is made to do; made by the functions below.
struct Step {
  enum class Kind { kScript, kWalk, kKick, kPose, kDive, kGetUp, kStand };
  Kind kind = Kind::kStand;
  std::string name{};          ///< action, or pose file; of a walk: the action that ends it
  Foot foot = Foot::kRight;    ///< of a kick; the side of a dive
  int cycles = 0;              ///< how long to walk, or to stand
  std::optional<int> loops{};  ///< of a walk: loop scripts to play, instead of CYCLES
  bool leaveOpen = false;      ///< of a walk: the next step cuts it off
};

/// An action script by its action's name ("turnL15"), with the pose that the player plays first.
Step playScript(std::string action);
/// The walking chain, ended at the first end of a script from CYCLES on. The player ends a walk
/// when another action is due: by default that is ENDEDBY, which itself gets lost. An empty name
/// ends it by "walkend" alone, which hardly happens in play.
Step walkFor(int cycles, std::string endedBy = "turnL15");
/// The same, ended behind the start script and LOOPS loop scripts.
Step walkLoops(int loops, std::string endedBy = "turnL15");
/// Walks for CYCLES and leaves the script open for the next step, as a shot does.
Step walkInto(int cycles);
Step kickWith(Foot foot);
/// A pose script by its file's name, and REST cycles after its end.
Step playPose(std::string file, int rest);
Step diveTo(Foot side);
/// Waits for the player to notice its fall and to end its get-up.
Step getUp();
Step standFor(int cycles);

/// Where the ball's centre lies when the first step begins. Metres.
struct BallPlace {
  bool beforeToes = true;  ///< AHEAD counts from the foremost toe, else from the torso's origin
  double ahead = 0;
  double right = 0;  ///< from the torso's middle line
  // Perturbed worlds draw from so far either way.
  double aheadSpread = 0;
  double rightSpread = 0;
};

struct TrialJob {
  std::filesystem::path scripts{};
  Start start = Start::kReady;
  std::vector<Step> steps{};
  std::optional<BallPlace> ball{};      ///< empty: the ball lies far away
  std::optional<std::uint64_t> seed{};  ///< of the perturbed world; empty: the nominal one
  bool scanHead = true;                 ///< as a field player; the goalkeeper's head rests
  bool sight = false;                   ///< see the field too: dear, and no motion looks at it
  bool endAtFall = true;                ///< a fall that no step expects ends the trial
  int maxSequences = 2;                 ///< get-up sequences before giving up
  int settleCycles = 50;                ///< standing idle behind the last step
  bool keepSeries = false;              ///< hand back every cycle, not only the figures
};

}  // namespace workshop
