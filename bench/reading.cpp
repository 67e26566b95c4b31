// How fast are the server's messages read? The lists of a recorded match, split down to their words
// as the decoders do it, and made into a tree; beside them Debian's library for S-expressions,
// which makes a tree of the same messages, or tells the words as events and keeps nothing. Then the
// numbers of these messages, beside the C and the C++ library's readers.
//
//   reading [passes over the messages, default 41] [--json FILE]

#include <sfsexp/sexp.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "bench/Report.h"
#include "bench/Ways.h"
#include "perception/ListView.h"
#include "perception/NumberReaders.h"
#include "perception/SLangParser.h"
#include "tests/record/Match.h"

namespace {

/// Every so manieth message of the session: what is read lies in the processor's nearer memory, as
/// a message does that has just come.
constexpr int kEvery = 8;

bool split(std::string_view text, TokenViews& tokens) {
  return splitList(text, tokens);
}

bool split(const std::string& text, std::vector<std::string>& tokens) {
  return SLangParser::parseSExpression(text, tokens);
}

/// A tree in one row of memory: a word, or a list with its children next to each other.
template <typename Text>
struct Node {
  Text word{};
  std::uint32_t firstChild = 0;
  std::uint32_t children = 0;
};

/// How a way of reading keeps a word, and a list's tokens while it goes through them.
struct ByViews {
  using Word = std::string_view;
  using Tokens = TokenViews;
};
struct ByStrings {
  using Word = std::string;
  using Tokens = std::vector<std::string>;
};

template <typename By>
using Tree = std::vector<Node<typename By::Word>>;

/// Appends what the list TEXT holds to TREE, as children of the element at PARENT.
template <typename By>
bool addChildren(const typename By::Word& text, Tree<By>& tree, std::size_t parent) {
  typename By::Tokens tokens;
  bool whole = split(text, tokens);
  const std::size_t first = tree.size();
  tree[parent].firstChild = static_cast<std::uint32_t>(first);
  tree[parent].children = static_cast<std::uint32_t>(tokens.size());
  tree.resize(first + tokens.size());
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const typename By::Word& token = tokens[i];
    if (token.front() == '(') {
      whole = addChildren<By>(token, tree, first + i) && whole;
    } else {
      tree[first + i].word = token;
    }
  }
  return whole;
}

template <typename By>
bool makeTree(const std::string& text, Tree<By>& tree) {
  tree.clear();
  tree.emplace_back();
  return addChildren<By>(text, tree, 0);
}

template <typename By>
std::size_t wordsOf(const Tree<By>& tree) {
  return static_cast<std::size_t>(
      std::count_if(tree.begin(), tree.end(), [](const auto& node) { return !node.word.empty(); }));
}

/// Splits TEXT level by level; what isn't a list goes to VISIT.
template <typename By, typename Visit>
void splitDown(const typename By::Word& text, Visit visit) {
  typename By::Tokens tokens;
  split(text, tokens);
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const typename By::Word& token = tokens[i];
    if (token.front() == '(') {
      splitDown<By>(token, visit);
    } else {
      visit(token);
    }
  }
}

std::size_t wordsOf(const sexp_t* element) {
  std::size_t words = 0;
  for (; element != nullptr; element = element->next) {
    words += element->ty == SEXP_LIST ? wordsOf(element->list) : 1;
  }
  return words;
}

sexp_t* libraryTree(std::string& text) {
  return parse_sexp(text.data(), text.size());
}

std::size_t eventWords = 0;  // the library's events carry no context

struct Events {
  parser_event_handlers_t handlers{
      [] {}, [] {},
      [](const char* /*data*/, std::size_t /*size*/, atom_t /*kind*/) { ++eventWords; }, nullptr};
  pcont_t* state = nullptr;
};

std::size_t libraryEvents(std::string& text) {
  Events events;
  events.state = init_continuation(nullptr);
  events.state->mode = PARSER_EVENTS_ONLY;
  events.state->event_handlers = &events.handlers;
  eventWords = 0;
  cparse_sexp(text.data(), text.size(), events.state);
  destroy_continuation(events.state);
  return eventWords;
}

