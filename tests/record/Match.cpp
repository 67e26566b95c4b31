#include "tests/record/Match.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "tests/record/Angles.h"

namespace {

// The quiet beginning: no disorder before the first decisions.
constexpr int kQuiet = 130;
constexpr double kCameraHeight = 0.54;  // [m] of a standing robot
constexpr int kCycle = 2;               // [0.01 s]

// Where the players take themselves to be after the beam, with the own goal at x = -9.
constexpr std::array<std::array<double, 2>, 6> kHomes{
    {{-8.6, 0}, {-6.15, -0.5}, {-6.15, 0.5}, {-3, 3}, {1.5, 0.15}, {1.5, -0.15}}};

struct Landmark {
  const char* left;   ///< its name when the team comes from the left
  const char* right;  ///< and from the right
  double x, y, z;
};
constexpr std::array<Landmark, 8> kLandmarks{{{"F1L", "F2R", -9, 6, 0},
                                              {"F2L", "F1R", -9, -6, 0},
                                              {"G1L", "G2R", -9, 1.05, 0.8},
                                              {"G2L", "G1R", -9, -1.05, 0.8},
                                              {"F1R", "F2L", 9, 6, 0},
                                              {"F2R", "F1L", 9, -6, 0},
                                              {"G1R", "G2L", 9, 1.05, 0.8},
                                              {"G2R", "G1L", 9, -1.05, 0.8}}};

constexpr std::array kJoints{"hj1",  "hj2",  "raj1", "raj2", "raj3", "raj4", "laj1", "laj2",
                             "laj3", "laj4", "rlj1", "rlj2", "rlj3", "rlj4", "rlj5", "rlj6",
                             "llj1", "llj2", "llj3", "llj4", "llj5", "llj6"};

/// What a server may say besides, and what none should.
constexpr std::array kOddities{
    "(hear 12.30 self |,3,1.00,2.00,4.00)",
    "(hear 12.30 -45.00 ~,9,1.5,-0.25)",
    "(hear 12.34 30.00 |,2,-6.00,0.10,0.20)",
    "(hear 12.34 -170.10 P,4,-3,3)",
    "(hear 12.36 self a b c)",
    "(time (now 1 2))",
    "(time (now nan))",
    "(time (step 0.02))",
    "(GS)",
    "(GS (bad) (team) (t 1 2))",
    "(GYR (rt 1 2 3))",
    "(GYR (n torso) (rt 1 2))",
    "(HJ (n nosuch) (ax 3))",
    "(HJ (n raj1))",
    "(HJ (n raj2) (ax nan) (rt 0.5))",
    "(HJ (n raj3) (ax x4))",
    "(FRP (n lf) (c 1 2 3))",
    "(FRP (n xf) (c 1 2 3) (f 4 5 6))",
    "(ACC)",
    "(ACC (n torso) (a 0.1))",
    "(Q (a b) 3)(G 1)()",
    "(See)",
    "(See (X (pol 1 2 3)) (L (pol 1 2 3) (pol 3 2 1)))",
    "(See (F9X (pol 4.00 3.00 2.00)))",
    "(See (P (team Others) (id 2)))",
    "(See (P (team Kolu-Otter) (id 5) (head (pol 4.00 10.00))))",
};

template <typename... Values>
[[nodiscard]] std::string Format(const char* form, Values... values) {
  std::array<char, 128> text{};
  std::snprintf(text.data(), text.size(), form, values...);
  return text.data();
}

/// Up and down between -HIGHEST and HIGHEST, STEP at a time.
[[nodiscard]] int Swing(int count, int step, int highest) {
  const int at = count * step % (4 * highest);
  return at <= 2 * highest ? at - highest : 3 * highest - at;
}

[[nodiscard]] double Pan(int messages) {
  return Swing(messages, 3, 110) * 0.5;
}

[[nodiscard]] double Tilt(int messages) {
  return Swing(messages, 1, 30) * 0.1;
}

[[nodiscard]] constexpr int SessionOf(int number, bool left) {
  return (left ? 0 : 6) + number - 1;
}

}  // namespace

Match::Match(int number, bool left)
    : number_(number),
      left_(left),
      dice_(static_cast<std::uint64_t>(20 + SessionOf(number, left))),
      episodes_(DrawUp(SessionOf(number, left), number, dice_)) {
  BeginEpisode();
}

void Match::BeginEpisode() {
  const auto& home = kHomes.at(static_cast<std::size_t>(number_ - 1));
  if (messages_ == 0 || episodes_[episode_].atStart) here_ = {home[0], home[1]};
  here_.x -= episodes_[episode_].carried;
}

/// A little to and fro; after having been carried, slowly back home. Estimates follow a step
/// towards greater values by 0.02 m per sight only, so every way there is slow.
void Match::Wander() {
  const auto& home = kHomes.at(static_cast<std::size_t>(number_ - 1));
  here_.x += here_.x < home[0] - 0.4 ? 0.01 : dice_.Between(-3, 3) * 0.001;
  here_.x = std::min(here_.x, home[0] + 0.3);
  here_.y = std::clamp(here_.y + dice_.Between(-3, 3) * 0.001, home[1] - 0.3, home[1] + 0.3);
}

