#include "perception/Tokenizer.h"

const std::string DEFAULT_DELIMITER = " \t\v\n\r\f";

Tokenizer::Tokenizer() : delimiter(DEFAULT_DELIMITER), currPos(buffer.cbegin()) {}

Tokenizer::Tokenizer(const std::string& text, const std::string& delimiters)
    : buffer(text), delimiter(delimiters), currPos(buffer.cbegin()) {}

void Tokenizer::set(const std::string& text, const std::string& delimiters) {
  buffer = text;
  delimiter = delimiters;
  currPos = buffer.cbegin();
}

void Tokenizer::setString(const std::string& text) {
  buffer = text;
  currPos = buffer.cbegin();
}

void Tokenizer::setDelimiter(const std::string& delimiters) {
  delimiter = delimiters;
  currPos = buffer.cbegin();
}

std::string Tokenizer::next() {
  if (buffer.empty()) {
    return {};
  }
  skipDelimiter();
  const auto start = currPos;
  while (currPos != buffer.cend() && !isDelimiter(*currPos)) {
    ++currPos;
  }
  token.assign(start, currPos);
  return token;
}

bool Tokenizer::isDelimiter(char c) const {
  return delimiter.find(c) != std::string::npos;
}

void Tokenizer::skipDelimiter() {
  while (currPos != buffer.cend() && isDelimiter(*currPos)) {
    ++currPos;
  }
}
