#include "workshop/trial/Seeds.h"

#include <gtest/gtest.h>

#include <set>

namespace workshop {
namespace {

TEST(Seeds, RunsOfTuningShareNoWorldWithEachOther) {
  std::set<std::uint64_t> seeds;
  for (const std::uint64_t run : {0U, 1U, 2U, 3U}) {
    for (int world = 0; world < kTuningWorldsPerRun; ++world) seeds.insert(tuningSeed(run, world));
  }
  EXPECT_EQ(seeds.size(), 4U * 1000U);
}

TEST(Seeds, OfTuningBeginWhereThoseOfJudgingEnd) {
  EXPECT_EQ(tuningSeed(0, 0), 1'000'000U);
  EXPECT_EQ(tuningSeed(7, 3), 1'007'003U);
}

}  // namespace
}  // namespace workshop
