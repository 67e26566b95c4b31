#include "perception/Tokenizer.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(Tokenizer, DefaultDelimitersAreTheSixSpaces) {
  EXPECT_EQ(DEFAULT_DELIMITER, " \t\v\n\r\f");
}

TEST(Tokenizer, StartsEmptyWithTheDefaultDelimiters) {
  Tokenizer tokenizer;
  EXPECT_EQ(tokenizer.buffer, "");
  EXPECT_EQ(tokenizer.delimiter, DEFAULT_DELIMITER);
  EXPECT_EQ(tokenizer.next(), "");
  EXPECT_EQ(tokenizer.next(), "");
}

TEST(Tokenizer, RunsOfDelimitersGiveNoEmptyTokens) {
  Tokenizer tokenizer(",a,,b,", ",");
  EXPECT_EQ(tokenizer.next(), "a");
  EXPECT_EQ(tokenizer.next(), "b");
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(tokenizer.next(), "");
  }
}

TEST(Tokenizer, LastTokenNeedsNoDelimiter) {
  Tokenizer tokenizer("a b", " ");
  EXPECT_EQ(tokenizer.next(), "a");
  EXPECT_EQ(tokenizer.next(), "b");
  EXPECT_EQ(tokenizer.next(), "");
}

TEST(Tokenizer, AnyCharacterOfTheSetDelimits) {
  Tokenizer tokenizer("a,b;c", ";,");
  EXPECT_EQ(tokenizer.next(), "a");
  EXPECT_EQ(tokenizer.next(), "b");
  EXPECT_EQ(tokenizer.next(), "c");
}

TEST(Tokenizer, TextOfDelimitersIsAtItsEndAtOnce) {
  Tokenizer tokenizer(" \t ", DEFAULT_DELIMITER);
  EXPECT_EQ(tokenizer.next(), "");
}

TEST(Tokenizer, WithoutDelimitersTheTextIsOneToken) {
  Tokenizer tokenizer("a b", "");
  EXPECT_EQ(tokenizer.next(), "a b");
  EXPECT_EQ(tokenizer.next(), "");
}

TEST(Tokenizer, ZeroByteIsACharacterLikeAnyOther) {
  Tokenizer tokenizer(std::string("a\0b c", 5), " ");
  EXPECT_EQ(tokenizer.next(), std::string("a\0b", 3));
  EXPECT_EQ(tokenizer.next(), "c");
}

TEST(Tokenizer, KeepsTheTokenItHandedOut) {
  Tokenizer tokenizer("a b", " ");
  tokenizer.next();
  EXPECT_EQ(tokenizer.token, "a");
}

TEST(Tokenizer, SetStartsAgainWithBoth) {
  Tokenizer tokenizer("a b", " ");
  tokenizer.next();
  tokenizer.set("x,y", ",");
  EXPECT_EQ(tokenizer.next(), "x");
  EXPECT_EQ(tokenizer.next(), "y");
}

TEST(Tokenizer, NewTextStartsAtItsFrontWithTheOldDelimiters) {
  Tokenizer tokenizer("a,b", ",");
  tokenizer.next();
  tokenizer.setString("x y,z");
  EXPECT_EQ(tokenizer.next(), "x y");
  EXPECT_EQ(tokenizer.next(), "z");
}

TEST(Tokenizer, NewDelimitersStartAgainAtTheFront) {
  Tokenizer tokenizer("a,b c", ",");
  EXPECT_EQ(tokenizer.next(), "a");
  tokenizer.setDelimiter(" ");
  EXPECT_EQ(tokenizer.next(), "a,b");
  EXPECT_EQ(tokenizer.next(), "c");
}

TEST(Tokenizer, DelimiterTestAndSkip) {
  Tokenizer tokenizer(",;a", ",;");
  EXPECT_TRUE(tokenizer.isDelimiter(','));
  EXPECT_TRUE(tokenizer.isDelimiter(';'));
  EXPECT_FALSE(tokenizer.isDelimiter('a'));
  tokenizer.skipDelimiter();
  EXPECT_EQ(tokenizer.currPos - tokenizer.buffer.cbegin(), 2);
  tokenizer.skipDelimiter();
  EXPECT_EQ(tokenizer.currPos - tokenizer.buffer.cbegin(), 2);
}

}  // namespace
