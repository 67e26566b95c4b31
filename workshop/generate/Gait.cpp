#include "workshop/generate/Gait.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>

#include "workshop/generate/Algebra3.h"

namespace workshop {
namespace {

constexpr double kPi = std::numbers::pi;
/// Sections per stride in which the torso's way is summed up.
constexpr int kSections = 200;

double smooth(double u) {
  const double x = std::clamp(u, 0.0, 1.0);
  return x * x * (3 - 2 * x);
}

/// A place and heading on the ground.
struct Spot {
  double right = 0, forward = 0, yawDeg = 0;
};

/// SPOT as seen from BASE.
Spot seenFrom(const Spot& base, const Spot& spot) {
  const double c = std::cos(base.yawDeg * kRadPerDeg);
  const double s = std::sin(base.yawDeg * kRadPerDeg);
  const double dx = spot.right - base.right;
  const double dy = spot.forward - base.forward;
  return {c * dx + s * dy, -s * dx + c * dy, spot.yawDeg - base.yawDeg};
}

Spot placedOn(const Spot& base, const Spot& local) {
  const double c = std::cos(base.yawDeg * kRadPerDeg);
  const double s = std::sin(base.yawDeg * kRadPerDeg);
  return {base.right + c * local.right - s * local.forward,
          base.forward + s * local.right + c * local.forward, base.yawDeg + local.yawDeg};
}

Spot between(const Spot& a, const Spot& b, double share) {
  return {a.right + share * (b.right - a.right), a.forward + share * (b.forward - a.forward),
          a.yawDeg + share * (b.yawDeg - a.yawDeg)};
}

class Walker {
 public:
  Walker(const Gait& gait, const Course& course, const Stance& standing, const Arms& arms)
      : gait_(gait), course_(course), standing_(standing), arms_(arms) {
    way_.push_back({});
    for (int i = 0; i < course.strides * kSections; ++i) {
      const double rate = paced((i + 0.5) / kSections) / kSections;
      way_.push_back(placedOn(way_.back(), {-course.pace.left * rate, course.pace.forward * rate,
                                            course.pace.turnDeg * rate}));
    }
  }

  [[nodiscard]] Posture at(double stride) const {
    const double grownNow = grown(stride);
    Stance stance = standing_;
    stance.hipHeight += grownNow * (gait_.stance.hipHeight - standing_.hipHeight);
    stance.leanDeg += grownNow * (gait_.stance.leanDeg - standing_.leanDeg);
    stance.ankleForward += grownNow * (gait_.stance.ankleForward - standing_.ankleForward);
    const double swayed =
        grownNow * gait_.sway * std::cos(2 * kPi * (stride - gait_.swingCentre + gait_.swayLead));

    Posture posture{};
    Arms arms = arms_;
    arms.pitchDeg += paced(stride) * (gait_.armPitchDeg - arms_.pitchDeg);
    setArms(posture, arms);
    for (const Leg leg : {Leg::kLeft, Leg::kRight}) {
      Footing footing = footingOf(leg, stride);
      footing.right -= swayed;
      footing.forward += stance.ankleForward;
      LegAngles angles = legOver(leg, footing, stance);
      angles[1] += grownNow * gait_.rollDeg;
      angles[5] -= grownNow * gait_.rollDeg;
      setLeg(posture, leg, angles);
    }
    const double swing =
        grownNow * gait_.armSwingDeg * std::cos(2 * kPi * (stride - gait_.swingCentre));
    posture[rowOfScriptJoint("laj1")] -= swing;
    posture[rowOfScriptJoint("raj1")] += swing;
    return posture;
  }

 private:
  /// How much of the full pace there is: 0 at both ends of the course.
  [[nodiscard]] double paced(double stride) const {
    return std::min(smooth(stride / gait_.rampIn),
                    smooth((course_.strides - stride) / gait_.rampOut));
  }
  /// The same of the stepping in place. It grows faster: rocking from foot to foot is steady only
  /// at full sway.
  [[nodiscard]] double grown(double stride) const {
    return std::min(smooth(stride / gait_.swayIn),
                    smooth((course_.strides - stride) / gait_.swayOut));
  }

  [[nodiscard]] Spot torso(double stride) const {
    const double section = std::clamp(stride, 0.0, 1.0 * course_.strides) * kSections;
    const auto before = std::min(static_cast<std::size_t>(section), way_.size() - 2);
    return between(way_[before], way_[before + 1], section - static_cast<double>(before));
  }

