#include "arena/link/Lists.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace arena {
namespace {

std::optional<std::vector<std::string_view>> split(std::string_view text) {
  std::vector<std::string_view> parts{"left", "over"};
  if (!splitLevel(text, parts)) return std::nullopt;
  return parts;
}

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

TEST(Lists, ListsAndWordsOfTheOutermostLevelComeApart) {
  EXPECT_THAT(split("(a 1)(b (c) 2) word"), Optional(ElementsAre("(a 1)", "(b (c) 2)", "word")));
  EXPECT_THAT(split("unum 1"), Optional(ElementsAre("unum", "1")));
}

TEST(Lists, BlanksBetweenPartsDoNotMatter) {
  EXPECT_THAT(split("  (a)\n\t(b) \r\n"), Optional(ElementsAre("(a)", "(b)")));
  EXPECT_THAT(split(""), Optional(IsEmpty()));
  EXPECT_THAT(split(" "), Optional(IsEmpty()));
}

TEST(Lists, AWordEndsWhereAListBegins) {
  EXPECT_THAT(split("x(a)y"), Optional(ElementsAre("x", "(a)", "y")));
  EXPECT_THAT(split("()"), Optional(ElementsAre("()")));
}

TEST(Lists, ParenthesesMustBalance) {
  EXPECT_FALSE(split("("));
  EXPECT_FALSE(split(")"));
  EXPECT_FALSE(split("(a"));
  EXPECT_FALSE(split("(a))"));
  EXPECT_FALSE(split(")("));
  EXPECT_FALSE(split("a)"));
}

TEST(Lists, DepthCostsNothing) {
  const std::string deep = std::string(8000, '(') + std::string(8000, ')');
  EXPECT_THAT(split(deep), Optional(ElementsAre(deep)));
  EXPECT_FALSE(split(std::string(16000, '(')));
}

TEST(Lists, InsideOfAListIsWhatItsParenthesesHold) {
  EXPECT_EQ(insideOf("(a (b))"), "a (b)");
  EXPECT_EQ(insideOf("()"), "");
}

}  // namespace
}  // namespace arena
