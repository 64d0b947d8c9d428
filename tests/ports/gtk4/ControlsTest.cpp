#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <gtkmm/notebook.h>
#include <gtkmm/stringobject.h>
#include <gtkmm/window.h>

#include <memory>
#include <string>

#include "ports/gtk4/AccessibleName.h"
#include "ports/gtk4/Controls.h"
#include "ports/gtk4/GtkBundle.h"
#include "tests/ports/gtk4/TestFile.h"
#include "tests/ports/gtk4/VirtualDisplay.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestOwner.h"

namespace cardpanels::gtk4 {
namespace {

using platform::MenuItem;
using test::TestOwner;

template <class Widget, class Interface>
Widget& widgetOf(const std::shared_ptr<Interface>& view) {
  return dynamic_cast<Widget&>(dynamic_cast<WidgetView&>(*view).widget());
}

/// What the drop-down list shows as selected.
std::string textOf(Gtk::DropDown& dropDown) {
  const auto item = std::dynamic_pointer_cast<Gtk::StringObject>(dropDown.get_selected_item());
  return item ? item->get_string().raw() : "";
}

class ControlsTest : public testing::Test {
 protected:
  void SetUp() override {
    folder_.write("resources/gtk4/Test.ui", test::kTestFile);
    view_ = GtkBundle(folder_.path()).loadNibNamed_owner("Test", owner_);
    ASSERT_TRUE(view_);
  }

  void fillPopUp() {
    owner_->popUp->removeAllItems();
    for (const char* title : {"None", "Front", "Back"}) {
      owner_->popUp->menu()->addItem(
          MenuItem::initWithTitle_action_keyEquivalent(std::string(title), std::nullopt, ""));
    }
  }

  void fillPopUp(int count) {
    owner_->popUp->removeAllItems();
    for (int i = 0; i < count; ++i) {
      owner_->popUp->menu()->addItem(MenuItem::initWithTitle_action_keyEquivalent(
          "Choice " + std::to_string(i), std::nullopt, ""));
    }
  }

  Gtk::DropDown& dropDown() { return widgetOf<Gtk::DropDown>(owner_->popUp); }
  Gtk::Entry& entry() { return widgetOf<Gtk::Entry>(owner_->field); }

  /// Shows the view in a window.
  void show() {
    window_.set_child(widgetOf<Gtk::Widget>(view_));
    window_.set_visible();
    test::handleEvents();
  }

