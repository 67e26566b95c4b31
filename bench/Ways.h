#pragma once

/// Several ways of doing the same, timed by turns: a machine that gets busier or slower falls on
/// all of them. The benchmarks of what one thread computes call it.

#include <functional>
#include <string>
#include <vector>

#include "bench/Report.h"

namespace bench {

struct Way {
  std::string name;
  std::function<void()> pass;  ///< does the whole of it once
};

/// Makes a figure in some unit out of the seconds that a pass took.
using Figured = std::function<double(double)>;

/// PASSES passes of each way behind one that isn't counted, by the thread's processor time, which
/// programs beside this one disturb least. Adds a figure per way to REPORT; where a high figure is
/// a good one, UNIT being a rate, only its median.
void timeByTurns(Report& report, const std::vector<Way>& ways, int passes, const std::string& unit,
                 const Figured& figured);

/// [s] used so far by this thread.
double processorSeconds();

}  // namespace bench
