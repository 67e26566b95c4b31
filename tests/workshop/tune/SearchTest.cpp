#include "workshop/tune/Search.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>

namespace workshop {
namespace {

/// A bowl with its bottom at (0.3, 0.6, 0.8).
double bowl(const std::vector<double>& point) {
  const double a = point[0] - 0.3;
  const double b = point[1] - 0.6;
  const double c = point[2] - 0.8;
  return a * a + 4 * b * b + 9 * c * c;
}

const std::vector<double> kStart{0.5, 0.5, 0.5};

SearchSettings settings() {
  SearchSettings s;
  s.seed = 3;
  s.sigma = 0.2;
  return s;
}

std::filesystem::path checkpointFile() {
  return std::filesystem::temp_directory_path() /
         ("search-" + std::to_string(::getpid()) + ".checkpoint");
}

TEST(Search, FindsTheBottomOfABowl) {
  Search search(bowl, kStart, settings());
  for (int i = 0; i < 60; ++i) search.advance();
  EXPECT_LT(search.state().bestCost, 1e-4);
  EXPECT_NEAR(search.state().bestPoint[0], 0.3, 0.02);
  EXPECT_NEAR(search.state().bestPoint[1], 0.6, 0.02);
  EXPECT_NEAR(search.state().bestPoint[2], 0.8, 0.02);
  EXPECT_EQ(search.state().generation, 60);
}

// 4 + 3 ln(3) = 7.3: seven points a generation, and seven to begin with.
TEST(Search, CountsItsEvaluations) {
  Search search(bowl, kStart, settings());
  EXPECT_EQ(search.state().evaluations, 7);
  search.advance();
  EXPECT_EQ(search.state().evaluations, 14);
}

TEST(Search, EqualSeedsGoEqualWays) {
  Search a(bowl, kStart, settings());
  Search b(bowl, kStart, settings());
  for (int i = 0; i < 5; ++i) {
    a.advance();
    b.advance();
  }
  EXPECT_EQ(a.state().bestPoint, b.state().bestPoint);
}

TEST(Search, GoesOnFromACheckpointAsIfNeverStopped) {
  Search whole(bowl, kStart, settings());
  for (int i = 0; i < 4; ++i) whole.advance();
  whole.save(checkpointFile());
  Search resumed(bowl, kStart.size(), checkpointFile());
  std::filesystem::remove(checkpointFile());
  EXPECT_EQ(resumed.state().generation, 4);
  EXPECT_EQ(resumed.state().evaluations, whole.state().evaluations);
  for (int i = 0; i < 4; ++i) {
    whole.advance();
    resumed.advance();
  }
  EXPECT_EQ(resumed.state().bestCost, whole.state().bestCost);
  EXPECT_EQ(resumed.state().bestPoint, whole.state().bestPoint);
}

TEST(Search, ACheckpointOfOtherParametersIsRefused) {
  const Search search(bowl, kStart, settings());
  search.save(checkpointFile());
  EXPECT_THROW(Search(bowl, 4, checkpointFile()), std::runtime_error);
  std::ofstream(checkpointFile()) << "nonsense";
  EXPECT_THROW(Search(bowl, 3, checkpointFile()), std::runtime_error);
  std::filesystem::remove(checkpointFile());
  EXPECT_THROW(Search(bowl, 3, checkpointFile()), std::runtime_error);
}

}  // namespace
}  // namespace workshop
