#include <glibmm/error.h>
#include <glibmm/main.h>
#include <gtest/gtest.h>
#include <gtkmm/button.h>
#include <gtkmm/comboboxtext.h>

#include <stdexcept>

#include "ports/gtk/HandlerErrors.h"
#include "ports/gtk/MainLoop.h"
#include "ports/gtk3/GtkBundle.h"
#include "ports/gtk3/WidgetView.h"
#include "tests/ports/gtk3/TestOwner.h"
#include "tests/ports/gtk3/VirtualDisplay.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels::gtk3 {
namespace {

class HandlerErrorsTest : public testing::Test {
 protected:
  int thrown_ = 0;
  gtk::HandlerErrors errors_{[this] { ++thrown_; }};
};

TEST_F(HandlerErrorsTest, NothingIsThrownAgainWhenNothingWas) {
  EXPECT_NO_THROW(errors_.rethrow());
  EXPECT_EQ(thrown_, 0);
}

TEST_F(HandlerErrorsTest, TheFirstOfASignalsHandlersIsThrownAgain) {
  Gtk::Button button;
  button.signal_clicked().connect([] { throw std::runtime_error("clicked"); });
  button.clicked();
  EXPECT_EQ(thrown_, 1);
  EXPECT_THROW(errors_.rethrow(), std::runtime_error);
}

TEST_F(HandlerErrorsTest, GLibsErrorsAreThrownAgain) {
  Gtk::Button button;
  button.signal_clicked().connect([] { throw Glib::Error(1, 2, "three"); });
  button.clicked();
  EXPECT_THROW(errors_.rethrow(), Glib::Error);
}

TEST_F(HandlerErrorsTest, WhatATaskOfTheMainLoopThrowsIsThrownAgain) {
  gtk::postToMainLoop([] { throw std::out_of_range("task"); });
  test::handleEvents();
  EXPECT_THROW(errors_.rethrow(), std::out_of_range);
}

TEST_F(HandlerErrorsTest, WhatIsThrownLaterIsToldOfButNotThrownAgain) {
  gtk::postToMainLoop([] { throw std::out_of_range("first"); });
  gtk::postToMainLoop([] { throw std::runtime_error("second"); });
  test::handleEvents();
  EXPECT_EQ(thrown_, 2);
  EXPECT_THROW(errors_.rethrow(), std::out_of_range);
}

TEST_F(HandlerErrorsTest, WhatAnActionThrowsIsThrownAgain) {
  const test::TemporaryFolder folder;
  folder.write("resources/ui/Test.ui", test::kTestFile);
  const auto owner = std::make_shared<test::TestOwner>();
  const auto view = GtkBundle(folder.path()).loadNibNamed_owner("Test", owner);
  ASSERT_TRUE(view);
  owner->popUp->menu()->addItem(
      platform::MenuItem::initWithTitle_action_keyEquivalent("Front", std::nullopt, ""));
  owner->onChange = [] { throw std::out_of_range("action"); };
  dynamic_cast<Gtk::ComboBoxText&>(dynamic_cast<WidgetView&>(*owner->popUp).widget()).set_active(0);
  EXPECT_THROW(errors_.rethrow(), std::out_of_range);
}

}  // namespace
}  // namespace cardpanels::gtk3
