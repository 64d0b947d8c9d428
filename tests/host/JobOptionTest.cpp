#include <gtest/gtest.h>

#include "host/JobOption.h"

namespace cardpanels::host {
namespace {

TEST(OptionLists, ALaterValueOfANameWins) {
  OptionList options(std::vector<Option>{{"frontUV", "None"}, {"FRONTUV", "Full"}});
  EXPECT_EQ(options.count, 1);
  EXPECT_EQ(options.value("frontUV"), "Full");
}

TEST(OptionLists, AnUnknownNameHasNoValue) {
  EXPECT_EQ(OptionList().value("frontUV"), std::nullopt);
}

TEST(OptionLists, ParsedTextGivesNamesAndUnquotedValues) {
  const auto options = OptionList::parsed("{A=1 B=\"two words\"}").options();
  EXPECT_EQ(options, (std::vector<Option>{{"A", "1"}, {"B", "two words"}}));
}

TEST(OptionLists, TheOptionsMoveWithTheList) {
  OptionList first(std::vector<Option>{{"A", "1"}});
  const OptionList second(std::move(first));
  EXPECT_EQ(second.value("A"), "1");
}

}  // namespace
}  // namespace cardpanels::host
