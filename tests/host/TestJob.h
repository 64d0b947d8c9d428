#pragma once

#include <cups/ppd.h>

#include <string>

#include "host/JobOptions.h"
#include "host/PPDFile.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::host {

inline PPDFile opened(const std::string& ppd) {
  const test::TemporaryFolder folder;
  return openPPD(folder.write("card.ppd", ppd));
}

inline JobOptions jobOf(const std::string& ppd) { return JobOptions(opened(ppd)); }

/// The name that panels read off the option's mark.
inline std::string markName(ppd_file_t* ppd, const std::string& key) {
  const ppd_choice_t* const choice = ppdFindMarkedChoice(ppd, key.c_str());
  return choice == nullptr ? "(none)" : choice->choice;
}

/// Four options and an area, with `constraints`.
inline std::string conflictPPD(const std::string& constraints) {
  return test::testPPD(
      {{"peelOff", "Peel-Off Front", {{"None", "None"}, {"Full", "Full"}, {"Part", "Part"}}, {}},
       {"ribbon", "Ribbon", {{"Color", "Color"}, {"Mono", "Monochrome"}, {"Gold", "Gold"}}, {}},
       {"uv", "Ultraviolet", {{"Off", "Off"}, {"On", "On"}}, {}},
       {"Collate", "Collate", {{"False", "No"}, {"True", "Yes"}}, {}}},
      test::testAreaOption("area") + constraints);
}

/// Constraints that forbid two choices together.
inline std::string exclusive(const std::string& a, const std::string& b) {
  return "*UIConstraints: *" + a + " *" + b + "\n*UIConstraints: *" + b + " *" + a + "\n";
}

}  // namespace cardpanels::host