  /// Where LEG stands after the swing whose middle is at CENTRE: chosen by where the torso will be
  /// at some moment of the stance that follows.
  [[nodiscard]] Spot foothold(Leg leg, double centre) const {
    const double side = leg == Leg::kLeft ? -1.0 : 1.0;
    const double stance = 1 - gait_.swingShare;
    const double landed = centre + gait_.swingShare / 2;
    const double neutral =
        standing_.halfSpacing + grown(centre) * (gait_.stance.halfSpacing - standing_.halfSpacing);
    const bool leadsAside = side * course_.pace.left < 0;
    const bool leadsTurn = side * course_.pace.turnDeg < 0;
    const auto moment = [&](bool leads) {
      return landed + stance * (leads ? gait_.outward : 1 - gait_.outward);
    };
    Spot base = torso(landed + stance * gait_.landing);
    const Spot aside = torso(moment(leadsAside));
    if (course_.pace.left != 0) base.right = aside.right;
    base.yawDeg = torso(moment(leadsTurn)).yawDeg;
    return placedOn(base, {side * neutral, 0, 0});
  }

  [[nodiscard]] Spot standingSpot(Leg leg, double stride) const {
    const double side = leg == Leg::kLeft ? -1.0 : 1.0;
    return placedOn(torso(stride), {side * standing_.halfSpacing, 0, 0});
  }

  [[nodiscard]] Footing footingOf(Leg leg, double stride) const {
    const double first = gait_.swingCentre + (leg == Leg::kLeft ? 0.0 : 0.5);
    // The swing that is under way or the last one: it began at its centre less half its duration.
    const double since = stride - first + gait_.swingShare / 2;
    const auto swing = static_cast<int>(std::floor(since));
    Spot spot;
    Footing footing;
    const double centre = first + swing;
    if (!isSwing(centre)) {
      spot = swing < 0 ? standingSpot(leg, 0) : lastHold(leg, centre);
    } else {
      const Spot from = isSwing(centre - 1) ? foothold(leg, centre - 1) : standingSpot(leg, 0);
      const double share = std::min((since - swing) / gait_.swingShare, 1.0);
      spot = between(from, isSwing(centre + 1) ? foothold(leg, centre) : lastHold(leg, centre + 1),
                     share - std::sin(2 * kPi * share) / (2 * kPi));
      const double bump = std::pow(std::sin(kPi * share), 2) * grown(centre);
      footing.up = gait_.lift * bump;
      footing.toeUpDeg = gait_.toeUpDeg * bump;
    }
    const Spot seen = seenFrom(torso(stride), spot);
    footing.right = seen.right;
    footing.forward = seen.forward;
    footing.yawDeg = seen.yawDeg;
    return footing;
  }

  /// A swing must fit between the course's ends.
  [[nodiscard]] bool isSwing(double centre) const {
    return centre - gait_.swingShare / 2 >= -1e-9 &&
           centre + gait_.swingShare / 2 <= course_.strides + 1e-9;
  }
  [[nodiscard]] Spot lastHold(Leg leg, double /*centre*/) const {
    return standingSpot(leg, course_.strides);
  }

  const Gait& gait_;
  const Course& course_;
  const Stance& standing_;
  const Arms& arms_;
  std::vector<Spot> way_;
};

void requireSteppable(const Gait& gait, const Course& course) {
  if (gait.blocks < 4 || course.strides < 1) {
    throw std::invalid_argument("gait: a stride needs at least 4 blocks, a course one stride");
  }
  if (!(gait.swingShare > 0.05 && gait.swingShare <= 0.5)) {
    throw std::invalid_argument("gait: a swing lasts 0.05 to 0.5 of a stride");
  }
  if (!(gait.rampIn > 0 && gait.rampOut > 0 && gait.swayIn > 0 && gait.swayOut > 0)) {
    throw std::invalid_argument("gait: ramps must last longer than nothing");
  }
}

}  // namespace

std::vector<Posture> gaitPath(const Gait& gait, const Course& course, const Stance& standing,
                              const Arms& arms) {
  requireSteppable(gait, course);
  const Walker walker(gait, course, standing, arms);
  std::vector<Posture> path;
  for (int block = 0; block <= course.strides * gait.blocks; ++block) {
    const int whole = block / gait.blocks;
    const double u = static_cast<double>(block % gait.blocks) / gait.blocks;
    path.push_back(walker.at(whole + u - gait.slowing * std::sin(2 * kPi * u) / (2 * kPi)));
  }
  return path;
}

}  // namespace workshop
