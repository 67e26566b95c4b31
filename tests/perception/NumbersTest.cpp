#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "perception/SLangParser.h"

namespace {

struct DoubleRow {
  const char* text;
  double value;
};

void expectDoubles(const std::vector<DoubleRow>& rows) {
  for (const DoubleRow& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_DOUBLE_EQ(SLangParser::parseFirstDouble(row.text), row.value);
  }
}

TEST(FirstDouble, ReadsSignPointAndDigits) {
  expectDoubles({{"12.5", 12.5},
                 {"0", 0},
                 {"007", 7},
                 {"-3.25", -3.25},
                 {".5", 0.5},
                 {"-.5", -0.5},
                 {"5.", 5},
                 {"9.81", 9.81}});
}

TEST(FirstDouble, SkipsWhatStandsBeforeTheNumber) {
  expectDoubles({{"abc-2", -2}, {"x.5", 0.5}, {"(pol 4.5 3)", 4.5}, {"+7", 7}, {" \t8", 8}});
}

TEST(FirstDouble, StopsAtWhatIsNoPartOfTheNumber) {
  expectDoubles(
      {{"12 5", 12}, {"1.5-2", 1.5}, {"4)", 4}, {"1,5", 1}, {"--5", 0}, {"-x5", 0}, {".x5", 0}});
}

TEST(FirstDouble, ZeroByteEndsTheNumber) {
  EXPECT_EQ(SLangParser::parseFirstDouble(std::string("12\0"
                                                      "34",
                                                      5)),
            12);
}

TEST(FirstDouble, WithoutANumberIsZero) {
  expectDoubles({{"", 0}, {"abc", 0}, {"-", 0}, {".", 0}, {"()", 0}});
}

TEST(FirstDouble, SecondPointInFractionIsIgnored) {
  expectDoubles({{"1.2.3", 1.23}, {"1..5", 1.5}, {"..5", 0.5}});
}

TEST(FirstDouble, FractionIsTheSumOfItsDigits) {
  // Not the double nearest to the decimal text: each digit is rounded in by itself.
  EXPECT_EQ(SLangParser::parseFirstDouble("0.013"), 0.0 / 10 + 1.0 / 100 + 3.0 / 1000);
  EXPECT_EQ(SLangParser::parseFirstDouble("0.789"), 7.0 / 10 + 8.0 / 100 + 9.0 / 1000);
  int unlikeTheNearest = 0;
  for (int i = 0; i < 1000; ++i) {
    const std::string text = "0." + std::to_string(1000 + i).substr(1);
    const int tenths = i / 100;
    const int hundredths = i / 10 % 10;
    const int thousandths = i % 10;
    const double sum = tenths / 10.0 + hundredths / 100.0 + thousandths / 1000.0;
    EXPECT_EQ(SLangParser::parseFirstDouble(text), sum) << text;
    unlikeTheNearest += sum != std::stod(text) ? 1 : 0;
  }
  EXPECT_GT(unlikeTheNearest, 0);
}

TEST(FirstDouble, TakesAnyNumberOfDigits) {
  EXPECT_DOUBLE_EQ(SLangParser::parseFirstDouble("123456789012345678901234567890"),
                   1.2345678901234568e29);
  EXPECT_DOUBLE_EQ(SLangParser::parseFirstDouble("0.00000000000000000000000000005"), 5e-29);
}

TEST(FirstDouble, ZeroIsNeverNegative) {
  for (const char* text : {"-0.00", "-0", "-", "--5", "-0e+2"}) {
    SCOPED_TRACE(text);
    const double value = SLangParser::parseFirstDouble(text);
    EXPECT_EQ(value, 0);
    EXPECT_FALSE(std::signbit(value));
  }
}

TEST(FirstDouble, ExponentNeedsItsSign) {
  expectDoubles({{"1e+2", 100},
                 {"1e-2", 0.01},
                 {"-2.5e+3", -2500},
                 {"2.5e-1x", 0.25},
                 {"1e2", 1},
                 {"1e", 1},
                 {"7ex", 7}});
}

TEST(FirstDouble, UpperCaseExponentIsNone) {
  expectDoubles({{"1E+2", 1}, {"1.5E-2", 1.5}});
}

TEST(FirstDouble, ExponentIsTheFirstIntegerBehindItsSign) {
  expectDoubles({{"3e+", 3},
                 {"3e-", 3},
                 {"3e+ 2", 300},
                 {"3e-x2", 0.03},
                 {"3e+-2", 0.03},  // the minus is found on the way to the digits
                 {"3e--2", 300}});
}

TEST(FirstDouble, NumberEndsWithItsExponent) {
  expectDoubles({{"1e+2.5", 100}, {"1e+2e+3", 100}});
}

TEST(FirstDouble, LongEnoughNanIsUnknown) {
  expectDoubles({{"nan))", -1000},
                 {"NaN))", -1000},
                 {"(ax nan 2)", -1000},
                 {"nan12", -1000},
                 {"NaNNaN", -1000}});
}

TEST(FirstDouble, ShortNanIsNoNumber) {
  expectDoubles({{"nan", 0}, {"NaN", 0}, {"nan)", 0}, {"NaN)", 0}, {"nan5", 5}, {"xnan)", 0}});
}

TEST(FirstDouble, NanNeedsItsSpelling) {
  expectDoubles({{"Nan))))", 0}, {"naN))))", 0}, {"NAN))))", 0}, {"nano", 0}, {"na5))))", 5}});
}

TEST(FirstDouble, NanBehindTheNumberIsNotReached) {
  expectDoubles({{"5nan))", 5}, {"-nan))", 0}, {".nan))", 0}});
}

struct IntRow {
  const char* text;
  int start;
  int value;
};

void expectInts(const std::vector<IntRow>& rows) {
  for (const IntRow& row : rows) {
    SCOPED_TRACE(testing::Message() << row.text << " from " << row.start);
    EXPECT_EQ(SLangParser::parseFirstInt(row.text, row.start), row.value);
  }
}

TEST(FirstInt, ReadsTheFirstIntegerFromTheStart) {
  expectInts({{"ab-12c", 0, -12},
              {"7", 0, 7},
              {"12 34", 0, 12},
              {"12 34", 1, 2},
              {"12 34", 2, 34},
              {"3.9", 0, 3},
              {"unum 11)", 0, 11}});
}

TEST(FirstInt, WithoutDigitsIsZero) {
  expectInts({{"", 0, 0}, {"abc", 0, 0}, {"-", 0, 0}});
}

TEST(FirstInt, DigitsMustStandDirectlyBehindTheMinus) {
  expectInts({{"- 5", 0, 0}, {"--5", 0, 0}, {"a-b5", 0, 0}});
}

TEST(FirstInt, NanAtTheFrontIsZeroWhateverTheStart) {
  expectInts({{"nan7", 0, 0}, {"nan 7", 4, 0}, {"nan", 0, 0}});
}

TEST(FirstInt, OtherNanIsSteppedOver) {
  expectInts({{"NaN7", 0, 7}, {"xnan7", 0, 7}, {"na7", 0, 7}});
}

}  // namespace
