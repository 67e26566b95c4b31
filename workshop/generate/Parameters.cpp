#include "workshop/generate/Parameters.h"

#include <array>
#include <string_view>

namespace workshop {
namespace {

constexpr std::array kStanceNames{
    Named<Stance>{"hipHeight", &Stance::hipHeight},
    Named<Stance>{"leanDeg", &Stance::leanDeg},
    Named<Stance>{"halfSpacing", &Stance::halfSpacing},
    Named<Stance>{"ankleForward", &Stance::ankleForward},
};

constexpr std::array kArmNames{
    Named<Arms>{"pitchDeg", &Arms::pitchDeg},
    Named<Arms>{"rollDeg", &Arms::rollDeg},
    Named<Arms>{"yawDeg", &Arms::yawDeg},
    Named<Arms>{"bendDeg", &Arms::bendDeg},
};

constexpr std::array kGaitNames{
    Named<Gait>{"swingCentre", &Gait::swingCentre},
    Named<Gait>{"swingShare", &Gait::swingShare},
    Named<Gait>{"lift", &Gait::lift},
    Named<Gait>{"toeUpDeg", &Gait::toeUpDeg},
    Named<Gait>{"sway", &Gait::sway},
    Named<Gait>{"swayLead", &Gait::swayLead},
    Named<Gait>{"outward", &Gait::outward},
    Named<Gait>{"landing", &Gait::landing},
    Named<Gait>{"slowing", &Gait::slowing},
    Named<Gait>{"rampIn", &Gait::rampIn},
    Named<Gait>{"rampOut", &Gait::rampOut},
    Named<Gait>{"armSwingDeg", &Gait::armSwingDeg},
    Named<Gait>{"rollDeg", &Gait::rollDeg},
    Named<Gait>{"swayIn", &Gait::swayIn},
    Named<Gait>{"swayOut", &Gait::swayOut},
    Named<Gait>{"armPitchDeg", &Gait::armPitchDeg},
};

constexpr std::array kPaceNames{
    Named<Pace>{"forward", &Pace::forward},
    Named<Pace>{"left", &Pace::left},
    Named<Pace>{"turnDeg", &Pace::turnDeg},
};

/// Every file may say these besides.
constexpr std::array<std::string_view, 4> kCommonKeys{"kind", "objective", "tune", "tuned"};

void requireFileKeys(const Json& file, std::initializer_list<std::string_view> own,
                     const std::string& where) {
  std::vector<std::string_view> known(kCommonKeys.begin(), kCommonKeys.end());
  known.insert(known.end(), own);
  requireKeys(file, known, where);
}

Gait gaitFrom(const Json& file, const std::string& where) {
  const Json& object = objectIn(file, "gait", where);
  const std::string inside = where + "/gait";
  Gait gait = structFrom<Gait>(object, kGaitNames, {"blocks", "stance"}, inside);
  gait.blocks = wholeNumberIn(object, "blocks", inside);
  gait.stance =
      structFrom<Stance>(objectIn(object, "stance", inside), kStanceNames, {}, inside + "/stance");
  return gait;
}

Pace paceFrom(const Json& file, const std::string& where) {
  return structFrom<Pace>(objectIn(file, "pace", where), kPaceNames, {}, where + "/pace");
}

}  // namespace

StandingDescription standingFrom(const Json& file, const std::string& where) {
  requireFileKeys(file, {"stance", "arms", "seconds"}, where);
  StandingDescription standing;
  standing.stance =
      structFrom<Stance>(objectIn(file, "stance", where), kStanceNames, {}, where + "/stance");
  standing.arms = structFrom<Arms>(objectIn(file, "arms", where), kArmNames, {}, where + "/arms");
  standing.seconds = numberIn(file, "seconds", where);
  return standing;
}

WalkDescription walkFrom(const Json& file, const std::string& where) {
  requireFileKeys(file, {"gait", "pace", "startStrides", "endStrides"}, where);
  WalkDescription walk;
  walk.gait = gaitFrom(file, where);
  walk.pace = paceFrom(file, where);
  walk.startStrides = wholeNumberIn(file, "startStrides", where);
  walk.endStrides = wholeNumberIn(file, "endStrides", where);
  return walk;
}

StepsDescription stepsFrom(const Json& file, const std::string& where) {
  requireFileKeys(file, {"gait", "pace", "strides", "file", "mirror"}, where);
  StepsDescription steps;
  steps.gait = gaitFrom(file, where);
  steps.course.pace = paceFrom(file, where);
  steps.course.strides = wholeNumberIn(file, "strides", where);
  steps.file = textIn(file, "file", where);
  if (file.contains("mirror")) steps.mirror = textIn(file, "mirror", where);
  return steps;
}

}  // namespace workshop
