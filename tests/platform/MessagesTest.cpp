#include <gtest/gtest.h>

#include "platform/Messages.h"

namespace cardpanels::platform {
namespace {

TEST(Messages, EachNameIsReplacedByItsValueInTheTextsOwnOrder) {
  EXPECT_EQ(filled("{b} after {a}", {{"a", "one"}, {"b", "two"}}), "two after one");
}

TEST(Messages, AValueIsNotReadAsAPattern) {
  EXPECT_EQ(filled("{a} {b}", {{"a", "{b}"}, {"b", "x"}}), "{b} x");
}

TEST(Messages, BracesThatNameNothingStay) {
  EXPECT_EQ(filled("{Name=value} {a} {", {{"a", "1"}}), "{Name=value} 1 {");
}

TEST(Messages, ATextWithoutTranslationStaysAsItIs) {
  EXPECT_STREQ(_("no such message"), "no such message");
}

}  // namespace
}  // namespace cardpanels::platform
