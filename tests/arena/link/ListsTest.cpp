#include "arena/link/Lists.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace arena {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

TEST(Lists, ListsAndWordsOfTheOutermostLevelComeApart) {
  EXPECT_THAT(splitLevel("(a 1)(b (c) 2) word"),
              Optional(ElementsAre("(a 1)", "(b (c) 2)", "word")));
  EXPECT_THAT(splitLevel("unum 1"), Optional(ElementsAre("unum", "1")));
}

TEST(Lists, BlanksBetweenPartsDoNotMatter) {
  EXPECT_THAT(splitLevel("  (a)\n\t(b) \r\n"), Optional(ElementsAre("(a)", "(b)")));
  EXPECT_THAT(splitLevel(""), Optional(IsEmpty()));
  EXPECT_THAT(splitLevel(" "), Optional(IsEmpty()));
}

TEST(Lists, AWordEndsWhereAListBegins) {
  EXPECT_THAT(splitLevel("x(a)y"), Optional(ElementsAre("x", "(a)", "y")));
  EXPECT_THAT(splitLevel("()"), Optional(ElementsAre("()")));
}

TEST(Lists, ParenthesesMustBalance) {
  EXPECT_FALSE(splitLevel("("));
  EXPECT_FALSE(splitLevel(")"));
  EXPECT_FALSE(splitLevel("(a"));
  EXPECT_FALSE(splitLevel("(a))"));
  EXPECT_FALSE(splitLevel(")("));
  EXPECT_FALSE(splitLevel("a)"));
}

TEST(Lists, DepthCostsNothing) {
  const std::string deep = std::string(8000, '(') + std::string(8000, ')');
  EXPECT_THAT(splitLevel(deep), Optional(ElementsAre(deep)));
  EXPECT_FALSE(splitLevel(std::string(16000, '(')));
}

TEST(Lists, InsideOfAListIsWhatItsParenthesesHold) {
  EXPECT_EQ(insideOf("(a (b))"), "a (b)");
  EXPECT_EQ(insideOf("()"), "");
}

}  // namespace
}  // namespace arena
