#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apps/cardprint/OptionArgument.h"
#include "host/Error.h"

namespace cardpanels::cardprint {
namespace {

using host::Option;
using testing::ElementsAre;

TEST(OptionArgument, IsAKeyAndAValue) {
  EXPECT_THAT(parseOptionArgument("cardLaminate=Front"),
              ElementsAre(Option{"cardLaminate", "Front"}));
}

TEST(OptionArgument, AValueMayBeEmpty) {
  EXPECT_THAT(parseOptionArgument("a="), ElementsAre(Option{"a", ""}));
  EXPECT_THAT(parseOptionArgument("a=\"\""), ElementsAre(Option{"a", ""}));
}

TEST(OptionArgument, AValueHoldsEqualsSigns) {
  EXPECT_THAT(parseOptionArgument("a=b=c"), ElementsAre(Option{"a", "b=c"}));
}

TEST(OptionArgument, AnAreaNeedsNoQuotesOfItsOwn) {
  EXPECT_THAT(parseOptionArgument("area=1in 1in 2in 2in"),
              ElementsAre(Option{"area", "1in 1in 2in 2in"}));
}

TEST(OptionArgument, SeveralStandWithSpacesBetween) {
  EXPECT_THAT(parseOptionArgument("  a=1  area=1in 1in  2in 2in b=2 "),
              ElementsAre(Option{"a", "1"}, Option{"area", "1in 1in  2in 2in"}, Option{"b", "2"}));
}

TEST(OptionArgument, AQuotedValueHoldsAnything) {
  EXPECT_THAT(parseOptionArgument("a=\"x y=z 'q'\" b='it is \"so\"'"),
              ElementsAre(Option{"a", "x y=z 'q'"}, Option{"b", "it is \"so\""}));
}

TEST(OptionArgument, ABackslashKeepsTheCharacterBehindItInQuotes) {
  EXPECT_THAT(parseOptionArgument(R"(a="1\" 2\\")"), ElementsAre(Option{"a", R"(1" 2\)"}));
}

TEST(OptionArgument, AnInchMarkInsideAnUnquotedValueStays) {
  EXPECT_THAT(parseOptionArgument("a=1\" 2\" 3\" 4\""),
              ElementsAre(Option{"a", "1\" 2\" 3\" 4\""}));
}

TEST(OptionArgument, AnythingElseIsToldWithItsText) {
  for (const char* text : {"", "  ", "a", "=b", "a b=1", "a=\"open", "a=\"x\"y", "\"a\"=b"}) {
    try {
      parseOptionArgument(text);
      ADD_FAILURE() << text;
    } catch (const host::Error& error) {
      EXPECT_EQ(error.what(), std::string("-o ") + text + ": This is not KEY=VALUE.");
    }
  }
}

}  // namespace
}  // namespace cardpanels::cardprint
