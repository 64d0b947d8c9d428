#include <gtest/gtest.h>

#include "platform/StringTable.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels::platform {
namespace {

TEST(StringTable, AnswersTheEnglishTextOfAKey) {
  const test::TemporaryFolder folder;
  folder.write("resources/cardpanels.strings",
               "# names\nThermalLaminatePanelName = Thermal Laminate\nno text here\n");
  const StringTable table(folder.path().string());
  EXPECT_EQ(table.text("ThermalLaminatePanelName"), "Thermal Laminate");
}

TEST(StringTable, AnswersNothingForAnUnknownKey) {
  const test::TemporaryFolder folder;
  folder.write("resources/cardpanels.strings", "a = b\n");
  EXPECT_EQ(StringTable(folder.path().string()).text("b"), std::nullopt);
}

TEST(StringTable, WithoutItsFileIsEmpty) {
  EXPECT_EQ(StringTable("/nowhere").text("a"), std::nullopt);
}

}  // namespace
}  // namespace cardpanels::platform