/// Messages as the link hands them out, of which both readers make trees with as many words.
std::vector<std::string> readableMessages() {
  std::vector<std::string> messages;
  Match match(5, true);
  for (int i = 0; !match.IsOver(); ++i) {
    std::string message = "(" + match.NextMessage() + ")";
    if (i % kEvery != 0) continue;
    Tree<ByViews> ours;
    if (!makeTree<ByViews>(message, ours)) continue;
    sexp_t* theirs = libraryTree(message);
    if (theirs != nullptr && wordsOf(theirs) == wordsOf<ByViews>(ours)) messages.push_back(message);
    if (theirs != nullptr) destroy_sexp(theirs);
  }
  return messages;
}

bool isNumber(const std::string& word) {
  return word.find_first_not_of("+-.0123456789") == std::string::npos &&
         word.find_first_of("0123456789") != std::string::npos;
}

volatile double sink = 0;  // keeps the results from being left out

template <typename By>
std::size_t everyWord(const std::string& text) {
  std::size_t words = 0;
  splitDown<By>(text, [&words](const auto& /*word*/) { ++words; });
  return words;
}

/// The tree is made anew each time, in the memory of the one before.
template <typename By>
auto wholeTree() {
  return [tree = Tree<By>()](const std::string& text) mutable {
    makeTree<By>(text, tree);
    return tree.size();
  };
}

void lists(bench::Report& report, std::vector<std::string>& messages, int passes) {
  const auto each = [&messages](auto read) {
    return [&messages, read]() mutable {
      std::size_t sum = 0;
      for (std::string& message : messages) sum += read(message);
      sink = static_cast<double>(sum);
    };
  };
  double bytes = 0;
  for (const std::string& message : messages) bytes += static_cast<double>(message.size());
  const std::vector<bench::Way> ways{
      {"player, every word where it stands", each(everyWord<ByViews>)},
      {"player, every word as a string", each(everyWord<ByStrings>)},
      {"player, a tree of the text", each(wholeTree<ByViews>())},
      {"player, a tree of strings", each(wholeTree<ByStrings>())},
      {"libsexp, a tree", each([](std::string& text) {
         sexp_t* tree = libraryTree(text);
         const std::size_t found = tree != nullptr ? 1 : 0;
         destroy_sexp(tree);
         return found;
       })},
      {"libsexp, events", each(libraryEvents)}};
  bench::timeByTurns(report, ways, passes, "MB/s",
                     [bytes](double seconds) { return bytes / seconds / 1e6; });
  report.addRatio(ways[0].name, "libsexp, a tree", bench::atLeast(3));
  report.addRatio(ways[1].name, "libsexp, a tree");
  report.addRatio(ways[2].name, "libsexp, a tree", bench::atLeast(3));
  report.addRatio(ways[3].name, "libsexp, a tree");
  report.addRatio(ways[0].name, "libsexp, events");
}

void numbers(bench::Report& report, const std::vector<std::string>& messages, int passes) {
  std::vector<std::string> words;
  for (const std::string& message : messages) {
    splitDown<ByStrings>(message, [&words](const std::string& word) {
      if (isNumber(word)) words.push_back(word);
    });
  }
  const auto each = [&words](auto read) {
    return [&words, read] {
      double sum = 0;
      for (const std::string& word : words) sum += read(word);
      sink = sum;
    };
  };
  const std::vector<bench::Way> ways{
      {"player, a number",
       each([](const std::string& word) { return SLangParser::parseFirstDouble(word); })},
      {"player, a number as strtod reads it",
       each([](const std::string& word) { return decimalAtFront(word); })},
      {"strtod, a number",
       each([](const std::string& word) { return std::strtod(word.c_str(), nullptr); })},
      {"from_chars, a number", each([](const std::string& word) {
         double value = 0;
         std::from_chars(word.data(), word.data() + word.size(), value);
         return value;
       })}};
  const auto count = static_cast<double>(words.size());
  bench::timeByTurns(report, ways, passes, "ns",
                     [count](double seconds) { return seconds * 1e9 / count; });
  report.addRatio(ways[0].name, "strtod, a number");
  report.addRatio(ways[1].name, "strtod, a number");
}

int run(int argc, char** argv) {
  const std::string file = bench::takeJsonFile(argc, argv);
  const int passes = argc > 1 ? std::max(1, std::atoi(argv[1])) : 41;
  std::vector<std::string> messages = readableMessages();
  bench::Report report("reading");
  lists(report, messages, passes);
  numbers(report, messages, passes);
  std::cout << messages.size() << " messages\n" << report.asTable();
  if (!file.empty()) report.save(file);
  sexp_cleanup();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "reading: " << error.what() << '\n';
    return 1;
  }
}
