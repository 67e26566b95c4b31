#include "perception/DataHolder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TGenericData record(const std::string& name, double value) {
  TGenericData data(value);
  data.setName(name);
  return data;
}

TEST(DataHolder, KeepsCopiesInOrder) {
  DataHolder holder;
  TGenericData original = record("a", 1);
  holder.addData(original);
  original.setValue(9.0);
  holder.addData(record("b", 2));
  ASSERT_EQ(holder.data.size(), 2U);
  EXPECT_EQ(holder.data[0]->getName(), "a");
  EXPECT_EQ(holder.data[0]->getValue(), "1.000000");
  EXPECT_EQ(holder.data[1]->getName(), "b");
}

TEST(DataHolder, FirstOfTwoWithOneNameIsFound) {
  DataHolder holder;
  holder.addData(record("a", 1));
  holder.addData(record("a", 2));
  ASSERT_EQ(holder.data.size(), 2U);
  EXPECT_EQ(holder.getData("a")->getValue(), "1.000000");
  EXPECT_EQ(holder.findData("a")->getValue(), "1.000000");
  EXPECT_EQ(holder.getData("a"), holder.findData("a"));
}

TEST(DataHolder, GettingAnAbsentNameAddsARecord) {
  DataHolder holder;
  TGenericData* added = holder.getData("new");
  ASSERT_NE(added, nullptr);
  EXPECT_EQ(holder.data.size(), 1U);
  EXPECT_EQ(added->getName(), "new");
  EXPECT_EQ(added->getDataType(), TYPE_UNKNOWN);
  EXPECT_EQ(added->getValue(), "");
  EXPECT_EQ(holder.getData("new"), added);
  EXPECT_EQ(holder.data.size(), 1U);
}

TEST(DataHolder, FindingAnAbsentNameAddsNone) {
  DataHolder holder;
  const DataHolder& constant = holder;
  EXPECT_EQ(holder.findData("none"), nullptr);
  EXPECT_EQ(constant.findData("none"), nullptr);
  EXPECT_TRUE(holder.data.empty());
  holder.addData(record("a", 1));
  EXPECT_EQ(constant.findData("a"), holder.findData("a"));
}

TEST(DataHolder, FoundRecordIsTheHoldersOwn) {
  DataHolder holder;
  holder.addData(record("a", 1));
  holder.findData("a")->setValue(5.0);
  EXPECT_EQ(holder.getData("a")->getValue(), "5.000000");
}

TEST(DataHolder, ClearLeavesNothing) {
  DataHolder holder;
  holder.addData(record("a", 1));
  holder.clear();
  EXPECT_TRUE(holder.data.empty());
  EXPECT_EQ(holder.findData("a"), nullptr);
}

TEST(DataHolder, AssignmentReplacesByCopies) {
  DataHolder source;
  source.addData(record("a", 1));
  DataHolder target;
  target.addData(record("old", 7));
  target = source;
  source.findData("a")->setValue(2.0);
  EXPECT_EQ(target.findData("old"), nullptr);
  ASSERT_EQ(target.data.size(), 1U);
  EXPECT_EQ(target.findData("a")->getValue(), "1.000000");
}

TEST(DataHolder, CopyHasRecordsOfItsOwn) {
  DataHolder source;
  source.addData(record("a", 1));
  DataHolder copy(source);
  copy.findData("a")->setValue(2.0);
  EXPECT_EQ(source.findData("a")->getValue(), "1.000000");
}

}  // namespace
