#include "perception/TGenericData.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

TGenericData named(const std::string& name, TGenericData data) {
  data.setName(name);
  return data;
}

template <typename Value>
std::string streamed(const Value& value) {
  std::ostringstream out;
  out << value;
  return out.str();
}

TEST(GenericData, TypeTagsAreNumberStringUnknown) {
  EXPECT_EQ(static_cast<int>(TYPE_NUMBER), 0);
  EXPECT_EQ(static_cast<int>(TYPE_STRING), 1);
  EXPECT_EQ(static_cast<int>(TYPE_UNKNOWN), 2);
}

TEST(GenericData, StartsEmptyAndUnknown) {
  const TGenericData data;
  EXPECT_EQ(data.getDataType(), TYPE_UNKNOWN);
  EXPECT_EQ(data.getName(), "");
  EXPECT_EQ(data.getValue(), "");
  EXPECT_TRUE(std::has_virtual_destructor_v<TGenericData>);
}

TEST(GenericData, NumberIsKeptWithSixDecimals) {
  EXPECT_EQ(TGenericData(2.5).getDataType(), TYPE_NUMBER);
  EXPECT_EQ(TGenericData(2.5).getValue(), "2.500000");
  EXPECT_EQ(TGenericData(-1e-7).getValue(), "-0.000000");
  EXPECT_EQ(TGenericData(1e20).getValue(), "100000000000000000000.000000");
}

TEST(GenericData, TextIsKeptAsItIs) {
  const TGenericData data(std::string("left"));
  EXPECT_EQ(data.getDataType(), TYPE_STRING);
  EXPECT_EQ(data.getValue(), "left");
  EXPECT_EQ(data.getAsString(), "left");
}

TEST(GenericData, ReadsAsTheFirstNumberInItsText) {
  EXPECT_EQ(TGenericData(2.5).getAsDouble(), 2.5);
  EXPECT_EQ(TGenericData(std::string("abc-2")).getAsDouble(), -2);
  EXPECT_EQ(TGenericData(std::string("abc")).getAsDouble(), 0);
  EXPECT_EQ(TGenericData().getAsDouble(), 0);
}

TEST(GenericData, NaNReadsAsUnknown) {
  EXPECT_EQ(TGenericData(std::string("NaN")).getAsDouble(), -1000);
  EXPECT_EQ(TGenericData(std::string("nan")).getAsDouble(), 0);
}

TEST(GenericData, SettersChangeTheTypeWithTheValue) {
  TGenericData data;
  data.setName("side");
  data.setValue(std::string("left"));
  EXPECT_EQ(data.getDataType(), TYPE_STRING);
  EXPECT_EQ(data.getValue(), "left");
  data.setValue(1.0);
  EXPECT_EQ(data.getDataType(), TYPE_NUMBER);
  EXPECT_EQ(data.getValue(), "1.000000");
  data.setDataType(TYPE_UNKNOWN);
  EXPECT_EQ(data.getDataType(), TYPE_UNKNOWN);
  EXPECT_EQ(data.getName(), "side");
}

TEST(GenericData, ValueOfAnotherComesWithoutItsName) {
  TGenericData data = named("mine", TGenericData(1.0));
  data.setValue(named("theirs", TGenericData(std::string("x"))));
  EXPECT_EQ(data.getName(), "mine");
  EXPECT_EQ(data.getValue(), "x");
  EXPECT_EQ(data.getDataType(), TYPE_STRING);
}

TEST(GenericData, AssignmentCopiesTheNameToo) {
  TGenericData data;
  data = named("theirs", TGenericData(3.0));
  EXPECT_EQ(data.getName(), "theirs");
  EXPECT_EQ(data.getValue(), "3.000000");
  EXPECT_EQ(data.getDataType(), TYPE_NUMBER);
}

TEST(GenericDataEquality, ComparesTypeAndTextButNoName) {
  EXPECT_TRUE(named("a", TGenericData(2.5)) == named("b", TGenericData(2.5)));
  EXPECT_FALSE(TGenericData(2.5) == TGenericData(2.6));
  EXPECT_FALSE(TGenericData(2.5) == TGenericData(std::string("2.500000")));
}

TEST(GenericDataEquality, TextNeedsAStringRecord) {
  EXPECT_TRUE(TGenericData(std::string("x")) == std::string("x"));
  EXPECT_FALSE(TGenericData(std::string("x")) == std::string("y"));
  EXPECT_FALSE(TGenericData(2.5) == std::string("2.500000"));
}

TEST(GenericDataEquality, NumberNeedsANumberRecord) {
  EXPECT_TRUE(TGenericData(2.5) == 2.5);
  EXPECT_FALSE(TGenericData(2.5) == 2.6);
  EXPECT_FALSE(TGenericData(std::string("2.5")) == 2.5);
}

