#pragma once

/// The sights of a localisation trial as a table: figures per case, and their texts. Called by
/// bench_localisation and by its test once the trial is over; pure functions.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "bench/LocalisationTrial.h"

namespace bench {

/// Median, 95th percentile and maximum.
struct Spread {
  double median = 0;
  double p95 = 0;
  double max = 0;
};

/// The figures of all sights that have these things in common.
struct CaseRow {
  View view = View::kNothing;
  bool noise = false;
  bool filtered = false;
  std::optional<arena::Side> side{};   ///< empty: both
  std::optional<double> headYawDeg{};  ///< [deg] empty: all
  std::size_t sights = 0;
  std::size_t updates = 0;
  Spread position{};    ///< [m]
  Spread headingDeg{};  ///< [deg]
};

/// Nearest rank. VALUES must not be empty.
Spread spreadOf(std::vector<double> values);

/// One row per case, without noise first, in the order of View; SPLIT keeps sides and head
/// positions apart as well. A case without sights has no row.
std::vector<CaseRow> tableOf(const std::vector<Sight>& sights, bool split);

std::string asText(const std::vector<CaseRow>& rows);
std::string asMarkdown(const std::vector<CaseRow>& rows);
std::string asJson(const std::vector<CaseRow>& rows);

}  // namespace bench
