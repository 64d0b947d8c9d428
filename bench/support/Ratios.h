#pragma once

#include <string>
#include <vector>

namespace cardpanels::bench {

/// What a benchmark costs in proportion to another one of the same program.
struct Ratio {
  std::string benchmark;
  std::string baseline;
  double atMost;
};

/// Runs all registered benchmarks, each several times in random turn so that a change of the
/// machine's speed meets them all, and prints each ratio of medians beside its bound. Answers the
/// program's exit status.
int runWithRatios(int argc, char** argv, const std::vector<Ratio>& ratios);

}  // namespace cardpanels::bench
