#pragma once

#include <string>
#include <vector>

#include "tests/plugin/panels/SavePass.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::test {

inline std::vector<TypedArea> peelOffAreas() {
  return typedAreas("Custom", {"PeelOff", "NonPeelOff"});
}

/// Both sides' modes with fourteen choices each, and the twelve areas.
inline std::string peelOffPPD() {
  std::string areas;
  for (const TypedArea& area : peelOffAreas()) areas += testAreaOption(area.key);
  return testPPD(
      {testOption("frontPO", "Front Peel-Off", 14), testOption("backPO", "Back Peel-Off", 14)},
      areas);
}

inline SavePassTexts peelOffTexts() {
  const auto show = [](const std::string& key, const std::string& value) {
    return "setAreaUI:(" + key + ")(" + value + ")";
  };
  return {"savePeelOffAreasToSettings:",
          [](const std::string& key, const std::vector<std::string>& fields) {
            return "savePeelOffArea: (" + key + ")(" + fields[0] + ")(" + fields[1] + ")(" +
                   fields[2] + ")(" + fields[3] + ")";
          },
          [](const std::string& value) { return "savePeelOffArea: (" + value + ")"; },
          show,
          show,
          "Default"};
}

}  // namespace cardpanels::test
