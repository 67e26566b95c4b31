#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "perception/ListView.h"
#include "perception/SLangParser.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using Words = std::vector<std::string>;

struct SplitRow {
  std::string text;
  bool closed;
  Words tokens;
};

TEST(SplitList, TokensAndResult) {
  for (const SplitRow& row : std::vector<SplitRow>{
           {"(a (b c) d)", true, {"a", "(b c)", "d"}},
           {"(a (b (c d)) (e))", true, {"a", "(b (c d))", "(e)"}},
           {"(a(b)c)", true, {"a", "(b)", "c"}},
           {"()", true, {}},
           {"( )", true, {}},
           {" \t\r\n\v\f( \t\r\n\v\fa \t\r\n\v\fb \t\r\n\v\f)", true, {"a", "b"}},
           {"(a) (b)", true, {"a"}},
           {"() (b)", true, {}},
           {"(a", false, {"a"}},
           {"(a (b", false, {"a", "(b"}},
           {"(a (b (c)", false, {"a", "(b (c)"}},
           {"(a ", false, {"a"}},
           {"(", false, {}},
           {"a)", false, {"a"}},
           {")", false, {}},
           {"a", false, {"a"}},
           {"", false, {}},
           {" \n ", false, {}},
       }) {
    SCOPED_TRACE(row.text);
    Words tokens;
    EXPECT_EQ(SLangParser::parseSExpression(row.text, tokens), row.closed);
    EXPECT_EQ(tokens, row.tokens);
    TokenViews views;
    EXPECT_EQ(splitList(row.text, views), row.closed);
    ASSERT_EQ(views.size(), row.tokens.size());
    for (std::size_t i = 0; i < views.size(); ++i) EXPECT_EQ(views[i], row.tokens[i]);
  }
}

TEST(SplitList, WordsBeforeTheListAreTokensToo) {
  Words tokens;
  EXPECT_TRUE(SLangParser::parseSExpression("ab (c)", tokens));
  EXPECT_THAT(tokens, ElementsAre("ab", "c"));
  EXPECT_TRUE(SLangParser::parseSExpression("ab(c)", tokens));
  EXPECT_THAT(tokens, ElementsAre("ab", "c"));
}

TEST(SplitList, ParenthesisInAPayloadCountsAsOne) {
  Words tokens;
  EXPECT_TRUE(SLangParser::parseSExpression("(say \"a)b\")", tokens));
  EXPECT_THAT(tokens, ElementsAre("say", "\"a"));
  EXPECT_TRUE(SLangParser::parseSExpression("(say a\\))", tokens));
  EXPECT_THAT(tokens, ElementsAre("say", "a\\"));
}

TEST(SplitList, FormerTokensAreDropped) {
  Words tokens{"old"};
  Words comments{"old"};
  EXPECT_TRUE(SLangParser::parseSExpression("(a)", tokens, &comments));
  EXPECT_THAT(tokens, ElementsAre("a"));
  EXPECT_THAT(comments, IsEmpty());
  EXPECT_FALSE(SLangParser::parseSExpression("", tokens, &comments));
  EXPECT_THAT(tokens, IsEmpty());
}

TEST(SplitList, ZeroByteBetweenTokensEndsTheWalk) {
  Words tokens;
  EXPECT_FALSE(SLangParser::parseSExpression(std::string("(a \0)", 5), tokens));
  EXPECT_THAT(tokens, ElementsAre("a"));
  EXPECT_FALSE(SLangParser::parseSExpression(std::string("\0(a)", 4), tokens));
  EXPECT_THAT(tokens, IsEmpty());
}

TEST(SplitList, ZeroByteInsideATokenIsCopied) {
  Words tokens;
  EXPECT_TRUE(SLangParser::parseSExpression(std::string("(a\0b (c \0d))", 12), tokens));
  EXPECT_THAT(tokens, ElementsAre(std::string("a\0b", 3), std::string("(c \0d)", 6)));
}

TEST(SplitList, BytesAboveAsciiAreWordCharacters) {
  Words tokens;
  EXPECT_TRUE(SLangParser::parseSExpression("(\xc3\xa4 \xff\xa0 b)", tokens));
  EXPECT_THAT(tokens, ElementsAre("\xc3\xa4", "\xff\xa0", "b"));
}

TEST(SplitListComments, LineBeforeTheListIsHandedOut) {
  Words tokens;
  Words comments;
  EXPECT_TRUE(SLangParser::parseSExpression("; note\n(a)", tokens, &comments));
  EXPECT_THAT(tokens, ElementsAre("a"));
  EXPECT_THAT(comments, ElementsAre(" note"));
}

