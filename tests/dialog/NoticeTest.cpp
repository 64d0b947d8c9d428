#include <gtest/gtest.h>

#include "dialog/Notice.h"

namespace cardpanels::dialog {
namespace {

using Kind = Notice::Kind;

TEST(Notices, LookTheSameWhateverTheirAnswersDo) {
  int done = 0;
  const Notices first{{Kind::warning, "Text", {{"_Undo", [] {}}}}};
  EXPECT_TRUE(lookTheSame(first, {{Kind::warning, "Text", {{"_Undo", [&done] { ++done; }}}}}));
  EXPECT_FALSE(lookTheSame(first, {{Kind::error, "Text", {{"_Undo", [] {}}}}}));
  EXPECT_FALSE(lookTheSame(first, {{Kind::warning, "Texts", {{"_Undo", [] {}}}}}));
  EXPECT_FALSE(lookTheSame(first, {{Kind::warning, "Text", {{"Cl_ose", [] {}}}}}));
  EXPECT_FALSE(lookTheSame(first, {{Kind::warning, "Text", {}}}));
  EXPECT_FALSE(lookTheSame(first, {}));
}

TEST(Notices, AreAsBadAsTheWorst) {
  EXPECT_EQ(worstKind({}), Kind::information);
  EXPECT_EQ(worstKind({{Kind::warning, "", {}}, {Kind::information, "", {}}}), Kind::warning);
  EXPECT_EQ(worstKind({{Kind::error, "", {}}, {Kind::warning, "", {}}}), Kind::error);
}

TEST(Notices, HaveAnIconAKind) {
  EXPECT_STREQ(iconName(Kind::information), "dialog-information-symbolic");
  EXPECT_STREQ(iconName(Kind::warning), "dialog-warning-symbolic");
  EXPECT_STREQ(iconName(Kind::error), "dialog-error-symbolic");
}

}  // namespace
}  // namespace cardpanels::dialog
