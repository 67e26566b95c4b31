#include "perception/ListView.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace {

constexpr bool endsWord(char c) {
  return isSpace(c) || c == ')' || c == '(' || c == ';';
}

constexpr std::array<bool, 256> kEndsWord = [] {
  std::array<bool, 256> ends{};
  for (int c = 0; c < 256; ++c) ends[static_cast<std::size_t>(c)] = endsWord(static_cast<char>(c));
  return ends;
}();

inline const char* endOfWord(const char* it, const char* end) {
  while (it != end && !kEndsWord[static_cast<unsigned char>(*it)]) ++it;
  return it;
}

constexpr std::uint64_t kEachByte = 0x0101010101010101;

/// The top bit of each of eight characters that is a parenthesis: "(" and ")" are neighbours that
/// differ in their lowest bit, so with that bit cleared both are zero against "(".
std::uint64_t parenthesesIn(std::uint64_t eight) {
  constexpr std::uint64_t kLow7 = 0x7f * kEachByte;
  const std::uint64_t other = (eight & ~kEachByte) ^ (std::uint64_t{'('} * kEachByte);
  return ~(((other & kLow7) + kLow7) | other | kLow7);
}

/// Behind the parenthesis that closes the one at IT. Eight characters at a time, since each nesting
/// of a message is walked through once more.
const char* endOfList(const char* it, const char* end) {
  static_assert('(' + 1 == ')' && '(' % 2 == 0 && std::endian::native == std::endian::little);
  int depth = 1;
  for (++it; end - it >= 8; it += 8) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, it, sizeof(eight));
    for (std::uint64_t found = parenthesesIn(eight); found != 0; found &= found - 1) {
      const int bits = std::countr_zero(found) - 7;
      depth += ((eight >> bits) & 1U) != 0 ? -1 : 1;
      if (depth == 0) {
        return it + bits / 8 + 1;
      }
    }
  }
  for (; it != end; ++it) {
    depth += static_cast<int>(*it == '(') - static_cast<int>(*it == ')');
    if (depth == 0) {
      return it + 1;
    }
  }
  return end;
}

}  // namespace

const char* endOfToken(const char* it, const char* end) {
  return *it == '(' ? endOfList(it, end) : endOfWord(it, end);
}

void TokenViews::pushBehindTheFew(Range token) {
  if (size_ == kFew) {
    many_.reserve(2 * kFew);
    many_.assign(few_.begin(), few_.end());
  }
  many_.push_back(token);
  ++size_;
}

bool splitList(std::string_view text, TokenViews& tokens) {
  tokens.clear();
  const char* it = text.data();
  const char* const end = it + text.size();
  // Nearly every text begins with its list.
  bool open = it != end && *it == '(';
  it += open ? 1 : 0;
  while (it != end) {
    const char* const start = it;
    const char c = *it;
    if (!kEndsWord[static_cast<unsigned char>(c)] && c != '\0') {
      it = endOfWord(it + 1, end);
      tokens.push_back(start, it);
    } else if (isSpace(c)) {
      ++it;
    } else if (c == '(' && open) {
      it = endOfList(it, end);
      tokens.push_back(start, it);
    } else if (c == '(') {
      open = true;
      ++it;
    } else if (c == ')') {
      return open;
    } else if (c == ';') {
      it = std::find(it, end, '\n');
    } else {
      return false;
    }
  }
  return false;
}

std::string_view Pieces::next() {
  rest_.remove_prefix(std::min(rest_.find_first_not_of(delimiter_), rest_.size()));
  const std::size_t length = std::min(rest_.find(delimiter_), rest_.size());
  const std::string_view piece = rest_.substr(0, length);
  rest_.remove_prefix(length);
  return piece;
}
