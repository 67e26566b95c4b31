#include "fuzz/ReadingInPlace.h"

#include <bit>
#include <cmath>
#include <cstdlib>
#include <sstream>
#include <vector>

#include "fuzz/Input.h"
#include "math/NumberText.h"
#include "perception/ListView.h"
#include "perception/NumberReaders.h"
#include "perception/SLangParser.h"
#include "perception/Tokenizer.h"

namespace fuzz {
namespace {

bool isSame(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
         (std::isnan(a) && std::isnan(b));
}

/// In memory of its own size, so that a step beyond the end is seen.
class Exactly {
 public:
  explicit Exactly(const std::string& text) : bytes_(text.begin(), text.end()) {}
  [[nodiscard]] std::string_view view() const { return {bytes_.data(), bytes_.size()}; }

 private:
  std::vector<char> bytes_;
};

}  // namespace

void readListInPlace(const std::string& text) {
  const Exactly exact(text);
  std::vector<std::string> tokens;
  const bool whole = SLangParser::parseSExpression(text, tokens);
  TokenViews views;
  demand(splitList(exact.view(), views) == whole, "views end as strings do");
  demand(views.size() == tokens.size(), "views are as many as strings");
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    demand(views[i] == tokens[i], "a view is the string");
  }
  for (const char delimiter : {'(', ' '}) {
    Tokenizer words(text, std::string(1, delimiter));
    Pieces pieces(exact.view(), delimiter);
    for (;;) {
      const std::string word = words.next();
      demand(pieces.next() == word, "a piece is the token");
      if (word.empty()) break;
    }
  }
}

void readNumbersInPlace(const std::string& text) {
  const Exactly exact(text);
  const std::string_view view = exact.view();
  demand(isSame(decimalAtFront(view), std::strtod(text.c_str(), nullptr)),
         "a decimal is what the C library reads");
  demand(integerAtFront(view) == static_cast<int>(std::strtol(text.c_str(), nullptr, 10)),
         "an integer is what the C library reads");
  demand(isSame(firstDouble(view), SLangParser::parseFirstDouble(text)), "one first number");
  for (const int start : {0, 1, static_cast<int>(text.size())}) {
    demand(firstInt(view, start) == SLangParser::parseFirstInt(text, start), "one first integer");
  }
  writeNumber(decimalAtFront(view));
  writeNumber(firstDouble(view));
}

void writeNumber(double value) {
  std::ostringstream plain;
  plain << value;
  std::string text = "x";
  appendShort(text, value);
  demand(text == "x" + plain.str(), "a short number is what a stream writes");
  for (const int decimals : {2, 6}) {
    std::ostringstream fixed;
    fixed << std::fixed;
    fixed.precision(decimals);
    fixed << value;
    text = "x";
    appendFixed(text, value, decimals);
    demand(text == "x" + fixed.str(), "a fixed number is what a stream writes");
  }
}

}  // namespace fuzz
