// How fast are the server's messages read? The lists of a recorded match, split down to their words
// as the decoders do it, and made into a tree; beside them Debian's library for S-expressions,
// which makes a tree of the same messages, or tells the words as events and keeps nothing. Then the
// numbers of these messages, beside the C and the C++ library's readers.
//
//   reading [passes over the messages, default 41] [--json FILE]

#include <sfsexp/sexp.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "bench/Report.h"
#include "perception/SLangParser.h"
#include "tests/record/Match.h"

namespace {

using Clock = std::chrono::steady_clock;

/// Every so manieth message of the session: what is read lies in the processor's nearer memory, as
/// a message does that has just come.
constexpr int kEvery = 8;

/// One list or one word.
struct Node {
  std::string word{};
  std::vector<Node> list{};
};

bool makeTree(const std::string& text, Node& node) {
  std::vector<std::string> tokens;
  if (!SLangParser::parseSExpression(text, tokens)) return false;
  node.list.resize(tokens.size());
  bool whole = true;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i].front() == '(') {
      whole = makeTree(tokens[i], node.list[i]) && whole;
    } else {
      node.list[i].word = std::move(tokens[i]);
    }
  }
  return whole;
}

std::size_t wordsOf(const Node& node) {
  std::size_t words = node.list.empty() ? 1 : 0;
  for (const Node& one : node.list) words += wordsOf(one);
  return words;
}

/// Splits TEXT level by level; what isn't a list goes to WORD.
template <typename Word>
void splitDown(const std::string& text, Word word) {
  std::vector<std::string> tokens;
  SLangParser::parseSExpression(text, tokens);
  for (const std::string& token : tokens) {
    if (token.front() == '(') {
      splitDown(token, word);
    } else {
      word(token);
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
    Node ours;
    if (!makeTree(message, ours) || ours.list.empty()) continue;
    sexp_t* theirs = libraryTree(message);
    if (theirs != nullptr && wordsOf(theirs) == wordsOf(ours)) messages.push_back(message);
    if (theirs != nullptr) destroy_sexp(theirs);
  }
  return messages;
}

bool isNumber(const std::string& word) {
  return word.find_first_not_of("+-.0123456789") == std::string::npos &&
         word.find_first_of("0123456789") != std::string::npos;
}

struct Way {
  std::string name;
  std::function<void()> pass;  ///< over all of the input
  std::vector<double> figures{};
};

/// The ways by turns: a machine that gets busier falls on all of them. PERPASS is what a pass
/// amounts to; the figure is that over the time, or the time over that.
void measure(std::vector<Way>& ways, int passes, const std::function<double(double)>& figure) {
  for (Way& way : ways) way.pass();
  for (int i = 0; i < passes; ++i) {
    for (Way& way : ways) {
      const Clock::time_point start = Clock::now();
      way.pass();
      way.figures.push_back(figure(std::chrono::duration<double>(Clock::now() - start).count()));
    }
  }
}

volatile double sink = 0;  // keeps the results from being left out

void lists(bench::Report& report, std::vector<std::string>& messages, int passes) {
  const auto each = [&messages](auto read) {
    return [&messages, read] {
      std::size_t words = 0;
      for (std::string& message : messages) words += read(message);
      sink = static_cast<double>(words);
    };
  };
  std::vector<Way> ways{{"player, every word", each([](const std::string& text) {
                           std::size_t words = 0;
                           splitDown(text, [&words](const std::string& /*word*/) { ++words; });
                           return words;
                         })},
                        {"player, a tree", each([](const std::string& text) {
                           Node node;
                           makeTree(text, node);
                           return node.list.size();
                         })},
                        {"libsexp, a tree", each([](std::string& text) {
                           sexp_t* tree = libraryTree(text);
                           const std::size_t found = tree != nullptr ? 1 : 0;
                           destroy_sexp(tree);
                           return found;
                         })},
                        {"libsexp, events", each(libraryEvents)}};
  double bytes = 0;
  for (const std::string& message : messages) bytes += static_cast<double>(message.size());
  measure(ways, passes, [bytes](double seconds) { return bytes / seconds / 1e6; });
  for (Way& way : ways) {
    bench::Figure figure = bench::figureOf(way.name, "MB/s", std::move(way.figures));
    figure.p99.reset();  // the fast end says nothing
    figure.max.reset();
    report.add(std::move(figure));
  }
  report.addRatio("player, every word", "libsexp, a tree", bench::atLeast(3));
  report.addRatio("player, a tree", "libsexp, a tree");
  report.addRatio("player, every word", "libsexp, events");
}

void numbers(bench::Report& report, const std::vector<std::string>& messages, int passes) {
  std::vector<std::string> words;
  for (const std::string& message : messages) {
    splitDown(message, [&words](const std::string& word) {
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
  std::vector<Way> ways{
      {"player, a number",
       each([](const std::string& word) { return SLangParser::parseFirstDouble(word); })},
      {"strtod, a number",
       each([](const std::string& word) { return std::strtod(word.c_str(), nullptr); })},
      {"from_chars, a number", each([](const std::string& word) {
         double value = 0;
         std::from_chars(word.data(), word.data() + word.size(), value);
         return value;
       })}};
  const auto count = static_cast<double>(words.size());
  measure(ways, passes, [count](double seconds) { return seconds * 1e9 / count; });
  for (Way& way : ways) report.add(bench::figureOf(way.name, "ns", std::move(way.figures)));
  report.addRatio("player, a number", "strtod, a number");
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
