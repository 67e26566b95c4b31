#include "arena/senses/Perception.h"

#include <array>
#include <cmath>
#include <string_view>
#include <utility>

#include "arena/model/BodyTable.h"
#include "arena/senses/Landmarks.h"
#include "arena/senses/Text.h"

namespace arena {
namespace {

void appendNumbers(std::string& text, const Vec3& values) {
  for (const double value : values) {
    text += ' ';
    appendNumber(text, value);
  }
}

void appendTime(std::string& text, const Snapshot& shot) {
  text += "(time (now ";
  appendNumber(text, shot.now);
  text += "))";
}

void appendGameState(std::string& text, const Snapshot& shot, const Actor& self) {
  text += "(GS ";
  if (self.shirt) {
    text += "(unum " + std::to_string(self.shirt->number) + ") (team ";
    text += nameOf(self.shirt->side);
    text += ") ";
  }
  text += "(t ";
  appendNumber(text, shot.clock);
  text += ") (pm ";
  text += nameOf(shot.mode);
  text += "))";
}

void appendInertia(std::string& text, const RobotState& body) {
  text += "(GYR (n torso) (rt";
  appendNumbers(text, body.gyroDegPerSec);
  text += "))(ACC (n torso) (a";
  appendNumbers(text, body.accelerometer);
  text += "))";
}

void appendJoints(std::string& text, const RobotState& body) {
  for (std::size_t i = 0; i < kJointCount; ++i) {
    text += "(HJ (n ";
    text += kJoints[i].perceptor;
    text += ") (ax ";
    appendNumber(text, body.jointAngleDeg[i]);
    text += "))";
  }
}

void appendFoot(std::string& text, std::string_view name, const FootForce& foot) {
  if (!foot.touching) return;
  text += "(FRP (n ";
  text += name;
  text += ") (c";
  appendNumbers(text, foot.centre);
  text += ") (f";
  appendNumbers(text, foot.force);
  text += "))";
}

/// One player's camera in one cycle.
class Look {
 public:
  Look(const Frame& camera, const SenseSettings& settings, NoiseStream stream)
      : camera_(camera), noise_(settings.noise), stream_(stream) {}

  /// Appends " (NAME (pol d a e))" if POINT is in view.
  void append(std::string& text, std::string_view name, const Vec3& point) {
    Polar polar = polarIn(camera_, point);
    if (!inView(polar)) return;
    if (noise_) polar = withNoise(polar, *noise_, stream_);
    text += " (";
    text += name;
    text += " (pol";
    appendNumbers(text, {polar.distance, polar.horizontalDeg, polar.elevationDeg});
    text += "))";
  }

 private:
  const Frame& camera_;
  const std::optional<SightNoise>& noise_;
  NoiseStream stream_;
};

/// " (P (team Foo) (id 3) (head (pol d a e)) ...)", or nothing if no part of OTHER is in view.
/// Players take the first part for the whole body, so the head leads when it is seen.
std::string seenPlayer(Look& look, const Actor& other, std::string_view teamName) {
  const RobotState& body = other.body;
  const std::array<std::pair<std::string_view, Vec3>, 5> parts{{
      {"head", body.head},
      {"rlowerarm", body.rightLowerArm},
      {"llowerarm", body.leftLowerArm},
      {"rfoot", body.rightFootPosition},
      {"lfoot", body.leftFootPosition},
  }};
  std::string seen;
  for (const auto& [name, place] : parts) look.append(seen, name, place);
  if (seen.empty()) return {};
  return " (P (team " + std::string(teamName) + ") (id " + std::to_string(other.shirt->number) +
         ")" + seen + ")";
}

/// The name of OTHER's team for a viewer who plays for VIEWER's side. Two sides of one name are
/// told apart by "_away" behind the other one's; a viewer without a side counts as left.
std::string teamNameSeenBy(const Snapshot& shot, const Actor& viewer, const Actor& other) {
  const Side own = viewer.shirt ? viewer.shirt->side : Side::kLeft;
  const Side theirs = other.shirt->side;
  std::string name = shot.teamNames[static_cast<std::size_t>(theirs)];
  if (theirs != own && name == shot.teamNames[static_cast<std::size_t>(own)]) name += "_away";
  return name;
}

/// Keys a player's noise: by shirt where there is one, so that it doesn't hang on who joined first.
std::uint64_t noiseKey(const Actor& actor) {
  if (!actor.shirt) return 1000U + static_cast<std::uint64_t>(actor.slot);
  return static_cast<std::uint64_t>(actor.shirt->side) * 100U +
         static_cast<std::uint64_t>(actor.shirt->number);
}

void appendSight(std::string& text, const Snapshot& shot, std::size_t viewer,
                 const SenseSettings& settings) {
  const Actor& self = shot.actors[viewer];
  Look look(self.body.camera, settings,
            NoiseStream(settings.seed, noiseKey(self), static_cast<std::uint64_t>(shot.cycle)));

  text += "(See";
  for (const Landmark& landmark : kLandmarks) look.append(text, landmark.name, landmark.position);
  look.append(text, "B", shot.ball.position);
  for (std::size_t i = 0; i < shot.actors.size(); ++i) {
    const Actor& other = shot.actors[i];
    if (i == viewer || !other.shirt) continue;
    const std::string player = seenPlayer(look, other, teamNameSeenBy(shot, self, other));
    if (text.size() + player.size() + 1 <= kMaxMessageBytes) text += player;
  }
  text += ')';
}

void appendHearing(std::string& text, const Snapshot& shot, std::size_t viewer) {
  const RobotState& own = shot.actors[viewer].body;
  for (const Utterance& utterance : shot.said) {
    std::string heard = "(hear ";
    appendNumber(heard, shot.now);
    heard += ' ';
    if (utterance.speaker == viewer) {
      heard += "self";
    } else {
      const Polar voice = polarIn(own.camera, shot.actors[utterance.speaker].body.head);
      if (voice.distance > kEarshot) continue;
      appendNumber(heard, voice.horizontalDeg);
    }
    heard += ' ' + utterance.text + ')';
    if (text.size() + heard.size() <= kMaxMessageBytes) text += heard;
  }
}

}  // namespace

std::string perceive(const Snapshot& shot, std::size_t viewer, const SenseSettings& settings) {
  const Actor& self = shot.actors.at(viewer);
  std::string text;
  text.reserve(4096);
  appendTime(text, shot);
  appendGameState(text, shot, self);
  appendInertia(text, self.body);
  appendJoints(text, self.body);
  appendFoot(text, "lf", self.body.leftFoot);
  appendFoot(text, "rf", self.body.rightFoot);
  if (shot.cycle % kCyclesPerLook == 0) appendSight(text, shot, viewer, settings);
  appendHearing(text, shot, viewer);
  return text;
}

}  // namespace arena
