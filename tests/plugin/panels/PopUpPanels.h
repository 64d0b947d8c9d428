#pragma once

#include <string>
#include <vector>

#include "tests/support/TestPPD.h"

namespace cardpanels::test {

/// A PPD with an option "Title of KEY" of three choices for each key.
inline std::string ppdWith(const std::vector<std::string>& keys) {
  std::vector<TestOption> options;
  options.reserve(keys.size());
  for (const std::string& key : keys) options.push_back(testOption(key, "Title of " + key, 3));
  return testPPD(options);
}

/// The state of a pop-up for an option of `ppdWith`.
inline std::string popUp(int selected) {
  return R"(items=("Choice 0", "Choice 1", "Choice 2") selected=)" + std::to_string(selected) +
         " enabled=YES hidden=NO";
}

/// The state of a pop-up for an option that the PPD lacks.
constexpr const char* kDisabledPopUp = "items=() selected=-1 enabled=NO hidden=NO";

}  // namespace cardpanels::test