  test::TemporaryFolder folder_;
  std::shared_ptr<TestOwner> owner_ = std::make_shared<TestOwner>();
  std::shared_ptr<platform::View> view_;
  Gtk::Window window_;
};

TEST_F(ControlsTest, APopUpShowsTheTitlesOfItsItems) {
  fillPopUp();
  EXPECT_EQ(textOf(dropDown()), "");
  owner_->popUp->selectItemAtIndex(1);
  ASSERT_EQ(dropDown().get_model()->get_n_items(), 3U);
  EXPECT_EQ(textOf(dropDown()), "Front");
}

TEST_F(ControlsTest, APopUpKeepsItemsWithTheSameTitleApart) {
  fillPopUp();
  fillPopUp();
  owner_->popUp->menu()->addItem(
      MenuItem::initWithTitle_action_keyEquivalent(std::string("None"), std::nullopt, ""));
  owner_->popUp->selectItemAtIndex(3);
  EXPECT_EQ(owner_->popUp->indexOfSelectedItem(), 3);
}

TEST_F(ControlsTest, AnItemWithoutTitleIsAnItem) {
  owner_->popUp->menu()->addItem(
      MenuItem::initWithTitle_action_keyEquivalent(std::nullopt, std::nullopt, ""));
  owner_->popUp->selectItemAtIndex(0);
  EXPECT_EQ(owner_->popUp->indexOfSelectedItem(), 0);
}

TEST_F(ControlsTest, AnAbsentItemIsNotAdded) {
  owner_->popUp->menu()->addItem(nullptr);
  EXPECT_FALSE(owner_->popUp->menu()->itemAtIndex(0));
}

TEST_F(ControlsTest, AMenuAnswersItsItemsByIndex) {
  fillPopUp();
  EXPECT_EQ(owner_->popUp->menu()->itemAtIndex(2)->title(), "Back");
  EXPECT_FALSE(owner_->popUp->menu()->itemAtIndex(3));
  EXPECT_FALSE(owner_->popUp->menu()->itemAtIndex(-1));
}

TEST_F(ControlsTest, NothingIsSelectedAfterTheItemsChange) {
  EXPECT_EQ(owner_->popUp->indexOfSelectedItem(), -1);
  fillPopUp();
  EXPECT_EQ(owner_->popUp->indexOfSelectedItem(), -1);
  owner_->popUp->selectItemAtIndex(2);
  EXPECT_EQ(owner_->popUp->indexOfSelectedItem(), 2);
  fillPopUp();
  EXPECT_EQ(owner_->popUp->indexOfSelectedItem(), -1);
}

TEST_F(ControlsTest, AnIndexWithoutAnItemSelectsNone) {
  fillPopUp();
  for (const std::int64_t index : {std::int64_t{3}, std::int64_t{-2}, std::int64_t{1} << 32}) {
    owner_->popUp->selectItemAtIndex(1);
    owner_->popUp->selectItemAtIndex(index);
    EXPECT_EQ(owner_->popUp->indexOfSelectedItem(), -1) << index;
  }
}

TEST_F(ControlsTest, TheUserFiresTheActionWithThePopUpAsSender) {
  fillPopUp();
  dropDown().set_selected(1);
  EXPECT_EQ(owner_->changes, 1);
  EXPECT_EQ(owner_->sender, owner_->popUp);
}

TEST_F(ControlsTest, TheProgramFiresNoAction) {
  fillPopUp();
  owner_->popUp->selectItemAtIndex(1);
  owner_->popUp->selectItemAtIndex(-1);
  owner_->popUp->selectItemAtIndex(2);
  owner_->popUp->setEnabled(false);
  owner_->popUp->removeAllItems();
  EXPECT_EQ(owner_->changes, 0);
}

TEST_F(ControlsTest, AnActionThatSelectsAnotherItemFiresOnce) {
  fillPopUp();
  owner_->onChange = [this] { owner_->popUp->selectItemAtIndex(0); };
  dropDown().set_selected(1);
  EXPECT_EQ(owner_->changes, 1);
  EXPECT_EQ(owner_->popUp->indexOfSelectedItem(), 0);
  dropDown().set_selected(2);
  EXPECT_EQ(owner_->changes, 2);
}

TEST_F(ControlsTest, AnActionMayLetTheViewGo) {
  fillPopUp();
  show();
  Gtk::DropDown& shown = dropDown();
  owner_->onChange = [this] {
    window_.unset_child();
    view_.reset();
    owner_->view.reset();
    owner_->popUp.reset();
    owner_->sender.reset();
  };
  shown.set_selected(1);
  EXPECT_EQ(owner_->changes, 1);
}

TEST_F(ControlsTest, TheActionOfAnOwnerThatIsGoneDoesNothing) {
  fillPopUp();
  Gtk::DropDown& shown = dropDown();
  const std::weak_ptr<TestOwner> gone = owner_;
  owner_.reset();
  EXPECT_TRUE(gone.expired());
  shown.set_selected(1);
  EXPECT_EQ(shown.get_selected(), 1U);
}

TEST_F(ControlsTest, AControlOutlivesItsView) {
  fillPopUp();
  show();
  window_.unset_child();
  view_.reset();
  owner_->view.reset();
  fillPopUp();
  owner_->popUp->selectItemAtIndex(1);
  owner_->popUp->setEnabled(false);
  owner_->popUp->setHidden(true);
  owner_->field->setStringValue("1in");
  EXPECT_EQ(owner_->popUp->menu()->itemAtIndex(1)->title(), "Front");
  EXPECT_EQ(owner_->changes, 0);
}

TEST_F(ControlsTest, ADisabledPopUpTakesNoInput) {
  owner_->popUp->setEnabled(false);
  EXPECT_FALSE(dropDown().get_sensitive());
  owner_->popUp->setEnabled(true);
  EXPECT_TRUE(dropDown().get_sensitive());
}

TEST_F(ControlsTest, AHiddenViewStaysHiddenUntilItIsShown) {
  owner_->popUp->setHidden(true);
  show();
  EXPECT_FALSE(dropDown().get_visible());
  EXPECT_TRUE(entry().get_mapped());
  owner_->popUp->setHidden(false);
  test::handleEvents();
  EXPECT_TRUE(dropDown().get_mapped());
}

TEST_F(ControlsTest, HidingAViewHidesWhatIsInside) {
  show();
  owner_->tabs->setHidden(true);
  test::handleEvents();
  EXPECT_FALSE(entry().get_mapped());
}

TEST_F(ControlsTest, ViewsAreFoundByTagAtAnyDepth) {
  EXPECT_EQ(view_->viewWithTag(7), owner_->tabs);
  EXPECT_EQ(view_->viewWithTag(3), owner_->label);
  EXPECT_EQ(owner_->tabs->viewWithTag(3), owner_->label);
  EXPECT_EQ(owner_->label->viewWithTag(3), owner_->label);
}

TEST_F(ControlsTest, ATagThatIsNotInsideAnswersNothing) {
  EXPECT_FALSE(view_->viewWithTag(4));
  EXPECT_FALSE(view_->viewWithTag(0));
  EXPECT_FALSE(view_->viewWithTag(-1));
  EXPECT_FALSE(owner_->label->viewWithTag(7));
}

TEST_F(ControlsTest, ALabelShowsTextAndNothingForAbsence) {
  EXPECT_EQ(owner_->label->stringValue(), "Area 1");
  owner_->label->setStringValue("A & <B> _C");
  EXPECT_EQ(owner_->label->stringValue(), "A & <B> _C");
  owner_->label->setStringValue(std::nullopt);
  EXPECT_EQ(owner_->label->stringValue(), "");
}

TEST_F(ControlsTest, AFieldShowsTextAndNothingForAbsence) {
  owner_->field->setStringValue("0.5in");
  EXPECT_EQ(entry().get_text(), "0.5in");
  owner_->field->setStringValue(std::nullopt);
  EXPECT_EQ(owner_->field->stringValue(), "");
}

TEST_F(ControlsTest, EachIsDescribedByItsKind) {
  const auto kind = [](const platform::Object& control) {
    const std::string text = control.description();
    return text.substr(0, text.find(": 0x"));
  };
  EXPECT_EQ(kind(*owner_->label), "<TextField");
  EXPECT_EQ(kind(*owner_->field), "<TextField");
  EXPECT_EQ(kind(*owner_->popUp), "<PopUpButton");
  EXPECT_EQ(kind(*owner_->popUp->menu()), "<Menu");
  EXPECT_EQ(kind(*owner_->tabs), "<TabView");
  EXPECT_EQ(kind(*view_), "<View");
}

TEST_F(ControlsTest, AFieldTakesTwentyCharacters) {
  entry().set_text("123456789012345678901");
  EXPECT_EQ(owner_->field->stringValue(), "12345678901234567890");
}

TEST_F(ControlsTest, AFieldMarksWhatIsNoMeasurementAndSaysWhatIs) {
  entry().set_text("abc");
  EXPECT_TRUE(entry().has_css_class("error"));
  EXPECT_THAT(entry().get_tooltip_text().raw(), testing::HasSubstr("mm"));
  EXPECT_EQ(accessibleDescription(entry()), entry().get_tooltip_text().raw());
  EXPECT_FALSE(entry().get_icon_name(Gtk::Entry::IconPosition::SECONDARY).empty());
  for (const char* fine : {"1.5 IN", ""}) {
    entry().set_text("abc");
    entry().set_text(fine);
    EXPECT_FALSE(entry().has_css_class("error")) << fine;
    EXPECT_EQ(entry().get_tooltip_text(), "") << fine;
    EXPECT_TRUE(entry().get_icon_name(Gtk::Entry::IconPosition::SECONDARY).empty()) << fine;
  }
}

TEST_F(ControlsTest, AFieldMarksWhatTheProgramSetsToo) {
  owner_->field->setStringValue("1inch");
  EXPECT_TRUE(entry().has_css_class("error"));
}

/// What a field tells of the user.
class WatchTest : public ControlsTest, public dialog::FieldWatcher {
 protected:
  void SetUp() override {
    ControlsTest::SetUp();
    field().setWatcher(this);
    show();
    entry().grab_focus();
  }
  void TearDown() override {
    if (owner_->field) field().setWatcher(nullptr);
    ControlsTest::TearDown();
  }

