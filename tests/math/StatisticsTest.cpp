#include <gtest/gtest.h>

#include <Eigen/QR>
#include <cmath>
#include <vector>

#include "math/Algebra.h"
#include "tests/math/Constants.h"

namespace {

void expectFit(const Line& line, double a, double b, double c) {
  EXPECT_NEAR(line.a, a, kTiny);
  EXPECT_NEAR(line.b, b, kTiny);
  EXPECT_NEAR(line.c, c, kTiny);
}

TEST(Regression, PointsOfALineGiveThatLine) {
  double points[][2] = {{0, 1}, {1, 3}, {2, 5}};
  expectFit(Statistics::getLinearRegression(points, 3), 1, -2, -1);
  expectFit(Statistics::getLinearRegression({{0, 1}, {1, 3}, {2, 5}}), 1, -2, -1);
}

TEST(Regression, OnlyTheFirstNPointsCount) {
  double points[][2] = {{0, 1}, {1, 3}, {2, 50}};
  expectFit(Statistics::getLinearRegression(points, 2), 1, -2, -1);
}

TEST(Regression, HeightsPlayNoPart) {
  expectFit(Statistics::getLinearRegression({{0, 1, 9}, {1, 3, -4}, {2, 5, 0}}), 1, -2, -1);
}

// Means (1, 1): sxy = 1 + 0 + 0, sxx = 2.
TEST(Regression, ScatteredPointsByHand) {
  double points[][2] = {{0, 0}, {1, 2}, {2, 1}};
  expectFit(Statistics::getLinearRegression(points, 3), 1, -0.5, -0.5);
}

TEST(Regression, AgreesWithAnOrthogonalFactorisation) {
  const std::vector<VecPosition> points{{-8.5, 3.25}, {-2, 1.5},    {0.125, -0.75},
                                        {3, -2.5},    {5.5, -2.25}, {8.75, -6}};
  Eigen::MatrixX2d design(points.size(), 2);
  Eigen::VectorXd values(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    const auto row = static_cast<Eigen::Index>(i);
    design.row(row) << points[i].x, 1.0;
    values(row) = points[i].y;
  }
  const Eigen::Vector2d expected = design.colPivHouseholderQr().solve(values);
  expectFit(Statistics::getLinearRegression(points), 1, -expected(0), -expected(1));
}

TEST(Regression, PointsOfOneXGiveTheVerticalLine) {
  double points[][2] = {{3, -1}, {3, 0}, {3, 7}};
  expectFit(Statistics::getLinearRegression(points, 3), 0, 1, -3);
  expectFit(Statistics::getLinearRegression({{3, -1}, {3, 0}, {3, 7}}), 0, 1, -3);
}

TEST(Regression, SinglePointGivesTheVerticalLineThroughIt) {
  expectFit(Statistics::getLinearRegression({{2, 5}}), 0, 1, -2);
}

TEST(Regression, SpreadBelowTheToleranceIsVertical) {
  expectFit(Statistics::getLinearRegression({{-0.005, 0}, {0.005, 1}}), 0, 1, 0);  // 0.00005
  const Line sloped = Statistics::getLinearRegression({{-0.01, 0}, {0.01, 1}});    // 0.0002
  EXPECT_EQ(sloped.a, 1);
  EXPECT_NEAR(sloped.b, -50, 1e-9);
}

TEST(Regression, NoPointsHoldNoNumber) {
  const Line none = Statistics::getLinearRegression(std::vector<VecPosition>());
  EXPECT_EQ(none.a, 0);
  EXPECT_EQ(none.b, 1);
  EXPECT_TRUE(std::isnan(none.c));
  double points[][2] = {{1, 2}};
  EXPECT_TRUE(std::isnan(Statistics::getLinearRegression(points, 0).c));
}

TEST(Regression, NegativeCountGivesTheLineAtZero) {
  double points[][2] = {{1, 2}};
  const Line line = Statistics::getLinearRegression(points, -2);
  EXPECT_EQ(line.a, 0);
  EXPECT_EQ(line.b, 1);
  EXPECT_EQ(line.c, 0);
}

}  // namespace
