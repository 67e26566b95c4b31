#include "workshop/trial/Figures.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>

#include "arena/world/World.h"

namespace workshop {
namespace {

constexpr double kUpTilt = 30;      ///< [deg]
constexpr double kFallenTilt = 60;  ///< [deg]
constexpr double kUpHeight = 0.25;  ///< [m] of the torso's origin, which stands at 0.38
constexpr std::size_t kStandingCycles = 25;
constexpr double kReachSeconds = 1.0;

double radians(double degrees) {
  return degrees * std::numbers::pi / 180.0;
}

double wrapped(double degrees) {
  return std::remainder(degrees, 360.0);
}

void measureWalk(std::span<const Sample> series, Figures& figures) {
  const Sample* first = nullptr;
  const Sample* last = nullptr;
  double way = 0;
  for (const Sample& sample : series) {
    if (!sample.walking) continue;
    if (last != nullptr) {
      const double heading = radians(sample.headingDeg);
      way += (sample.torso[0] - last->torso[0]) * std::cos(heading) +
             (sample.torso[1] - last->torso[1]) * std::sin(heading);
    } else {
      first = &sample;
    }
    last = &sample;
  }
  if (first == nullptr || last == first) return;
  figures.walkSeconds = last->time - first->time;
  figures.walkSpeed = way / figures.walkSeconds;
  figures.walkDriftDegPerSec = (last->headingDeg - first->headingDeg) / figures.walkSeconds;
}

void measureBall(std::span<const Sample> series, Figures& figures) {
  const Sample& start = series.front();
  bool touched = false;
  for (const Sample& sample : series) {
    touched = touched || sample.ballTouched;
    if (!touched || sample.ballTouched) continue;
    const double speed = std::hypot(sample.ballVelocity[0], sample.ballVelocity[1]);
    if (speed <= figures.ballSpeed) continue;
    figures.ballSpeed = speed;
    const double direction = std::atan2(sample.ballVelocity[1], sample.ballVelocity[0]);
    figures.ballDirectionDeg = wrapped(direction * 180.0 / std::numbers::pi - start.headingDeg);
  }
  if (touched) {
    figures.ballDistance =
        std::hypot(series.back().ball[0] - start.ball[0], series.back().ball[1] - start.ball[1]);
  }
}

}  // namespace

bool isUp(const Sample& sample) {
  return sample.tiltDeg < kUpTilt && sample.torso[2] > kUpHeight && sample.bodyState == 0;
}

bool isTippedOver(const Sample& sample) {
  return sample.tiltDeg > kFallenTilt;
}

Figures measure(std::span<const Sample> series, int steps) {
  const auto begin = std::find_if(series.begin(), series.end(),
                                  [](const Sample& sample) { return sample.step >= 0; });
  if (begin == series.end()) throw std::invalid_argument("no step was ever begun");
  const std::span<const Sample> active(begin, series.end());
  const Sample& start = active.front();
  const Sample& end = active.back();

  Figures figures;
  const double heading = radians(start.headingDeg);
  const double east = end.torso[0] - start.torso[0];
  const double north = end.torso[1] - start.torso[1];
  figures.forward = east * std::cos(heading) + north * std::sin(heading);
  figures.left = north * std::cos(heading) - east * std::sin(heading);
  figures.turnDeg = end.headingDeg - start.headingDeg;
  const auto settled = std::find_if(active.begin(), active.end(),
                                    [&](const Sample& sample) { return sample.step >= steps; });
  figures.duration = (settled == active.end() ? end.time : settled->time) - start.time;
  for (const Sample& sample : active) {
    figures.maxTiltDeg = std::max(figures.maxTiltDeg, sample.tiltDeg);
    if (sample.time - start.time <= kReachSeconds + arena::kCycleSeconds / 2) {
      figures.reachLeft = std::max(figures.reachLeft, sample.reachLeft);
      figures.reachRight = std::max(figures.reachRight, sample.reachRight);
    }
  }
  const std::size_t lately = std::min(kStandingCycles, active.size());
  const auto last = active.last(lately);
  figures.stands = std::all_of(last.begin(), last.end(), isUp);
  measureWalk(active, figures);
  measureBall(active, figures);
  return figures;
}

}  // namespace workshop
