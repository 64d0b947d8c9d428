#include <gtest/gtest.h>

#include <array>
#include <clocale>

#include "platform/Messages.h"
#include "platform/StringTable.h"
#include "tests/support/BuiltFiles.h"

namespace cardpanels {
namespace {

constexpr std::array kPanelNames{"RibbonPanelName", "UltravioletPanelName", "PeelOffPanelName",
                                 "ThermalLaminatePanelName", "CardHandlingPanelName"};

TEST(BundledTexts, NameEveryPanel) {
  const platform::StringTable table(test::builtBundle());
  for (const auto* key : kPanelNames) EXPECT_TRUE(table.text(key)) << key;
}

// The test runs in a German locale.
TEST(BundledTexts, AreInTheUsersLanguage) {
  ASSERT_NE(std::setlocale(LC_ALL, ""), nullptr);
  platform::useCatalogues(test::builtBundle());
  const platform::StringTable table(test::builtBundle());
  EXPECT_EQ(table.text("ThermalLaminatePanelName"), "Thermolaminat");
  EXPECT_EQ(table.text("PeelOffPanelName"), "Folienabzug");
}

}  // namespace
}  // namespace cardpanels
