#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "perception/SLangParser.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(FirstNonSpace, MovesToTheCharacterAndReturnsIt) {
  const std::string text = " \t\n\v\f\rxy";
  auto it = text.begin();
  EXPECT_EQ(SLangParser::gotoFirstNonSpace(it, text.end()), 'x');
  EXPECT_EQ(it - text.begin(), 6);
  EXPECT_EQ(SLangParser::gotoFirstNonSpace(it, text.end()), 'x');
  EXPECT_EQ(it - text.begin(), 6);
}

TEST(FirstNonSpace, IsZeroAtTheEnd) {
  const std::string text = " \n ";
  auto it = text.begin();
  EXPECT_EQ(SLangParser::gotoFirstNonSpace(it, text.end()), '\0');
  EXPECT_TRUE(it == text.end());
}

TEST(FirstWord, PositionMovesBehindTheDelimiter) {
  const std::string text = " \thello\tworld\nagain ";
  unsigned int pos = 0;
  EXPECT_EQ(SLangParser::parseFirstWord(text, &pos), "hello");
  EXPECT_EQ(pos, 8U);
  EXPECT_EQ(SLangParser::parseFirstWord(text, &pos), "world");
  EXPECT_EQ(pos, 14U);
  EXPECT_EQ(SLangParser::parseFirstWord(text, &pos), "again");
  EXPECT_EQ(pos, 20U);
}

TEST(FirstWord, WithoutAPositionReadsFromTheFront) {
  EXPECT_EQ(SLangParser::parseFirstWord("  first second "), "first");
}

TEST(FirstWord, OnlyBlankTabAndLineFeedEndIt) {
  EXPECT_EQ(SLangParser::parseFirstWord("a\rb\fc d"), "a\rb\fc");
}

TEST(FirstQuote, TakesWhatLiesBetweenTwoQuotes) {
  const std::string text = "a 'b c' d '' e 'f'";
  unsigned int pos = 0;
  EXPECT_EQ(SLangParser::parseFirstQuote(text, &pos), "b c");
  EXPECT_EQ(pos, 7U);
  EXPECT_EQ(SLangParser::parseFirstQuote(text, &pos), "");
  EXPECT_EQ(pos, 12U);
  EXPECT_EQ(SLangParser::parseFirstQuote(text, &pos), "f");
  EXPECT_EQ(pos, 18U);
}

TEST(FirstQuote, WithoutAPositionReadsFromTheFront) {
  EXPECT_EQ(SLangParser::parseFirstQuote("'x' 'y'"), "x");
}

TEST(FirstQuote, FewerThanTwoQuotesLeaveThePositionAlone) {
  for (const std::string text : {"no quotes here", "only 'one here", ""}) {
    SCOPED_TRACE(text);
    unsigned int pos = 0;
    EXPECT_EQ(SLangParser::parseFirstQuote(text, &pos), "");
    EXPECT_EQ(pos, 0U);
  }
  unsigned int pos = 3;
  EXPECT_EQ(SLangParser::parseFirstQuote("'a'b'", &pos), "");
  EXPECT_EQ(pos, 3U);
}

TEST(Trim, TakesWhiteSpaceOffBothEnds) {
  EXPECT_EQ(SLangParser::trim(" \t\n\v\f\ra b \t\n\v\f\r"), "a b");
  EXPECT_EQ(SLangParser::trim("a"), "a");
  EXPECT_EQ(SLangParser::trim("a "), "a");
  EXPECT_EQ(SLangParser::trim(" \n"), "");
  EXPECT_EQ(SLangParser::trim(""), "");
}

TEST(SplitAtCharacter, RunsOfDelimitersGiveNoEmptyWords) {
  std::vector<std::string> words;
  EXPECT_TRUE(SLangParser::parseByCharDelim("--a--b c-", '-', words));
  EXPECT_THAT(words, ElementsAre("a", "b c"));
}

TEST(SplitAtCharacter, LastWordNeedsNoDelimiter) {
  std::vector<std::string> words;
  EXPECT_TRUE(SLangParser::parseByCharDelim("a,bc", ',', words));
  EXPECT_THAT(words, ElementsAre("a", "bc"));
}

TEST(SplitAtCharacter, FormerWordsStay) {
  std::vector<std::string> words{"old"};
  EXPECT_TRUE(SLangParser::parseByCharDelim("new", ',', words));
  EXPECT_THAT(words, ElementsAre("old", "new"));
}

TEST(SplitAtCharacter, EmptyTextIsRefused) {
  std::vector<std::string> words{"old"};
  EXPECT_FALSE(SLangParser::parseByCharDelim("", ',', words));
  EXPECT_THAT(words, ElementsAre("old"));
}

TEST(SplitAtCharacter, DelimitersAloneGiveNothing) {
  std::vector<std::string> words;
  EXPECT_TRUE(SLangParser::parseByCharDelim(",,", ',', words));
  EXPECT_THAT(words, IsEmpty());
}

}  // namespace
