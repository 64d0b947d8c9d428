// Each option that a panel edits, given to cardprint on the command line.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/Process.h"

namespace cardpanels {
namespace {

/// An option as `-o` takes it, and what another option must be for it.
struct Given {
  std::string key;
  std::string value;
  std::string needed;
  bool isArea = false;
};

void PrintTo(const Given& option, std::ostream* out) { *out << option.key << '=' << option.value; }

/// The last line of what `cardprint` prints for the printer with everything.
std::string lpLine(const std::string& arguments) {
  const auto finished = test::runCommand(
      "env -u DISPLAY -u WAYLAND_DISPLAY LC_ALL=C " CARDPANELS_BUILD_DIR
      "/bin/cardprint --ppd " CARDPANELS_SOURCE_DIR "/resources/ppd/card-duplex.ppd --no-dialog " +
      arguments);
  EXPECT_EQ(finished.status, 0);
  EXPECT_EQ(finished.errors, "");
  return finished.output.substr(finished.output.rfind('\n', finished.output.size() - 2) + 1);
}

std::vector<Given> pickOneOptions() {
  return {
      {"frontRibbon", "K", ""},
      {"backRibbon", "YMC", ""},
      {"frontResin", "WholeCard", ""},
      {"backResin", "DefinedAreas", ""},
      {"frontUV", "ImageCopy", "frontRibbon=YMCF"},
      {"backUV", "Logo", "backRibbon=YMCF"},
      {"frontUVMAC", "Serial", "frontRibbon=YMCF"},
      {"backUVMAC", "DateTime", "backRibbon=YMCF"},
      {"frontPO", "Chip", ""},
      {"backPO", "Signature", ""},
      {"cardLaminate", "Both", ""},
      {"frontRotation", "Rotate180", ""},
      {"backRotation", "Rotate180", ""},
      {"entryCardFlip", "Flip", ""},
      {"magEncodeCardFlip", "FlipAndReturn", ""},
  };
}

/// Each with a value of its own.
std::vector<Given> areaOptions() {
  std::vector<Given> options;
  for (const std::string side : {"front", "back"}) {
    for (const std::string kind : {"ResinInclude", "ResinExclude", "PeelOff", "NonPeelOff"}) {
      for (const std::string number : {"1", "2", "3"}) {
        const std::string prefix = kind.starts_with("Resin") ? "" : "Custom";
        const std::string value =
            std::string(number).append("in 0.50cm 12mm 3").append(number) + "px";
        const std::string key = std::string(prefix).append(side).append(kind).append(number);
        options.push_back({key, value, "", true});
      }
    }
  }
  return options;
}

class EveryOption : public testing::TestWithParam<Given> {};

TEST_P(EveryOption, OfTheCommandLineReachesTheJob) {
  const auto& [key, value, needed, isArea] = GetParam();
  const std::string before = needed.empty() ? "" : "-o " + needed + " ";
  const std::string expected =
      isArea ? "-o '" + key + "=\"Custom." + value + "\"'" : "-o " + key + "=" + value;
  EXPECT_EQ(lpLine(before + "-o '" + key + "=" + value + "'"), before + expected + "\n");
}

std::string nameOf(const testing::TestParamInfo<Given>& info) { return info.param.key; }

INSTANTIATE_TEST_SUITE_P(WithChoices, EveryOption, testing::ValuesIn(pickOneOptions()), nameOf);
INSTANTIATE_TEST_SUITE_P(WithAreas, EveryOption, testing::ValuesIn(areaOptions()), nameOf);

}  // namespace
}  // namespace cardpanels
