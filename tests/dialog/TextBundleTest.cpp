#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "dialog/TextBundle.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels::dialog {
namespace {

class TextBundleTest : public testing::Test {
 protected:
  test::TemporaryFolder folder_;
  std::string table_ = folder_.write("resources/cardpanels.strings", "known = What is known\n");
  TextBundle bundle_{folder_.path().string()};
};

TEST_F(TextBundleTest, HasTheTextsOfItsTable) {
  EXPECT_EQ(bundle_.localizedStringForKey_value_table("known", "other", {}), "What is known");
  EXPECT_EQ(bundle_.localizedStringForKey_value_table("unknown", "other", {}), "other");
  EXPECT_EQ(bundle_.localizedStringForKey_value_table("unknown", {}, {}), "unknown");
}

TEST_F(TextBundleTest, LoadsNoViewAndSaysWhich) {
  folder_.write("resources/ui/panel.ui", "<interface/>");
  EXPECT_EQ(bundle_.loadNibNamed_owner("panel", nullptr), nullptr);
  EXPECT_THAT(bundle_.loadError().value_or(""), testing::HasSubstr("/resources/ui/panel.ui: "));
}

}  // namespace
}  // namespace cardpanels::dialog