TEST(GenericDataSum, OfNumbersHasSixDecimalsAndIsANumber) {
  const TGenericData sum = named("left", TGenericData(2.5)) + named("right", TGenericData(1.0));
  EXPECT_EQ(sum.getValue(), "3.500000");
  EXPECT_EQ(sum.getDataType(), TYPE_NUMBER);
  EXPECT_EQ(sum.getName(), "left");
}

TEST(GenericDataSum, NumberTakesWhateverNumberIsOnTheRight) {
  EXPECT_EQ((TGenericData(2.5) + TGenericData(std::string("x4"))).getValue(), "6.500000");
  EXPECT_EQ((TGenericData(2.5) + TGenericData(std::string("NaN"))).getValue(), "-997.500000");
  EXPECT_EQ((TGenericData(2.5) + TGenericData()).getValue(), "2.500000");
}

TEST(GenericDataSum, OfAStringJoinsTheTexts) {
  const TGenericData sum = named("n", TGenericData(std::string("a"))) + TGenericData(1.0);
  EXPECT_EQ(sum.getValue(), "a1.000000");
  EXPECT_EQ(sum.getDataType(), TYPE_STRING);
  EXPECT_EQ(sum.getName(), "n");
}

TEST(GenericDataSum, OfAnUnknownIsItsCopy) {
  TGenericData unknown = named("n", TGenericData(7.0));
  unknown.setDataType(TYPE_UNKNOWN);
  const TGenericData sum = unknown + TGenericData(1.0);
  EXPECT_EQ(sum.getValue(), "7.000000");
  EXPECT_EQ(sum.getDataType(), TYPE_UNKNOWN);
  EXPECT_EQ(sum.getName(), "n");
}

TEST(GenericDataOperations, OnNumbers) {
  const TGenericData left = named("left", TGenericData(6.0));
  const TGenericData right = named("right", TGenericData(-1.5));
  const std::vector<std::pair<TGenericData, std::string>> rows{
      {left - right, "7.500000"}, {left * right, "-9.000000"}, {left / right, "-4.000000"}};
  for (const auto& [result, text] : rows) {
    EXPECT_EQ(result.getValue(), text);
    EXPECT_EQ(result.getDataType(), TYPE_NUMBER);
    EXPECT_EQ(result.getName(), "left");
  }
}

TEST(GenericDataOperations, DivisionByZeroIsInfinite) {
  EXPECT_EQ((TGenericData(1.0) / TGenericData(0.0)).getValue(), "inf");
}

TEST(GenericDataOperations, OnWhatIsNoNumberGiveZeroAndKeepTheType) {
  TGenericData unknown = named("left", TGenericData(6.0));
  unknown.setDataType(TYPE_UNKNOWN);
  for (const TGenericData& left : {named("left", TGenericData(std::string("6"))), unknown}) {
    for (const TGenericData& result :
         {left - TGenericData(1.0), left * TGenericData(1.0), left / TGenericData(1.0)}) {
      EXPECT_EQ(result.getValue(), "0");
      EXPECT_EQ(result.getDataType(), left.getDataType());
      EXPECT_EQ(result.getName(), "left");
    }
  }
}

TEST(GenericDataOperations, CompoundFormsAssignToTheLeftSide) {
  TGenericData data = named("n", TGenericData(6.0));
  data += TGenericData(2.0);
  EXPECT_EQ(data.getValue(), "8.000000");
  data -= TGenericData(3.0);
  EXPECT_EQ(data.getValue(), "5.000000");
  data *= TGenericData(4.0);
  EXPECT_EQ(data.getValue(), "20.000000");
  data /= TGenericData(8.0);
  EXPECT_EQ(data.getValue(), "2.500000");
  EXPECT_EQ(data.getName(), "n");
  EXPECT_EQ(data.getDataType(), TYPE_NUMBER);
}

TEST(GenericDataText, NamesValueAndType) {
  EXPECT_EQ(streamed(named("t", TGenericData(2.5))), "('t', 2.500000 number)");
  EXPECT_EQ(streamed(named("side", TGenericData(std::string("left")))), "('side', left string)");
  EXPECT_EQ(streamed(TGenericData()), "('',  unknown)");
}

TEST(GenericDataText, PointerShowsItsObject) {
  const TGenericData data = named("t", TGenericData(2.5));
  EXPECT_EQ(streamed(&data), "('t', 2.500000 number)");
}

TEST(UnknownData, IsTheStringNaN) {
  EXPECT_EQ(UnknownData.getValue(), "NaN");
  EXPECT_EQ(UnknownData.getDataType(), TYPE_STRING);
  EXPECT_EQ(UnknownData.getAsDouble(), -1000);
}

}  // namespace
