#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace cardpanels::fuzz {

/// Ends the process with `property` on standard error when it does not hold, so that the fuzzer
/// keeps the input.
inline void require(bool holds, const std::string& property) {
  if (holds) return;
  std::fprintf(stderr, "violated: %s\n", property.c_str());
  std::abort();
}

}  // namespace cardpanels::fuzz
