#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "tests/record/Excerpts.h"
#include "tests/record/Record.h"
#include "tests/record/Session.h"

namespace {

constexpr long long kClock = 1'234'567'890;

using Shirt = std::tuple<bool, int>;

[[nodiscard]] std::string NameOf(bool left, int number) {
  return (left ? "left_" : "right_") + std::to_string(number);
}

[[nodiscard]] std::string Content(const std::string& path) {
  std::ifstream file(path);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

void WriteTranscript(const std::string& path, const std::vector<Turn>& turns) {
  std::ofstream file(path);
  for (std::size_t i = 0; i < turns.size(); ++i) {
    file << "> " << turns[i].message << '\n' << i << '\n' << InFull(turns[i]);
  }
}

class RecordedSession : public ::testing::TestWithParam<Shirt> {};

TEST_P(RecordedSession, AnswersAreThoseOfTheRecord) {
  const auto [left, number] = GetParam();
  const std::string name = NameOf(left, number);
  const std::string path = PITCH_SOURCE_DIR "/tests/record/golden/" + name + ".txt";
  const std::vector<Turn> turns = PlaySession(number, left, kClock);
  ASSERT_GE(turns.size(), 2501U);
  if (const char* directory = std::getenv("PITCH_RECORD_TRANSCRIPTS")) {
    WriteTranscript(std::string(directory) + "/" + name + ".txt", turns);
  }
  const std::string record = RecordOf(turns, ExcerptsOf(number, left));
  if (std::getenv("PITCH_RECORD_ANEW") != nullptr) {
    ASSERT_TRUE(std::ofstream(path) << record) << path;
    GTEST_SKIP() << "written anew: " << path;
  }
  EXPECT_EQ(Differences(Content(path), record), "") << "session " << name;
}

INSTANTIATE_TEST_SUITE_P(Match, RecordedSession,
                         ::testing::Combine(::testing::Bool(), ::testing::Range(1, 7)),
                         [](const auto& test) {
                           return NameOf(std::get<0>(test.param), std::get<1>(test.param));
                         });

/// The number of the first turn that differs; that of the last turn plus one when none does.
[[nodiscard]] std::size_t FirstDifference(const std::vector<Turn>& a, const std::vector<Turn>& b) {
  std::size_t i = 0;
  while (i < a.size() && i < b.size() && a[i] == b[i]) ++i;
  return i;
}

TEST(PlayersOfOneBuild, AnswerAlikeUnderTheSameClock) {
  const std::vector<Turn> one = PlaySession(4, true, kClock);
  const std::vector<Turn> other = PlaySession(4, true, kClock);
  ASSERT_EQ(one.size(), other.size());
  EXPECT_EQ(FirstDifference(one, other), one.size());
}

TEST(PlayersOfOneBuild, AnotherClockShowsFromTheFirstFilteredPlace) {
  const std::vector<Turn> one = PlaySession(4, true, kClock);
  const std::vector<Turn> other = PlaySession(4, true, kClock + 1);
  // Landmarks are in sight in every third message and places are filtered from cycle 21 on; the
  // opponent seen in message 24 is the first to be reported from such a place.
  const std::size_t first = FirstDifference(one, other);
  ASSERT_EQ(first, 24U);
  EXPECT_EQ(one[first].message, other[first].message);
  EXPECT_NE(one[first].frames, other[first].frames);
}

TEST(Record, DifferenceIsToldWithItsPlace) {
  std::vector<Turn> turns(501);
  for (Turn& turn : turns) turn.frames = {"(beam 1 2 3)"};
  const std::string kept = RecordOf(turns, {});
  EXPECT_EQ(Differences(kept, kept), "");
  turns[300].frames = {"(beam 1 2 4)"};
  const std::string told = Differences(kept, RecordOf(turns, {}));
  EXPECT_EQ(told.find("behind line 3: 250 "), 0U) << told;
}

TEST(Record, FrameThatComesATurnLaterIsADifference) {
  std::vector<Turn> turns(3);
  turns[1].frames = {"(a)", "(b)"};
  const std::string kept = RecordOf(turns, {});
  turns[1].frames = {"(a)"};
  turns[2].frames = {"(b)"};
  EXPECT_NE(Differences(kept, RecordOf(turns, {})), "");
}

TEST(Record, HashIsFowlerNollVoOfSixtyFourBits) {
  // The published test vectors.
  EXPECT_EQ(Hashed(kHashBasis, ""), 0xCBF29CE484222325U);
  EXPECT_EQ(Hashed(kHashBasis, "a"), 0xAF63DC4C8601EC8CU);
  EXPECT_EQ(Hashed(kHashBasis, "foobar"), 0x85944171F73967E8U);
}

}  // namespace
