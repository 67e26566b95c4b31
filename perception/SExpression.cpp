/// SLangParser: lists and words.

#include "perception/SLangParser.h"

#include <algorithm>

#include "perception/ListView.h"

bool SLangParser::parseSExpression(const std::string& text, std::vector<std::string>& tokens,
                                   std::vector<std::string>* comments) {
  tokens.clear();
  if (comments != nullptr) {
    comments->clear();
  }
  bool open = false;
  iterator it = text.begin();
  const iterator end = text.end();
  while (it != end) {
    const char c = *it;
    if (isSpace(c)) {
      ++it;
    } else if (c == '\0') {
      return false;
    } else if (c == ')') {
      return open;
    } else if (c == ';') {
      extractSExpComment(it, end, comments);
    } else if (c == '(' && !open) {
      open = true;
      ++it;
    } else if (!extractSExpToken(it, end, tokens)) {
      return false;
    }
  }
  return false;
}

bool SLangParser::extractSExpToken(iterator& it, const iterator& end,
                                   std::vector<std::string>& tokens) {
  if (it == end) {
    return false;
  }
  const iterator start = it;
  const char* const front = &*it;
  it += endOfToken(front, front + (end - it)) - front;
  tokens.emplace_back(start, it);
  return it != end;
}

bool SLangParser::extractSExpComment(iterator& it, const iterator& end,
                                     std::vector<std::string>* comments) {
  if (it == end || *it != ';') {
    return false;
  }
  ++it;
  const iterator start = it;
  it = std::find(it, end, '\n');
  if (comments != nullptr) {
    comments->emplace_back(start, it);
  }
  return it != end;
}

char SLangParser::gotoFirstNonSpace(iterator& it, const iterator& end) {
  it = std::find_if_not(it, end, isSpace);
  return it == end ? '\0' : *it;
}

std::string SLangParser::parseFirstWord(const std::string& text, unsigned int* pos) {
  unsigned int own = 0;
  unsigned int& at = pos != nullptr ? *pos : own;
  while (at < text.size() && isSpace(text[at])) {
    ++at;
  }
  const std::size_t start = std::min<std::size_t>(at, text.size());
  const std::size_t stop = std::min(text.find_first_of(" \t\n", start), text.size());
  at = static_cast<unsigned int>(std::min(stop + 1, text.size()));
  return text.substr(start, stop - start);
}

std::string SLangParser::parseFirstQuote(const std::string& text, unsigned int* pos) {
  const std::size_t opening = text.find('\'', pos != nullptr ? *pos : 0);
  if (opening == std::string::npos) {
    return {};
  }
  const std::size_t closing = text.find('\'', opening + 1);
  if (closing == std::string::npos) {
    return {};
  }
  if (pos != nullptr) {
    *pos = static_cast<unsigned int>(closing + 1);
  }
  return text.substr(opening + 1, closing - opening - 1);
}

std::string SLangParser::trim(const std::string& text) {
  const auto first = std::find_if_not(text.begin(), text.end(), isSpace);
  const auto last = std::find_if_not(text.rbegin(), text.rend(), isSpace).base();
  return first < last ? std::string(first, last) : std::string();
}

bool SLangParser::parseByCharDelim(std::string text, const char& delim,
                                   std::vector<std::string>& out) {
  if (text.empty()) {
    return false;
  }
  text += delim;
  std::string word;
  for (const char c : text) {
    if (c != delim) {
      word += c;
    } else if (!word.empty()) {
      out.push_back(word);
      word.clear();
    }
  }
  return true;
}
