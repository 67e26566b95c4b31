#pragma once

/// Splits a text at a set of delimiter characters. The decoders that trust the layout of their
/// element use it in place of lists.

#include <string>

/// Blank, tab, vertical tab, line feed, carriage return, form feed.
extern const std::string DEFAULT_DELIMITER;

class Tokenizer {
 public:
  std::string buffer;                   ///< the text
  std::string token;                    ///< the word being built
  std::string delimiter;                ///< the set of delimiters
  std::string::const_iterator currPos;  ///< into buffer

  Tokenizer();
  Tokenizer(const std::string& text, const std::string& delimiters);
  // A copy would point into the other's buffer.
  Tokenizer(const Tokenizer&) = delete;
  Tokenizer& operator=(const Tokenizer&) = delete;

  // Each of these starts again at the front.
  void set(const std::string& text, const std::string& delimiters = DEFAULT_DELIMITER);
  void setString(const std::string& text);
  void setDelimiter(const std::string& delimiters);

  /// The next token. An empty one, and only that, means the end.
  std::string next();

  [[nodiscard]] bool isDelimiter(char c) const;
  void skipDelimiter();
};
