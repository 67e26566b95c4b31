#include "perception/ListView.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "perception/SLangParser.h"
#include "perception/Tokenizer.h"

namespace {

struct Split {
  bool closed = false;
  std::vector<std::string> tokens{};

  bool operator==(const Split&) const = default;
};

/// The rules once more, a character at a time.
Split splitByTheRules(const std::string& text) {
  Split split;
  bool open = false;
  for (std::size_t i = 0; i < text.size();) {
    const char c = text[i];
    if (std::string(" \t\n\v\f\r").find(c) != std::string::npos) {
      ++i;
    } else if (c == '\0') {
      return split;
    } else if (c == ')') {
      split.closed = open;
      return split;
    } else if (c == ';') {
      while (i < text.size() && text[i] != '\n') ++i;
    } else if (c == '(' && !open) {
      open = true;
      ++i;
    } else {
      std::string token;
      int depth = 0;
      const bool list = c == '(';
      while (i < text.size()) {
        if (!list && std::string(" \t\n\v\f\r();").find(text[i]) != std::string::npos) break;
        depth += text[i] == '(' ? 1 : text[i] == ')' ? -1 : 0;
        token += text[i++];
        if (list && depth == 0) break;
      }
      split.tokens.push_back(token);
    }
  }
  return split;
}

Split splitByViews(const std::string& text) {
  TokenViews tokens;
  Split split{splitList(text, tokens)};
  for (std::size_t i = 0; i < tokens.size(); ++i) split.tokens.emplace_back(tokens[i]);
  return split;
}

Split splitByStrings(const std::string& text) {
  Split split;
  split.closed = SLangParser::parseSExpression(text, split.tokens);
  return split;
}

std::string randomText(std::mt19937& random, const std::string& characters, std::size_t longest) {
  std::string text(random() % (longest + 1), ' ');
  std::generate(text.begin(), text.end(), [&] { return characters[random() % characters.size()]; });
  return text;
}

TEST(SplitByViews, RandomTextsSplitByTheRules) {
  const std::string characters = std::string("((()))  ab;\n\t'*") + '\0' + '\xa8' + '\xa9';
  std::mt19937 random(17);
  for (int i = 0; i < 200'000; ++i) {
    std::string text = randomText(random, characters, 60);
    if (i % 2 == 0) text.insert(0, "(");
    const Split expected = splitByTheRules(text);
    ASSERT_EQ(splitByViews(text), expected) << "of: " << text;
    ASSERT_EQ(splitByStrings(text), expected) << "of: " << text;
  }
}

TEST(SplitByViews, ListEndsWhereItsParenthesisStands) {
  // Every length before the parenthesis and behind it, so that each place within a block occurs.
  for (std::size_t before = 0; before < 20; ++before) {
    for (std::size_t behind = 0; behind < 20; ++behind) {
      const std::string inner = "(" + std::string(before, 'x') + ")";
      const std::string text = "(" + inner + std::string(behind, 'y') + ")";
      const Split split = splitByViews(text);
      ASSERT_TRUE(split.closed);
      ASSERT_EQ(split.tokens.front(), inner);
    }
  }
}

TEST(SplitByViews, ListsOfAnyLengthKeepTheirOrder) {
  std::string text = "(";
  std::vector<std::string> words;
  for (int i = 0; i < 300; ++i) {
    TokenViews tokens;
    const std::string closed = text + ")";
    ASSERT_TRUE(splitList(closed, tokens));
    ASSERT_EQ(tokens.size(), words.size());
    for (std::size_t j = 0; j < words.size(); ++j) ASSERT_EQ(tokens[j], words[j]);
    words.push_back("w" + std::to_string(i));
    text += " " + words.back();
  }
}

TEST(SplitByViews, TokensOfALongListAreForgotten) {
  std::string many = "(";
  for (int i = 0; i < 100; ++i) many += "a ";
  many += ")";
  TokenViews tokens;
  ASSERT_TRUE(splitList(many, tokens));
  ASSERT_EQ(tokens.size(), 100U);
  ASSERT_TRUE(splitList("(b c)", tokens));
  ASSERT_EQ(tokens.size(), 2U);
  EXPECT_EQ(tokens[1], "c");
}

TEST(Pieces, AreThoseOfATokenizerWithTheSameDelimiter) {
  std::mt19937 random(18);
  for (int i = 0; i < 20'000; ++i) {
    const std::string text = randomText(random, "((ab )", 20);
    const char delimiter = i % 2 == 0 ? '(' : ' ';
    Tokenizer tokenizer(text, std::string(1, delimiter));
    Pieces pieces(text, delimiter);
    for (int piece = 0; piece < 25; ++piece) ASSERT_EQ(pieces.next(), tokenizer.next()) << text;
  }
}

}  // namespace
