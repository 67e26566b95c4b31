#pragma once

/// Lists and words where they stand in a message: splitting that copies nothing. The decoders work
/// with it; SLangParser::parseSExpression hands out the same tokens as strings of their own. All
/// views are good as long as the text they were taken from.

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

/// As isspace tells it in the C locale, which the player never leaves.
constexpr bool isSpace(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

/// The end of the token at IT, which isn't END: behind the parenthesis that closes a list, or on
/// the character that ends a word. END when that never comes.
const char* endOfToken(const char* it, const char* end);

/// The tokens of one list. Those of usual lists have room in the object itself.
class TokenViews {
 public:
  // The room for a few tokens is left as it is: setting it for each list would cost as much as
  // splitting the list.
  TokenViews() {}  // NOLINT(modernize-use-equals-default)
  TokenViews(const TokenViews&) = delete;
  TokenViews& operator=(const TokenViews&) = delete;
  ~TokenViews() = default;

  void clear() { size_ = 0; }
  void push_back(const char* start, const char* end) {
    if (size_ < kFew) {
      few_[size_++] = {start, end};
    } else {
      pushBehindTheFew({start, end});
    }
  }
  [[nodiscard]] std::size_t size() const { return size_; }
  std::string_view operator[](std::size_t i) const {
    const Range& range = size_ <= kFew ? few_[i] : many_[i];
    return {range.start, static_cast<std::size_t>(range.end - range.start)};
  }

 private:
  struct Range {
    const char* start;
    const char* end;
  };
  /// More than the elements of a message, and than the objects of a full sight.
  static constexpr std::size_t kFew = 40;

  void pushBehindTheFew(Range token);

  std::array<Range, kFew> few_;
  std::vector<Range> many_{};  ///< all of them, once they are more than that
  std::size_t size_ = 0;
};

/// SLangParser::parseSExpression by views, without its comments.
bool splitList(std::string_view text, TokenViews& tokens);

/// The pieces of a text between delimiters, as a Tokenizer with this one delimiter tells them.
class Pieces {
 public:
  Pieces(std::string_view text, char delimiter) : rest_(text), delimiter_(delimiter) {}
  /// An empty one, and only that, means the end.
  std::string_view next();

 private:
  std::string_view rest_;
  char delimiter_;
};
