#include <gtest/gtest.h>

#include <array>
#include <clocale>

#include "platform/Messages.h"
#include "platform/StringTable.h"

namespace cardpanels {
namespace {

constexpr auto* kBundle = CARDPANELS_BUILD_DIR "/lib/cardpanels.bundle";

constexpr std::array kPanelNames{"RibbonPanelName", "UltravioletPanelName", "PeelOffPanelName",
                                 "ThermalLaminatePanelName", "CardHandlingPanelName"};

TEST(BundledTexts, NameEveryPanel) {
  const platform::StringTable table(kBundle);
  for (const auto* key : kPanelNames) EXPECT_TRUE(table.text(key)) << key;
}

// The test runs in a German locale.
TEST(BundledTexts, AreInTheUsersLanguage) {
  ASSERT_NE(std::setlocale(LC_ALL, ""), nullptr);
  platform::useCatalogues(kBundle);
  const platform::StringTable table(kBundle);
  EXPECT_EQ(table.text("ThermalLaminatePanelName"), "Thermolaminat");
  EXPECT_EQ(table.text("PeelOffPanelName"), "Folienabzug");
}

}  // namespace
}  // namespace cardpanels
