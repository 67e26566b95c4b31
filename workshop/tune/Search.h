#pragma once

/// The evolution strategy: CMA-ES over points whose numbers lie between 0 and 1, one generation at
/// a time, with its whole state in a checkpoint so that a run can be stopped and gone on with.
/// Called by Tuning, which gives it the cost of a point.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

namespace workshop {

/// What a point costs; the less, the better. Points may lie a little outside 0 to 1.
using CostFunction = std::function<double(const std::vector<double>& point)>;

struct SearchSettings {
  std::uint64_t seed = 1;
  int population = 0;  ///< 0: the strategy's own rule, 4 + 3 ln(dimensions)
  double sigma = 0.1;  ///< first step size, as a share of each number's range
};

/// After each generation.
struct SearchState {
  int generation = 0;
  int evaluations = 0;
  double bestCost = 0;
  std::vector<double> bestPoint{};
};

class Search {
 public:
  /// Evaluates the first population around START.
  Search(CostFunction cost, const std::vector<double>& start, const SearchSettings& settings);
  /// Goes on from a checkpoint. Throws std::runtime_error for one that isn't whole, or that belongs
  /// to points of other than DIMENSIONS numbers.
  Search(CostFunction cost, std::size_t dimensions, const std::filesystem::path& checkpoint);
  Search(const Search&) = delete;
  Search& operator=(const Search&) = delete;
  ~Search();

  void advance();
  [[nodiscard]] const SearchState& state() const;
  /// Replaces FILE as a whole. Throws std::runtime_error.
  void save(const std::filesystem::path& file) const;

 private:
  struct Strategy;
  std::unique_ptr<Strategy> strategy_;
};

}  // namespace workshop
