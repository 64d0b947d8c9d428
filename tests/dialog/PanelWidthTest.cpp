#include <gtest/gtest.h>

#include "dialog/PanelWidth.h"

namespace cardpanels::dialog {
namespace {

TEST(PanelWidth, IsWhatThePanelsLack) {
  PanelWidth width;
  EXPECT_EQ(width.missing(500, 300), 200);
  EXPECT_EQ(width.missing(500, 500), 0);
  EXPECT_EQ(width.missing(620, 500), 120);
  EXPECT_EQ(width.missing(620, 800), 0);
}

TEST(PanelWidth, StaysWhereTheUserMadeItLess) {
  PanelWidth width;
  EXPECT_EQ(width.missing(500, 500), 0);
  EXPECT_EQ(width.missing(620, 499), 0);
  EXPECT_EQ(width.missing(620, 619), 0);
  EXPECT_EQ(width.missing(640, 620), 20);
}

}  // namespace
}  // namespace cardpanels::dialog
