// What does the geometry cost that a player's turn uses? Each operation is timed over the same
// seeded places of the field, and right below it what Eigen takes for the same, where Eigen has it.
//
// Every figure is the mean time of one operation; p50, p99 and max are over kRuns such means.
// Places are read from and results kept in memory, as they are in a turn.
//
//   math [--benchmark_filter=NAME]

#include <benchmark/benchmark.h>

#include <Eigen/Geometry>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <exception>
#include <iomanip>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "bench/Report.h"
#include "math/Geometry.h"

namespace {

constexpr int kRuns = 51;
constexpr std::size_t kPlaces = 1024;  ///< small enough for the nearest cache

using Line2 = Eigen::Hyperplane<double, 2>;

/// One round of inputs in both forms.
struct Inputs {
  std::vector<VecPosition> places;
  std::vector<Eigen::Vector2d> ground;  ///< x and y of the same places
  std::vector<Eigen::Vector3d> space;   ///< all three members of them
  std::vector<double> degrees;
  std::vector<Line> lines;  ///< through a place and the next one
  std::vector<Line2> eigenLines;

  Inputs() {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> x(-9, 9);
    std::uniform_real_distribution<double> y(-6, 6);
    std::uniform_real_distribution<double> angle(-180, 180);
    for (std::size_t i = 0; i < kPlaces; ++i) {
      const VecPosition p(x(random), y(random), 0.0);
      places.push_back(p);
      ground.emplace_back(p.x, p.y);
      space.emplace_back(p.x, p.y, p.z);
      degrees.push_back(angle(random));
    }
    for (std::size_t i = 0; i + 1 < kPlaces; ++i) {
      lines.push_back(Line::makeLineFromTwoPoints(places[i], places[i + 1]));
      eigenLines.push_back(Line2::Through(ground[i], ground[i + 1]));
    }
  }
};

/// Times operation(inputs, i), one place after the other; i + 1 and i + 2 are places as well.
template <typename Operation>
void player(benchmark::State& state, Operation operation) {
  const Inputs inputs;
  std::size_t i = 0;
  for ([[maybe_unused]] auto _ : state) {
    auto result = operation(inputs, i);
    benchmark::DoNotOptimize(result);
    i = (i + 1) % (kPlaces - 2);
  }
}

/// The same under another name, for Eigen's way.
template <typename Operation>
void eigen(benchmark::State& state, Operation operation) {
  player(state, operation);
}

void settings(benchmark::internal::Benchmark* benchmark) {
  benchmark->MinTime(0.005)->Repetitions(kRuns);
}

// Vision: a sight becomes a place.
BENCHMARK_CAPTURE(player, placeOfASight, [](const Inputs& in, std::size_t i) {
  const VecPosition& me = in.places[i];
  const double direction = in.degrees[i];
  return VecPosition(me.x + cosDeg(direction) * 4.0, me.y + sinDeg(direction) * 4.0, 0.0);
})->Apply(settings);
BENCHMARK_CAPTURE(eigen, placeOfASight, [](const Inputs& in, std::size_t i) -> Eigen::Vector2d {
  return in.ground[i] + Eigen::Rotation2Dd(in.degrees[i] * PI / 180) * Eigen::Vector2d(4, 0);
})->Apply(settings);
BENCHMARK_CAPTURE(player, getDistanceTo, [](const Inputs& in, std::size_t i) {
  return in.places[i].getDistanceTo(in.places[i + 1]);
})->Apply(settings);
BENCHMARK_CAPTURE(eigen, getDistanceTo, [](const Inputs& in, std::size_t i) {
  return (in.space[i] - in.space[i + 1]).norm();
})->Apply(settings);

// Localisation: two landmarks' circles, and whether what they share is on the field.
BENCHMARK_CAPTURE(player, getCircleIntersectionPoints, [](const Inputs& in, std::size_t i) {
  const VecPosition& me = in.places[i];
  const VecPosition& flag1 = in.places[i + 1];
  const VecPosition& flag2 = in.places[i + 2];
  VecPosition p1;
  VecPosition p2;
  Circle(flag1, me.getDistanceTo(flag1))
      .getCircleIntersectionPoints(Circle(flag2, me.getDistanceTo(flag2)), &p1, &p2);
  return p1 + p2;
})->Apply(settings);
BENCHMARK_CAPTURE(player, isInside, [](const Inputs& in, std::size_t i) {
  return Rect({-9.5, 6.5, 0}, {9.5, -6.5, 0}).isInside(in.places[i]);
})->Apply(settings);
BENCHMARK_CAPTURE(eigen, isInside, [](const Inputs& in, std::size_t i) {
  return Eigen::AlignedBox2d(Eigen::Vector2d(-9.5, -6.5), Eigen::Vector2d(9.5, 6.5))
      .contains(in.ground[i]);
})->Apply(settings);

// The particle gate and the way to the ball.
BENCHMARK_CAPTURE(player, makeLineFromTwoPoints, [](const Inputs& in, std::size_t i) {
  return Line::makeLineFromTwoPoints(in.places[i], in.places[i + 1]);
})->Apply(settings);
BENCHMARK_CAPTURE(eigen, makeLineFromTwoPoints, [](const Inputs& in, std::size_t i) {
  return Line2::Through(in.ground[i], in.ground[i + 1]);
})->Apply(settings);
BENCHMARK_CAPTURE(player, isInBetweenTwoParallelLines, [](const Inputs& in, std::size_t i) {
  const Line& line = in.lines[i];
  return Line::isInBetweenTwoParallelLines(line, Line(line.a, line.b, line.c + 3),
                                           in.places[i + 2]);
})->Apply(settings);
BENCHMARK_CAPTURE(player, getPointOnLineClosestTo, [](const Inputs& in, std::size_t i) {
  return in.lines[i].getPointOnLineClosestTo(in.places[i + 2]);
})->Apply(settings);
BENCHMARK_CAPTURE(eigen, getPointOnLineClosestTo,
                  [](const Inputs& in, std::size_t i) -> Eigen::Vector2d {
                    return in.eigenLines[i].projection(in.ground[i + 2]);
                  })
    ->Apply(settings);
BENCHMARK_CAPTURE(player, getDistanceWithPoint, [](const Inputs& in, std::size_t i) {
  return in.lines[i].getDistanceWithPoint(in.places[i + 2]);
})->Apply(settings);
BENCHMARK_CAPTURE(eigen, getDistanceWithPoint, [](const Inputs& in, std::size_t i) {
  return in.eigenLines[i].absDistance(in.ground[i + 2]);
})->Apply(settings);

/// A line for each operation: processor time, which other programs disturb least.
class Table : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& /*context*/) override {
    std::cout << bench::machineLine() << "; " << kRuns << " runs each\n"
              << std::left << std::setw(36) << "" << std::right << std::setw(8) << "p50 ns"
              << std::setw(8) << "p99 ns" << std::setw(8) << "max ns" << std::endl;
    return true;
  }

  void ReportRuns(const std::vector<Run>& runs) override {
    std::vector<double> times;
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Iteration) times.push_back(run.GetAdjustedCPUTime());
    }
    if (times.empty()) return;
    std::sort(times.begin(), times.end());
    const auto percentile = [&](std::size_t p) { return times[(times.size() - 1) * p / 100]; };
    std::cout << std::left << std::setw(36) << runs.front().run_name.function_name << std::right
              << std::fixed << std::setprecision(1) << std::setw(8) << percentile(50)
              << std::setw(8) << percentile(99) << std::setw(8) << times.back() << std::endl;
  }
};

int report(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 2;
  }
  Table table;
  benchmark::RunSpecifiedBenchmarks(&table);
  benchmark::Shutdown();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return report(argc, argv);
  } catch (const std::exception& e) {
    std::cerr << "bench_math: " << e.what() << '\n';
    return 1;
  }
}
