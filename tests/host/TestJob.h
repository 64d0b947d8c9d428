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

/// The option `Mark` of two parameters, Text and Size.
inline const char* const kTwoParameters =
    "*OpenUI *Mark/Watermark: PickOne\n*DefaultMark: None\n*Mark None/None: \"\"\n"
    "*CloseUI: *Mark\n*CustomMark True/Other: \"pop pop\"\n"
    "*ParamCustomMark Text/Text: 1 string 0 20\n*ParamCustomMark Size/Size: 2 int 1 9\n";

/// Page sizes of one's own, with what libcups asks of them.
inline const char* const kCustomPageSize =
    "*CustomPageSize True/Custom: \"pop\"\n*ParamCustomPageSize Width: 1 points 36 300\n"
    "*ParamCustomPageSize Height: 2 points 36 400\n*ParamCustomPageSize WidthOffset: 3 points 0 0\n"
    "*ParamCustomPageSize HeightOffset: 4 points 0 0\n*ParamCustomPageSize Orientation: 5 int 0 3\n"
    "*HWMargins: 0 0 0 0\n*VariablePaperSize: True\n";

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