  void typed(dialog::MeasurementField& /*field*/) override { told_.emplace_back("typed"); }
  void left(dialog::MeasurementField& /*field*/) override {
    told_.emplace_back("left");
    if (onLeft_) onLeft_();
  }
  void entered(dialog::MeasurementField& /*field*/) override { told_.emplace_back("entered"); }

  EntryField& field() { return dynamic_cast<EntryField&>(*owner_->field); }

  void leaveField() {
    window_.unset_focus();
    test::handleEvents();
  }

  std::vector<std::string> told_;
  std::function<void()> onLeft_;
};

TEST_F(WatchTest, TellsWhenTheUserTypesEntersAndLeaves) {
  entry().set_text("1in");
  EXPECT_THAT(told_, testing::ElementsAre("typed"));
  EXPECT_TRUE(field().isEdited());
  EXPECT_TRUE(field().hasFocus());
  g_signal_emit_by_name(entry().gobj(), "activate");
  leaveField();
  EXPECT_THAT(told_, testing::ElementsAre("typed", "entered", "left"));
  EXPECT_FALSE(field().hasFocus());
}

TEST_F(WatchTest, WhatTheProgramSetsIsNotTyped) {
  entry().set_text("1in");
  owner_->field->setStringValue("2in");
  EXPECT_FALSE(field().isEdited());
  owner_->field->setStringValue("2in");
  EXPECT_THAT(told_, testing::ElementsAre("typed"));
}

TEST_F(WatchTest, ACommaBecomesThePointBeforeTheFieldIsSaidToBeLeft) {
  entry().set_text("1,5cm");
  std::string atLeaving;
  onLeft_ = [&] { atLeaving = field().text(); };
  leaveField();
  EXPECT_EQ(atLeaving, "1.5cm");
  EXPECT_TRUE(field().isEdited());
  EXPECT_FALSE(entry().has_css_class("error"));
}

TEST_F(WatchTest, TheFieldMayBeSetWhileItIsLeft) {
  onLeft_ = [this] { owner_->field->setStringValue("2in"); };
  entry().set_text("1in");
  leaveField();
  EXPECT_EQ(owner_->field->stringValue(), "2in");
}

TEST_F(WatchTest, HelpIsTheTooltipWhileTheTextIsGood) {
  field().setUnitHelp("One px is 1 mm.");
  EXPECT_EQ(entry().get_tooltip_text(), "One px is 1 mm.");
  entry().set_text("abc");
  EXPECT_THAT(entry().get_tooltip_text().raw(), testing::EndsWith(" One px is 1 mm."));
  entry().set_text("1");
  field().reject("The printer refuses this.");
  EXPECT_EQ(entry().get_tooltip_text(), "The printer refuses this.");
  field().judge();
  EXPECT_EQ(entry().get_tooltip_text(), "One px is 1 mm.");
}

}  // namespace
}  // namespace cardpanels::gtk4
