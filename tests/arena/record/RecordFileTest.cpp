// The match file as bytes and back.

#include <gtest/gtest.h>

#include <sstream>

#include "arena/record/RecordEncoder.h"
#include "arena/record/RecordReader.h"
#include "arena/record/Recordable.h"
#include "tests/arena/record/Records.h"

namespace arena {
namespace {

using namespace std::string_literals;
using test::fileOf;
using test::smallMatch;

std::vector<CycleRecord> cyclesIn(RecordReader& reader) {
  std::vector<CycleRecord> cycles;
  while (auto record = reader.next()) cycles.push_back(std::move(*record));
  return cycles;
}

TEST(RecordFile, HeadIsAsDocumented) {
  // CRC-32 (the polynomial of Ethernet and zip) over length, kind and data; computed with zlib.
  EXPECT_EQ(RecordEncoder::begin({{"seed", "7"}}),
            "PITCHREC\x01\x00\x00\x00"  // magic, version
            "\x08\x00\x00\x00\x00\xbb\xa9\x18"
            "S"  // length, checksum, kind
            "\x01\x04seed\x01"
            "7"s);
  EXPECT_EQ(RecordEncoder::end(),
            "\x00\x00\x00\x00\x02\x42\x94\xc0"
            "E"s);
}

TEST(RecordFile, AMatchComesBackAsItWas) {
  for (const std::uint64_t seed : {21U, 22U, 23U}) {
    const auto match = test::wildMatch(seed, 100);
    std::istringstream file(fileOf(match));
    RecordReader reader(file);
    EXPECT_EQ(reader.settings(), (RecordSettings{{"seed", "7"}}));
    for (const CycleRecord& record : match) ASSERT_EQ(reader.next(), recordable(record));
    EXPECT_FALSE(reader.next());
    EXPECT_FALSE(reader.fault());
  }
}

TEST(RecordFile, EveryCycleCanBeReadAsSoonAsItIsThere) {
  RecordEncoder encoder;
  std::string bytes = RecordEncoder::begin({});
  const auto match = smallMatch(20);
  for (std::size_t i = 0; i < match.size(); ++i) {
    bytes += encoder.cycle(match[i]);
    std::istringstream file(bytes);
    RecordReader reader(file);
    EXPECT_EQ(cyclesIn(reader),
              std::vector<CycleRecord>(match.begin(), match.begin() + static_cast<long>(i) + 1));
    const std::string now = lineOf({match[i].now(), ""});
    EXPECT_EQ(reader.fault(), "the record has no end: the match was cut off, after " +
                                  now.substr(0, now.size() - 2));
  }
}

TEST(RecordFile, AnEmptyMatchIsARecordToo) {
  std::istringstream file(fileOf({}));
  RecordReader reader(file);
  EXPECT_FALSE(reader.next());
  EXPECT_FALSE(reader.fault());
}

TEST(RecordFile, WhatIsNoRecordIsRefusedInOneLine) {
  const auto refusal = [](const std::string& bytes) -> std::string {
    std::istringstream file(bytes);
    try {
      const RecordReader reader(file);
    } catch (const RecordError& error) {
      return error.what();
    }
    return "taken";
  };
  EXPECT_EQ(refusal(""), "this is no match record");
  EXPECT_EQ(refusal("PITCHRE"), "this is no match record");
  EXPECT_EQ(refusal("<html> and more"), "this is no match record");
  EXPECT_EQ(refusal("PITCHREC\x01"), "the match record ends within its head");
  EXPECT_EQ(refusal("PITCHREC\x02\x00\x00\x00 and more"s),
            "the match record is of version 2, this program reads version 1");
  EXPECT_EQ(refusal("PITCHREC\x01\x00\x00\x00"s + RecordEncoder::end()),
            "the match record's head is damaged");
}

TEST(RecordFile, BytesBehindTheEndAreTold) {
  std::istringstream file(fileOf(smallMatch(3)) + "x");
  RecordReader reader(file);
  EXPECT_EQ(cyclesIn(reader).size(), 3U);
  EXPECT_EQ(reader.fault(), "the record goes on behind its end, after 0.06 s");
}

TEST(RecordFile, CyclesOfTwoMatchesDontMix) {
  // The second match's cycles are whole chunks, but not of this stream.
  std::istringstream file(
      fileOf(smallMatch(5), /*withEnd=*/false) +
      fileOf(smallMatch(8)).substr(RecordEncoder::begin({{"seed", "7"}}).size()));
  RecordReader reader(file);
  EXPECT_EQ(cyclesIn(reader), smallMatch(5));
  EXPECT_TRUE(reader.fault());
}

}  // namespace
}  // namespace arena
