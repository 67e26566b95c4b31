/// The player's readers of S-expressions, words and numbers. The input is one text.

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "fuzz/Input.h"
#include "fuzz/ReadingInPlace.h"
#include "perception/DataHolder.h"
#include "perception/HeardReport.h"
#include "perception/SLangParser.h"
#include "perception/Tokenizer.h"
#include "perception/WorldModel.h"

namespace {

using fuzz::demand;

/// Deeper lists are read by nobody, and each level costs a pass over what is inside.
constexpr int kDeepest = 40;

void readLists(const std::string& text, int depth) {
  std::vector<std::string> tokens;
  std::vector<std::string> comments;
  SLangParser::parseSExpression(text, tokens, &comments);
  fuzz::readListInPlace(text);
  for (const std::string& token : tokens) {
    // The decoders look at a token's first two characters without asking.
    demand(!token.empty(), "no token is empty");
    demand(text.find(token) != std::string::npos, "a token stands in the text");
    if (token.front() != '(') continue;
    demand(token.size() < text.size(), "a list is shorter than the one around it");
    if (depth < kDeepest) readLists(token, depth + 1);
  }
}

void readNumbers(const std::string& text, int start) {
  fuzz::readNumbersInPlace(text);
  SLangParser::parseFirstDouble(text);
  for (const int from : {0, start, -1, static_cast<int>(text.size())}) {
    SLangParser::parseFirstInt(text, from);
  }
}

void readWords(const std::string& text, char delimiter) {
  unsigned int at = 0;
  while (at < text.size()) {
    const unsigned int before = at;
    const std::string word = SLangParser::parseFirstWord(text, &at);
    demand(at > before, "a word moves the place on");
    readNumbers(word, 1);
  }
  at = 0;
  for (unsigned int before = 0;; before = at) {
    SLangParser::parseFirstQuote(text, &at);
    if (at == before) break;
    demand(at > before && at <= text.size(), "a quote moves the place on");
  }
  const std::string trimmed = SLangParser::trim(text);
  demand(SLangParser::trim(trimmed) == trimmed, "trimming once is enough");

  std::vector<std::string> pieces;
  SLangParser::parseByCharDelim(text, delimiter, pieces);
  for (const std::string& piece : pieces) {
    demand(!piece.empty() && piece.find(delimiter) == std::string::npos,
           "a piece is free of the delimiter");
  }
}

void readTokens(const std::string& text, const std::string& delimiters) {
  Tokenizer words(text, delimiters);
  std::size_t total = 0;
  for (std::string word = words.next(); !word.empty(); word = words.next()) {
    demand(word.find_first_of(delimiters) == std::string::npos, "a token is free of delimiters");
    total += word.size();
    demand(total <= text.size(), "tokens are no longer than the text");
  }
}

void keepData(const std::string& text) {
  DataHolder holder;
  holder.getData(text)->setValue(text);
  holder.addData(TGenericData(SLangParser::parseFirstDouble(text)));
  const TGenericData sum = *holder.data.front() + *holder.data.back();
  const DataHolder copy(holder);
  demand(copy.findData(text) != nullptr && *copy.findData(text) == *holder.findData(text),
         "a copy holds the same");
}

/// The bits of a number of any kind, those that no text is likely to hold.
void writeNumbers(const std::string& text) {
  for (std::size_t at = 0; at + sizeof(double) <= text.size() && at < 80; at += sizeof(double)) {
    double value = 0;
    std::memcpy(&value, text.data() + at, sizeof(value));
    fuzz::writeNumber(value);
    fuzz::writeNumber(static_cast<double>(static_cast<float>(value)));
    fuzz::writeNumber(std::round(std::fmod(value, 1e6) * 1000) / 1000);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const char first = text.empty() ? ' ' : text.front();
  readLists(text, 0);
  readLists('(' + text + ')', 0);
  readNumbers(text, static_cast<unsigned char>(first));
  readWords(text, first);
  readTokens(text, DEFAULT_DELIMITER);
  readTokens(text, "(");
  keepData(text);
  writeNumbers(text);
  applyHeardReport(text);
  WorldModel::freeSingleton();
  return 0;
}
