#include "math/Line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>

#include "tests/math/Constants.h"
#include "tests/support/OutputCapture.h"

namespace {

void expectLine(const Line& line, double a, double b, double c) {
  EXPECT_NEAR(line.a, a, kTiny);
  EXPECT_NEAR(line.b, b, kTiny);
  EXPECT_NEAR(line.c, c, kTiny);
}

TEST(Line, KeepsItsCoefficientsInOrder) {
  const Line line(2, 3, 5);
  EXPECT_EQ(line.getACoefficient(), 2);
  EXPECT_EQ(line.getBCoefficient(), 3);
  EXPECT_EQ(line.getCCoefficient(), 5);
  EXPECT_EQ(line[0], 2);
  EXPECT_EQ(line[1], 3);
  EXPECT_EQ(line[2], 5);
}

TEST(Line, CoefficientsCanBeWrittenByIndex) {
  Line line(0, 0, 0);
  line[0] = 2;
  line[1] = 3;
  line[2] = 5;
  expectLine(line, 2, 3, 5);
}

TEST(Line, BadIndexIsReportedAndReadsAStandIn) {
  const Line line(2, 3, 5);
  OutputCapture errors(OutputCapture::Stream::Error);
  EXPECT_EQ(line[3], -1000);
  EXPECT_EQ(line[-1], -1000);
  EXPECT_EQ(errors.text(),
            "(Line::operator []) Index out of bounds: 3\n"
            "(Line::operator []) Index out of bounds: -1\n");
}

TEST(Line, WhatIsWrittenThroughABadIndexStays) {
  Line line(2, 3, 5);
  Line other(7, 11, 13);
  OutputCapture errors(OutputCapture::Stream::Error);
  const double atFirst = line[3];
  line[3] = 42;
  EXPECT_EQ(other[-1], 42);
  EXPECT_EQ(std::as_const(line)[3], -1000);
  line[3] = -1000;  // as it was, should a test follow in this process
  EXPECT_EQ(atFirst, -1000);
  expectLine(line, 2, 3, 5);
  std::string expected;
  for (const char* index : {"3", "3", "-1", "3", "3"}) {
    expected += "(Line::operator []) Index out of bounds: " + std::string(index) + "\n";
  }
  EXPECT_EQ(errors.text(), expected);
}

TEST(LineFromTwoPoints, DiagonalHasSlopeOne) {
  const Line line = Line::makeLineFromTwoPoints(VecPosition(0, 0, 0), VecPosition(2, 2, 0));
  EXPECT_EQ(line.a, 1);
  EXPECT_EQ(line.b, -1);
  EXPECT_EQ(line.c, 0);
}

// y = 2x + 1, whichever point comes first and whatever the heights.
TEST(LineFromTwoPoints, AIsOneAndBMinusTheSlope) {
  expectLine(Line::makeLineFromTwoPoints({1, 3, 8}, {4, 9, -8}), 1, -2, -1);
  expectLine(Line::makeLineFromTwoPoints({4, 9}, {1, 3}), 1, -2, -1);
}

TEST(LineFromTwoPoints, NearlyOneXIsVerticalAtTheSecondPoint) {
  const Line line = Line::makeLineFromTwoPoints({1, 1, 0}, {1.00001, 5, 0});
  EXPECT_EQ(line.a, 0);
  EXPECT_EQ(line.b, 1);
  EXPECT_EQ(line.c, -1.00001);
  EXPECT_EQ(Line::makeLineFromTwoPoints({1.00001, 5, 0}, {1, 1, 0}).c, -1);
}

TEST(LineFromTwoPoints, ToleranceItselfIsASlope) {
  expectLine(Line::makeLineFromTwoPoints({0, 0}, {0.00009, 1}), 0, 1, -0.00009);
  const Line steep = Line::makeLineFromTwoPoints({0, 0}, {0.0001, 1});
  EXPECT_EQ(steep.a, 1);
  EXPECT_NEAR(steep.b, -10000, 1e-6);
  EXPECT_NEAR(steep.c, 0, 1e-9);
}

TEST(LineFromTwoPoints, OnePointTwiceGivesTheVerticalThroughIt) {
  expectLine(Line::makeLineFromTwoPoints({3, 4}, {3, 4}), 0, 1, -3);
}

TEST(LineFromAngle, RunsAlongTheAzimuth) {
  expectLine(Line::makeLineFromPositionAndAngle({1, 1, 0}, 45), 1, -1, 0);
  expectLine(Line::makeLineFromPositionAndAngle({1, 2, 0}, 0), 1, 0, -2);
  expectLine(Line::makeLineFromPositionAndAngle({1, 2, 0}, 135), 1, 1, -3);
  expectLine(Line::makeLineFromPositionAndAngle({1, 1, 0}, -135), 1, -1, 0);
}

TEST(LineFromAngle, UprightIsVertical) {
  expectLine(Line::makeLineFromPositionAndAngle({3, 7, 0}, 90), 0, 1, -3);
  expectLine(Line::makeLineFromPositionAndAngle({3, 7, 0}, -90), 0, 1, -3);
}

// 2y + 4x + 6 = 0.
TEST(Line, OneCoordinateGivesTheOther) {
  const Line line(2, 4, 6);
  EXPECT_EQ(line.getYGivenX(1), -5);
  EXPECT_EQ(line.getXGivenY(1), -2);
}

TEST(Line, VerticalLineHasNoYForAnX) {
  OutputCapture errors(OutputCapture::Stream::Error);
  EXPECT_EQ(Line(0, 1, -3).getYGivenX(3), 0);
  EXPECT_EQ(errors.text(), "(Line::getYGivenX) Cannot calculate Y coordinate\n");
}

TEST(Line, HorizontalLineHasNoXForAY) {
  OutputCapture errors(OutputCapture::Stream::Error);
  EXPECT_EQ(Line(1, 0, -3).getXGivenY(3), 0);
  EXPECT_EQ(errors.text(), "(Line::getXGivenY) Cannot calculate X coordinate\n");
}

TEST(Line, TangentIsThePerpendicularThroughThePoint) {
  const Line tangent = Line(2, 3, 5).getTangentLine(VecPosition(7, 11, 13));
  EXPECT_EQ(tangent.a, 3);
  EXPECT_EQ(tangent.b, -2);
  EXPECT_EQ(tangent.c, -19);                    // 2 * 7 - 3 * 11
  EXPECT_EQ(3 * 11 - 2 * 7 + tangent.c, 0);     // through the point
  EXPECT_EQ(2 * tangent.a + 3 * tangent.b, 0);  // and upright on the line
}

}  // namespace
