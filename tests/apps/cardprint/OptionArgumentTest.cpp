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

TEST(OptionArgument, AWordAloneIsTrueOrFalse) {
  EXPECT_THAT(parseOptionArgument("landscape"), ElementsAre(Option{"landscape", "true"}));
  EXPECT_THAT(
      parseOptionArgument("nofit-to-page a=1 NoMirror"),
      ElementsAre(Option{"fit-to-page", "false"}, Option{"a", "1"}, Option{"Mirror", "false"}));
  EXPECT_THAT(parseOptionArgument("area=1in .5in -2in 3 no"),
              ElementsAre(Option{"area", "1in .5in -2in 3"}, Option{"no", "true"}));
}

TEST(OptionArgument, AValueInBracesIsACollection) {
  EXPECT_THAT(parseOptionArgument("media-col={media-size={x=1 y=2} t=a} b=2"),
              ElementsAre(Option{"media-col", "{media-size={x=1 y=2} t=a}"}, Option{"b", "2"}));
}

TEST(OptionArgument, IsReadAsLibcupsReadsIt) {
  for (const char* text :
       {"a=1 b=2", "landscape", "nofoo NOBAR", "a= b", "a=1\\ 2", "a='x y' b=\"\\\"\"",
        "c={x=1 y={z=\"a\\\"b\"}} d", "a=b=c", " a=1\tb=2\n", "a=1\" b=2'",
        "page-ranges=1,3-5 fit-to-page number-up=2"}) {
    EXPECT_EQ(host::OptionList(parseOptionArgument(text)).options(),
              host::OptionList::parsed(text).options())
        << text;
  }
}

TEST(OptionArgument, AnythingElseIsToldWithItsText) {
  for (const char* text : {"", "  ", "=b", "a=\"open", "a=\"x\"y", "\"a\"=b", "a={b={c}"}) {
    try {
      parseOptionArgument(text);
      ADD_FAILURE() << text;
    } catch (const host::Error& error) {
      EXPECT_EQ(error.what(), std::string("-o ") + text + ": This is not KEY=VALUE.");
    }
  }
}

TEST(OptionArgument, OneWordHasAllBehindTheFirstEqualsSignAsItsValue) {
  EXPECT_EQ(parseOption("a=x y=\"z\" {"), (Option{"a", "x y=\"z\" {"}));
  EXPECT_EQ(parseOption("nofoo"), (Option{"foo", "false"}));
  EXPECT_THROW(parseOption(""), host::Error);
  EXPECT_THROW(parseOption("=a"), host::Error);
}

}  // namespace
}  // namespace cardpanels::cardprint
