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

  /// Appends " (NAME (pol d a e))" if POINT is in view; false if not.
  bool append(std::string& text, std::string_view name, const Vec3& point) {
    std::optional<Polar> polar = seenIn(camera_, point);
    if (!polar) return false;
    if (noise_) polar = withNoise(*polar, *noise_, stream_);
    text += " (";
    text += name;
    text += " (pol";
    appendNumbers(text, {polar->distance, polar->horizontalDeg, polar->elevationDeg});
    text += "))";
    return true;
  }

 private:
  const Frame& camera_;
  const std::optional<SightNoise>& noise_;
  NoiseStream stream_;
};

/// Appends NAME and the parts of BODY that are in view, or nothing if none is, or if it would leave
/// no room for the end of the element. Players take the first part for the whole body, so the head
/// leads when it is seen.
void appendPlayer(std::string& text, Look& look, std::string_view name, const RobotState& body) {
  const std::array<std::pair<std::string_view, Vec3>, 5> parts{{
      {"head", body.head},
      {"rlowerarm", body.rightLowerArm},
      {"llowerarm", body.leftLowerArm},
      {"rfoot", body.rightFootPosition},
      {"lfoot", body.leftFootPosition},
  }};
  const std::size_t before = text.size();
  text += name;
  bool seen = false;
  for (const auto& [part, place] : parts) seen = look.append(text, part, place) || seen;
  text += ')';
  if (!seen || text.size() + 1 > kMaxMessageBytes) text.resize(before);
}

/// " (P (team Foo) (id 3)" for viewers of side VIEWER. Two sides of one name are told apart by
/// "_away" behind the other one's.
std::string beginOf(const Snapshot& shot, const Shirt& shirt, Side viewer) {
  const std::string& name = shot.teamNames[static_cast<std::size_t>(shirt.side)];
  const bool twin =
      shirt.side != viewer && name == shot.teamNames[static_cast<std::size_t>(viewer)];
  return " (P (team " + name + (twin ? "_away" : "") + ") (id " + std::to_string(shirt.number) +
         ")";
}

/// Keys a player's noise: by shirt where there is one, so that it doesn't hang on who joined first.
std::uint64_t noiseKey(const Actor& actor) {
  if (!actor.shirt) return 1000U + static_cast<std::uint64_t>(actor.slot);
  return static_cast<std::uint64_t>(actor.shirt->side) * 100U +
         static_cast<std::uint64_t>(actor.shirt->number);
}

}  // namespace

Perception::Perception(const Snapshot& shot, const SenseSettings& settings)
    : shot_(shot), settings_(settings), time_("(time (now "), game_("(t "), heard_("(hear ") {
  appendNumber(time_, shot.now);
  time_ += "))";
  appendNumber(game_, shot.clock);
  game_ += ") (pm ";
  game_ += nameOf(shot.mode);
  game_ += "))";
  appendNumber(heard_, shot.now);
  heard_ += ' ';
  if (shot.cycle % kCyclesPerLook != 0) return;
  for (const Actor& actor : shot.actors) {
    auto& [forLeft, forRight] = names_.emplace_back();
    if (!actor.shirt) continue;
    forLeft = beginOf(shot, *actor.shirt, Side::kLeft);
    forRight = beginOf(shot, *actor.shirt, Side::kRight);
  }
}

std::string Perception::messageTo(std::size_t viewer) const {
  const Actor& self = shot_.actors.at(viewer);
  std::string text;
  text.reserve(4096);
  text += time_;
  appendGameState(text, self);
  appendInertia(text, self.body);
  appendJoints(text, self.body);
  appendFoot(text, "lf", self.body.leftFoot);
  appendFoot(text, "rf", self.body.rightFoot);
  if (shot_.cycle % kCyclesPerLook == 0) appendSight(text, viewer);
  appendHearing(text, viewer);
  return text;
}

void Perception::appendGameState(std::string& text, const Actor& self) const {
  text += "(GS ";
  if (self.shirt) {
    text += "(unum " + std::to_string(self.shirt->number) + ") (team ";
    text += nameOf(self.shirt->side);
    text += ") ";
  }
  text += game_;
}

void Perception::appendSight(std::string& text, std::size_t viewer) const {
  const Actor& self = shot_.actors[viewer];
  // A viewer without a side counts as left.
  const Side side = self.shirt ? self.shirt->side : Side::kLeft;
  Look look(self.body.camera, settings_,
            NoiseStream(settings_.seed, noiseKey(self), static_cast<std::uint64_t>(shot_.cycle)));

  text += "(See";
  for (const Landmark& landmark : kLandmarks) look.append(text, landmark.name, landmark.position);
  look.append(text, "B", shot_.ball.position);
  for (std::size_t i = 0; i < shot_.actors.size(); ++i) {
    const Actor& other = shot_.actors[i];
    if (i == viewer || !other.shirt) continue;
    appendPlayer(text, look, names_[i][static_cast<std::size_t>(side)], other.body);
  }
  text += ')';
}

void Perception::appendHearing(std::string& text, std::size_t viewer) const {
  const RobotState& own = shot_.actors[viewer].body;
  for (const Utterance& utterance : shot_.said) {
    const std::size_t before = text.size();
    text += heard_;
    if (utterance.speaker == viewer) {
      text += "self";
    } else {
      const Polar voice = polarIn(own.camera, shot_.actors[utterance.speaker].body.head);
      if (voice.distance > kEarshot) {
        text.resize(before);
        continue;
      }
      appendNumber(text, voice.horizontalDeg);
    }
    text += ' ';
    text += utterance.text;
    text += ')';
    if (text.size() > kMaxMessageBytes) text.resize(before);
  }
}

std::string perceive(const Snapshot& shot, std::size_t viewer, const SenseSettings& settings) {
  return Perception(shot, settings).messageTo(viewer);
}

}  // namespace arena