TEST(SplitListComments, WithoutAPlaceForThemTheyAreDropped) {
  Words tokens;
  EXPECT_TRUE(SLangParser::parseSExpression("; note\n(a;b\nc)", tokens));
  EXPECT_THAT(tokens, ElementsAre("a", "c"));
}

TEST(SplitListComments, RunToTheLineEndWhateverTheyHold) {
  Words tokens;
  Words comments;
  EXPECT_TRUE(SLangParser::parseSExpression("(a ; x ) (y ; z\nb;\n;last\n)", tokens, &comments));
  EXPECT_THAT(tokens, ElementsAre("a", "b"));
  EXPECT_THAT(comments, ElementsAre(" x ) (y ; z", "", "last"));
}

TEST(SplitListComments, NestedListsKeepTheirsUninterpreted) {
  Words tokens;
  Words comments;
  EXPECT_TRUE(SLangParser::parseSExpression("(a (b ; c) d)", tokens, &comments));
  EXPECT_THAT(tokens, ElementsAre("a", "(b ; c)", "d"));
  EXPECT_THAT(comments, IsEmpty());
}

TEST(SplitListComments, UnendedLineIsKeptThoughTheListFails) {
  Words tokens;
  Words comments;
  EXPECT_FALSE(SLangParser::parseSExpression("(a ; note )", tokens, &comments));
  EXPECT_THAT(tokens, ElementsAre("a"));
  EXPECT_THAT(comments, ElementsAre(" note )"));
}

struct TokenRow {
  std::string text;
  std::string token;
  std::string rest;
};

TEST(ExtractToken, StopsBehindAListAndBeforeADelimiter) {
  for (const TokenRow& row : std::vector<TokenRow>{{"word next", "word", " next"},
                                                   {"word)", "word", ")"},
                                                   {"word(x)", "word", "(x)"},
                                                   {"word;x", "word", ";x"},
                                                   {"word\tx", "word", "\tx"},
                                                   {"(a (b) c)d", "(a (b) c)", "d"},
                                                   {"() ", "()", " "}}) {
    SCOPED_TRACE(row.text);
    Words tokens{"before"};
    auto it = row.text.begin();
    EXPECT_TRUE(SLangParser::extractSExpToken(it, row.text.end(), tokens));
    EXPECT_THAT(tokens, ElementsAre("before", row.token));
    EXPECT_EQ(std::string(it, row.text.end()), row.rest);
  }
}

TEST(ExtractToken, ReachingTheEndGivesTheTokenAndFalse) {
  for (const std::string text : {"word", "(a b)", "(a (b"}) {
    SCOPED_TRACE(text);
    Words tokens;
    auto it = text.begin();
    EXPECT_FALSE(SLangParser::extractSExpToken(it, text.end(), tokens));
    EXPECT_THAT(tokens, ElementsAre(text));
    EXPECT_TRUE(it == text.end());
  }
}

TEST(ExtractToken, NothingIsTakenAtTheEnd) {
  const std::string text = "a";
  Words tokens;
  auto it = text.end();
  EXPECT_FALSE(SLangParser::extractSExpToken(it, text.end(), tokens));
  EXPECT_THAT(tokens, IsEmpty());
}

TEST(ExtractComment, StaysOnTheLineFeed) {
  const std::string text = "; note\nnext";
  Words comments{"before"};
  auto it = text.begin();
  EXPECT_TRUE(SLangParser::extractSExpComment(it, text.end(), &comments));
  EXPECT_THAT(comments, ElementsAre("before", " note"));
  EXPECT_EQ(std::string(it, text.end()), "\nnext");
}

TEST(ExtractComment, WithoutAPlaceForItItIsStillSteppedOver) {
  const std::string text = ";x\n";
  auto it = text.begin();
  EXPECT_TRUE(SLangParser::extractSExpComment(it, text.end(), nullptr));
  EXPECT_EQ(*it, '\n');
}

TEST(ExtractComment, EndOfTheTextGivesTheCommentAndFalse) {
  const std::string text = ";x";
  Words comments;
  auto it = text.begin();
  EXPECT_FALSE(SLangParser::extractSExpComment(it, text.end(), &comments));
  EXPECT_THAT(comments, ElementsAre("x"));
}

TEST(ExtractComment, NeedsASemicolon) {
  const std::string text = "a;b\n";
  Words comments;
  auto it = text.begin();
  EXPECT_FALSE(SLangParser::extractSExpComment(it, text.end(), &comments));
  EXPECT_TRUE(it == text.begin());
  it = text.end();
  EXPECT_FALSE(SLangParser::extractSExpComment(it, text.end(), &comments));
  EXPECT_THAT(comments, IsEmpty());
}

}  // namespace
