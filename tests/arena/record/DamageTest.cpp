// Match files that were cut off or damaged: everything before the damage, nothing wrong, no crash.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "arena/record/RecordEncoder.h"
#include "arena/record/RecordReader.h"
#include "tests/arena/record/Records.h"

namespace arena {
namespace {

using test::fileOf;
using test::smallMatch;

struct Reading {
  std::optional<std::string> refusal{};
  std::vector<CycleRecord> cycles{};
  std::optional<std::string> fault{};
};

Reading read(const std::string& bytes) {
  std::istringstream file(bytes);
  Reading reading;
  try {
    RecordReader reader(file);
    while (auto record = reader.next()) reading.cycles.push_back(std::move(*record));
    reading.fault = reader.fault();
  } catch (const RecordError& error) {
    reading.refusal = error.what();
  }
  return reading;
}

bool isPrefix(const std::vector<CycleRecord>& part, const std::vector<CycleRecord>& all) {
  return part.size() <= all.size() && std::equal(part.begin(), part.end(), all.begin());
}

TEST(Damage, AFileCutOffAnywhereGivesAllWholeCycles) {
  const auto match = smallMatch(12);
  const std::string head = RecordEncoder::begin({{"seed", "7"}});
  // Where each cycle ends in the file.
  std::vector<std::size_t> ends;
  std::string file = head;
  RecordEncoder encoder;
  for (const CycleRecord& record : match) {
    file += encoder.cycle(record);
    ends.push_back(file.size());
  }
  file += RecordEncoder::end();

  for (std::size_t length = 0; length < file.size(); ++length) {
    const Reading reading = read(file.substr(0, length));
    ASSERT_EQ(reading.refusal.has_value(), length < head.size()) << length;
    if (reading.refusal) continue;
    const auto whole = std::count_if(ends.begin(), ends.end(),
                                     [length](std::size_t end) { return end <= length; });
    ASSERT_EQ(reading.cycles.size(), static_cast<std::size_t>(whole)) << length;
    ASSERT_TRUE(isPrefix(reading.cycles, match)) << length;
    ASSERT_TRUE(reading.fault) << length;
  }
  EXPECT_FALSE(read(file).fault);
}

TEST(Damage, EveryTurnedBitIsFoundOut) {
  const auto match = smallMatch(6);
  const std::string file = fileOf(match);
  for (std::size_t bit = 0; bit < 8 * file.size(); ++bit) {
    std::string damaged = file;
    damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1 << bit % 8));
    const Reading reading = read(damaged);
    ASSERT_TRUE(reading.refusal || reading.fault) << "bit " << bit;
    ASSERT_TRUE(isPrefix(reading.cycles, match)) << "bit " << bit;
    ASSERT_LT(reading.cycles.size(), match.size() + 1) << "bit " << bit;
  }
}

TEST(Damage, DamageIsToldWithItsPlace) {
  const auto match = smallMatch(6);
  std::string file = fileOf(match);
  const std::size_t third = fileOf({match.begin(), match.begin() + 2}, /*withEnd=*/false).size();
  file[third + 20] = static_cast<char>(file[third + 20] ^ 1);
  const Reading reading = read(file);
  EXPECT_EQ(reading.cycles.size(), 2U);
  EXPECT_EQ(reading.fault,
            "the record is damaged at byte " + std::to_string(third) + ", after 0.04 s");
}

TEST(Damage, RandomDamageNeverGivesWrongCycles) {
  const auto match = smallMatch(10);
  const std::string file = fileOf(match);
  test::Random random(5);
  for (int round = 0; round < 5000; ++round) {
    std::string damaged = file;
    const auto from = random() % file.size();
    switch (random() % 4) {
      case 0:  // bytes overwritten
        for (auto i = from; i < std::min<std::size_t>(from + random() % 40, file.size()); ++i) {
          damaged[i] = static_cast<char>(random());
        }
        break;
      case 1:  // bytes lost
        damaged.erase(from, random() % 40);
        break;
      case 2:  // bytes too many
        damaged.insert(from, random() % 40, static_cast<char>(random()));
        break;
      default:  // a piece twice
        damaged.insert(from, file.substr(from, random() % 400));
        break;
    }
    ASSERT_TRUE(isPrefix(read(damaged).cycles, match)) << "round " << round;
  }
}

TEST(Damage, RightChecksumsDontMakeNonsenseRight) {
  // Somebody who wants to do harm gets the checksums right: chunks of any data.
  test::Random random(6);
  for (int round = 0; round < 2000; ++round) {
    std::string bytes = fileOf(smallMatch(2), /*withEnd=*/false);
    std::string piece = chunkOf(ChunkKind::kCycle, "");
    if (round % 2 == 0) {
      // A true beginning of a stream with bytes changed.
      RecordEncoder encoder;
      piece = encoder.cycle(smallMatch(1)[0]).substr(kChunkHeadBytes);
      for (int changes = 0; changes < 3; ++changes) {
        piece[random() % piece.size()] = static_cast<char>(random());
      }
      bytes = RecordEncoder::begin({});
    } else {
      piece.resize(random() % 300);
      for (char& c : piece) c = static_cast<char>(random());
    }
    const Reading reading = read(bytes + chunkOf(ChunkKind::kCycle, piece));
    ASSERT_TRUE(reading.fault);
  }
}

TEST(Damage, APieceThatUnpacksToTooMuchIsRefused) {
  // A few bytes that stand for two megabytes.
  Compressor compressor;
  const std::string piece = compressor.piece(std::string(2'000'000, '\0'));
  ASSERT_LT(piece.size(), 2000U);
  const Reading reading = read(RecordEncoder::begin({}) + chunkOf(ChunkKind::kCycle, piece));
  EXPECT_EQ(reading.cycles.size(), 0U);
  EXPECT_TRUE(reading.fault);
}

}  // namespace
}  // namespace arena