double Match::ToGoal() const {
  return Direction(-here_.y, 9 - here_.x);
}

double Match::Facing() const {
  const Episode& now = episodes_[episode_];
  const double turned = now.facingStep * inEpisode_;
  const double off =
      now.facing > 0 ? std::max(now.facing - turned, 0.0) : std::min(now.facing + turned, 0.0);
  return ToGoal() + off;
}

Match::Place Match::At(double distance, double bearing) const {
  const double direction = ToGoal() + bearing;
  return {here_.x + distance * Cosine(direction), here_.y + distance * Sine(direction)};
}

std::string Match::Polar(Place place, double height) const {
  const double x = place.x - here_.x;
  const double y = place.y - here_.y;
  const double up = height - kCameraHeight;
  const double along = std::sqrt(x * x + y * y);
  return Format("(pol %.2f %.2f %.2f)", std::sqrt(along * along + up * up),
                Normalised(Direction(y, x) - Facing() - Pan(messages_)), Direction(up, along));
}

std::string Match::GameState() const {
  const Episode& now = episodes_[episode_];
  return (messages_ < 100 ? Format("(GS (unum %d) (team %s)", number_, left_ ? "left" : "right")
                          : std::string("(GS")) +
         Format(" (t %.2f) (pm %s))", now.clock + inEpisode_ * 0.02, now.mode.c_str());
}

std::string Match::Sensors() const {
  const Episode& now = episodes_[episode_];
  std::string text =
      Format("(GYR (n torso) (rt %.2f 0.07 -0.46))(ACC (n torso) (a %s))",
             Swing(messages_, 1, 9) * 0.01, inEpisode_ < now.lying ? now.accel : "0.01 -0.02 9.81");
  for (int i = 0; i < static_cast<int>(kJoints.size()); ++i) {
    const double angle = i == 0   ? Pan(messages_)
                         : i == 1 ? Tilt(messages_)
                                  : Swing(messages_ + 17 * i, i + 2, 900) * 0.05;
    text += Format("(HJ (n %s) (ax %.2f))", kJoints.at(static_cast<std::size_t>(i)), angle);
  }
  return text + Format(
                    "(FRP (n lf) (c 0.01 0.02 -0.03) (f 0.12 -0.34 %.2f))"
                    "(FRP (n rf) (c -0.01 0.02 -0.03) (f 0.05 0.21 %.2f))",
                    22 + Swing(messages_, 7, 50) * 0.1, 22 - Swing(messages_, 7, 50) * 0.1);
}

std::string Match::Landmarks() const {
  // The one pair of each end serves for half of the matches, the other for the rest.
  const std::size_t odd = number_ % 2 == 0 ? 2 : 0;
  std::vector<std::size_t> shown;
  switch (episodes_[episode_].flags) {
    case Flags::OwnEnd:
      shown = {odd, odd + 1};
      break;
    case Flags::FarEnd:
      shown = {4 + odd, 5 + odd};
      break;
    case Flags::OneOfEach:
      shown = {0, 4};
      break;
    case Flags::Many:
      shown = {0, 1, 2, 4, 6};
      break;
    case Flags::None:
      break;
  }
  std::string text;
  for (const std::size_t i : shown) {
    const Landmark& mark = kLandmarks.at(i);
    text += std::string(" (") + (left_ ? mark.left : mark.right) + " " +
            Polar({mark.x, mark.y}, mark.z) + ")";
  }
  return text;
}

std::string Match::Sight() const {
  const Episode& now = episodes_[episode_];
  std::string text = "(See" + Landmarks();
  if (inEpisode_ < now.ballSeen) {
    const double distance =
        std::max(now.ball - now.ballStep * inEpisode_, std::min(now.ball, now.ballLeast));
    text += " (B " + Polar(At(distance, now.ballBearing), 0.042) + ")";
  }
  for (const Seen& seen : now.players) {
    text +=
        Format(" (P (team %s) (id %d) (head ", seen.mate ? "Kolu-Otters" : "Others", seen.number) +
        Polar(At(seen.distance, seen.bearing), 0.5) + ") (rfoot (pol 1.00 2.00 -3.00)))";
  }
  return text + " (L (pol 9.10 30.02 -3.30) (pol 9.21 -30.77 -3.31)))";
}

std::string Match::NextMessage() {
  ++messages_;
  const bool quiet = messages_ <= kQuiet;
  Wander();
  if (quiet || dice_.Below(60) != 0) hundredths_ += kCycle;
  std::string text = Format("(time (now %d.%02d))", hundredths_ / 100, hundredths_ % 100) +
                     GameState() + Sensors();
  if (messages_ % episodes_[episode_].sightEvery == 0) text += Sight();
  if (!quiet && dice_.Below(16) == 0) {
    text += kOddities.at(static_cast<std::size_t>(dice_.Below(static_cast<int>(kOddities.size()))));
  }
  if (!quiet && dice_.Below(120) == 0) text += "(HJ (n hj1";
  if (!quiet && dice_.Below(200) == 0) text.clear();

  if (++inEpisode_ == episodes_[episode_].length) {
    ++episode_;
    inEpisode_ = 0;
    if (!IsOver()) BeginEpisode();
  }
  return text;
}
