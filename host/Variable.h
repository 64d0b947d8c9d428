#pragma once

#include <cstdlib>
#include <string>

namespace cardpanels::host {

/// The value of that variable of the environment, "" when there is none.
inline std::string variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

}  // namespace cardpanels::host
