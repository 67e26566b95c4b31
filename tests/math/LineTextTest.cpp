#include <gtest/gtest.h>

#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>

#include "math/Line.h"
#include "tests/support/OutputCapture.h"

namespace {

struct Printed {
  Line line;
  const char* text;
};

TEST(LineText, EveryForm) {
  const Printed rows[] = {
      {{0, 1, -3}, "x = 3"},
      {{0, 2, 3}, "x = -1.5"},
      {{0, 1, 0}, "x = -0"},
      {{1, -2, -1}, "y = 2x + 1"},
      {{1, -2, 1}, "y = 2x - 1"},
      {{2, 4, 6}, "y = -2x - 3"},
      {{1, 0, -3}, "y = + 3"},
      {{1, 0, 3}, "y = - 3"},
      {{1, -2, 0}, "y = 2x "},
      {{1, 0, 0}, "y = "},
      // The sign is that of c alone: with a negative a it is the wrong one.
      {{-1, 2, 1}, "y = 2x - 1"},
      {{-2, 0, -4}, "y = + 2"},
  };
  for (const Printed& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(row.line.str(), row.text);
    std::ostringstream streamed;
    streamed << row.line;
    EXPECT_EQ(streamed.str(), row.text);
    std::ostringstream shown;
    row.line.show(shown);
    EXPECT_EQ(shown.str(), row.text);
  }
}

TEST(LineText, DiagonalHasNoConstantTerm) {
  EXPECT_EQ(Line::makeLineFromTwoPoints({0, 0, 0}, {2, 2, 0}).str(), "y = 1x ");
}

TEST(LineText, KeepsTheStreamsFormat) {
  std::ostringstream os;
  os << std::fixed << std::setprecision(2) << Line(1, -0.5, -0.25);
  EXPECT_EQ(os.str(), "y = 0.50x + 0.25");
}

TEST(LineText, ShowGoesToStandardOutputWithoutALineEnd) {
  OutputCapture output;
  Line(0, 1, -3).show();
  std::cout.flush();
  EXPECT_EQ(output.text(), "x = 3");
}

}  // namespace
