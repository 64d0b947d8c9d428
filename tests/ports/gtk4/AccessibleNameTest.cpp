#include <gtest/gtest.h>
#include <gtkmm/box.h>
#include <gtkmm/dropdown.h>
#include <gtkmm/togglebutton.h>

#include "ports/gtk4/AccessibleName.h"

namespace cardpanels::gtk4 {
namespace {

TEST(AccessibleName, IsAlsoOfThePopUpsButton) {
  Gtk::DropDown popUp;
  setAccessibleName(popUp, "Ribbon");
  const auto* const button = dynamic_cast<Gtk::ToggleButton*>(popUp.get_first_child());
  ASSERT_NE(button, nullptr);
  EXPECT_EQ(accessibleName(*button), "Ribbon");
}

TEST(AccessibleName, IsNotOfAButtonInAGroup) {
  Gtk::ToggleButton button;
  Gtk::Box group;
  group.append(button);
  setAccessibleName(group, "Front");
  EXPECT_EQ(accessibleName(group), "Front");
  EXPECT_EQ(accessibleName(button), "");
}

}  // namespace
}  // namespace cardpanels::gtk4
