#include <gtest/gtest.h>
#include <gtkmm/button.h>
#include <gtkmm/combobox.h>
#include <gtkmm/entry.h>
#include <gtkmm/menubutton.h>
#include <gtkmm/window.h>

#include <stdexcept>
#include <string>

#include "ports/gtk3/NameDialog.h"
#include "ports/gtk3/PresetBar.h"
#include "tests/ports/gtk3/VirtualDisplay.h"
#include "tests/ports/gtk3/Widgets.h"

namespace cardpanels::gtk3 {
namespace {

using test::across;
using test::areInOneRow;
using test::down;
using test::labelled;
using test::only;
using test::placeOf;

TEST(PresetBarsLook, HasTheCaptionThePopUpAndTheStateInARowAndTheMenuAtItsEnd) {
  Gtk::Window window;
  PresetBar bar([]() -> dialog::Presets& { throw std::logic_error("nobody chooses"); });
  window.add(bar);
  window.set_default_size(800, 100);
  bar.display({.entries = {{"Standard"}}, .state = "Modified"});
  window.show();
  ASSERT_TRUE(test::handleEventsUntil([&] { return bar.get_mapped(); }));
  const auto caption = placeOf(labelled(bar, "Preset"));
  const auto popUp = placeOf(only<Gtk::ComboBox>(bar));
  EXPECT_EQ(caption.left, 6);
  EXPECT_EQ(across(caption, popUp), 6);
  EXPECT_EQ(across(popUp, placeOf(labelled(bar, "Modified"))), 6);
  EXPECT_EQ(placeOf(window).right - placeOf(only<Gtk::MenuButton>(bar)).right, 6);
  EXPECT_EQ(placeOf(bar).top, 6);
}

class NameDialogsLook : public testing::Test {
 protected:
  void SetUp() override {
    dialog_.show();
    ASSERT_TRUE(test::handleEventsUntil([this] { return dialog_.get_mapped(); }));
  }

  Gtk::Entry& name() { return only<Gtk::Entry>(dialog_); }

  NameDialog dialog_{nullptr,
                     [](const std::string& name) {
                       return dialog::NameVerdict{name == "guests", "It says " + name};
                     },
                     [](const std::string&) {}};
};

TEST_F(NameDialogsLook, HasTheNameBesideItsCaptionAndTheVerdictBelow) {
  name().set_text("guests");
  test::handleEvents();
  const auto caption = placeOf(labelled(dialog_, "Name"));
  const auto field = placeOf(name());
  const auto verdict = placeOf(labelled(dialog_, "It says guests"));
  EXPECT_EQ(caption.left, 12);
  EXPECT_EQ(caption.top, 12);
  EXPECT_TRUE(areInOneRow(caption, field));
  EXPECT_EQ(across(caption, field), 12);
  EXPECT_EQ(down(field, verdict), 6);
  EXPECT_EQ(verdict.left, caption.left);
  EXPECT_EQ(verdict.right, field.right);
}

TEST_F(NameDialogsLook, StaysAsLargeAsItIsWhateverIsTold) {
  EXPECT_FALSE(dialog_.get_resizable());
  const int height = dialog_.get_height();
  name().set_text(std::string(60, 'm'));
  test::handleEvents();
  EXPECT_EQ(dialog_.get_height(), height);
}

}  // namespace
}  // namespace cardpanels::gtk3
