#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <gtkmm/dropdown.h>
#include <gtkmm/image.h>
#include <gtkmm/label.h>
#include <gtkmm/menubutton.h>
#include <gtkmm/window.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ports/gtk4/AccessibleName.h"
#include "ports/gtk4/PresetBar.h"
#include "tests/ports/gtk4/VirtualDisplay.h"
#include "tests/ports/gtk4/Widgets.h"
#include "tests/support/RecordingDriver.h"

namespace cardpanels::gtk4 {
namespace {

using dialog::PresetRow;
using test::labelled;
using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<host::Preset> kSaved{
    {""}, {"staff", true}, {"visitors", false, {{"copies", "2"}}}};

class PresetBarTest : public testing::Test {
 protected:
  void offer() {
    presets_ = std::make_unique<dialog::Presets>(
        driver_,
        dialog::Presets::Job{
            .queue = {"card", ""},
            .work =
                [this](const dialog::PresetTask& task, auto done) {
                  tasks_.push_back(task);
                  answers_.push_back([done] { done({kSaved}); });
                  return std::make_shared<int>();
                },
            .copies = [] { return "1"; },
            .follow = [this](const std::string& copies) { followed_.push_back(copies); },
        },
        dialog::Presets::Client{
            .show = [this](const PresetRow& row) { bar_.display(row); },
            .storeTyped = [] { return true; },
            .tellUnknown = [](const auto&) {},
            .tellError = [](const std::string&) {},
            .tellDone = [](const std::string&, const auto&) {},
        });
    for (const auto& each : std::exchange(answers_, {})) each();
    tasks_.clear();
  }

  void showWindow() {
    window_.set_child(bar_);
    window_.set_visible();
    ASSERT_TRUE(test::handleEventsUntil([this] { return bar_.get_mapped(); }));
  }

  template <class Widget>
  std::vector<Widget*> all(Gtk::Widget& inside) {
    std::vector<Widget*> found;
    const std::function<void(Gtk::Widget&)> collect = [&](Gtk::Widget& each) {
      if (auto* const fitting = dynamic_cast<Widget*>(&each)) found.push_back(fitting);
      forEachChild(each, collect);
    };
    collect(inside);
    return found;
  }
  Gtk::DropDown& popUp() { return *all<Gtk::DropDown>(bar_).front(); }

  /// Whether each item of the menu takes presses.
  std::vector<bool> offered() {
    std::vector<bool> answers;
    for (const auto* each : all<Gtk::Widget>(bar_)) {
      if (std::string_view(G_OBJECT_TYPE_NAME(each->gobj())) != "GtkModelButton") continue;
      answers.push_back(each->get_sensitive());
    }
    return answers;
  }

  test::RecordingDriver driver_{nullptr};
  std::deque<std::function<void()>> answers_;
  std::vector<dialog::PresetTask> tasks_;
  std::vector<std::string> followed_;  // the copies of what was chosen
  std::unique_ptr<dialog::Presets> presets_;
  Gtk::Window window_;
  PresetBar bar_{[this]() -> dialog::Presets& { return *presets_; }};
};

TEST_F(PresetBarTest, ThereIsNoBarWithoutEntries) {
  EXPECT_FALSE(bar_.get_visible());
  bar_.display({.entries = {{"Standard"}}});
  EXPECT_TRUE(bar_.get_visible());
  bar_.display({});
  EXPECT_FALSE(bar_.get_visible());
}

TEST_F(PresetBarTest, ThePopUpGoesByItsCaptionAndTellsThatTheJobDiffers) {
  bar_.display({.entries = {{"Standard"}}, .state = "Modified"});
  EXPECT_EQ(accessibleName(popUp()), "Preset");
  EXPECT_EQ(accessibleDescription(popUp()), "Modified");
  auto& button = *popUp().get_first_child();  // which has the focus
  EXPECT_EQ(accessibleName(button), "Preset");
  EXPECT_EQ(accessibleDescription(button), "Modified");
}

TEST_F(PresetBarTest, WhatTheChosenOneIsCalledShowsWithItsLock) {
  offer();
  showWindow();
  const auto shown = [this] {
    const auto* const lock = all<Gtk::Image>(*popUp().get_first_child()).front();
    // The first is what a drop-down list shows when nothing is chosen.
    return std::pair(all<Gtk::Label>(*popUp().get_first_child()).back()->get_text().raw(),
                     lock->get_visible() ? lock->get_icon_name().raw() : "no lock");
  };
  EXPECT_EQ(shown(), std::pair(std::string("Standard"), std::string("no lock")));
  popUp().set_selected(1);
  EXPECT_EQ(shown(), std::pair(std::string("staff (for everybody)"),
                               std::string("changes-prevent-symbolic")));
  popUp().set_selected(2);
  EXPECT_EQ(shown(), std::pair(std::string("visitors"), std::string("no lock")));
}

TEST_F(PresetBarTest, OnlyTheUserChooses) {
  offer();
  bar_.display({.entries = {{"Standard"}, {"visitors"}}, .chosen = 1});
  bar_.display({.entries = {{"guests"}, {"Standard"}, {"visitors"}}, .chosen = 2});
  bar_.display({.entries = {{"Standard"}, {"staff"}, {"visitors"}}});
  EXPECT_THAT(followed_, IsEmpty());
  popUp().set_selected(2);
  EXPECT_THAT(followed_, ElementsAre("2"));
  EXPECT_EQ(presets_->row().chosen, 2U);
}

TEST_F(PresetBarTest, TheMenuDoesWhatThePresetAllows) {
  const auto activate = [this](const char* action) {
    return gtk_widget_activate_action(GTK_WIDGET(bar_.gobj()), action, nullptr);
  };
  offer();
  showWindow();
  EXPECT_THAT(offered(), ElementsAre(false, true, false));
  popUp().set_selected(2);
  EXPECT_THAT(offered(), ElementsAre(true, true, true));
  activate("presets.save");
  ASSERT_EQ(tasks_.size(), 1U);
  EXPECT_EQ(tasks_.back().kind, dialog::PresetTask::Kind::save);
  for (const auto& each : std::exchange(answers_, {})) each();
  activate("presets.delete");
  ASSERT_EQ(tasks_.size(), 2U);
  EXPECT_EQ(tasks_.back().kind, dialog::PresetTask::Kind::remove);
  EXPECT_EQ(tasks_.back().name.instance, "visitors");
}

TEST_F(PresetBarTest, ThePartsStandInARowAndTheMenuAtItsEnd) {
  auto& around = *Gtk::make_managed<Gtk::Box>();
  window_.set_child(around);
  window_.set_default_size(800, 100);
  around.append(bar_);
  bar_.set_hexpand();
  bar_.display({.entries = {{"Standard"}}, .state = "Modified"});
  window_.set_visible();
  ASSERT_TRUE(test::handleEventsUntil([this] { return bar_.get_width() > 0; }));
  const auto whole = test::placeOf(around);
  const auto caption = test::placeOf(labelled(bar_, "Preset"));
  const auto choice = test::placeOf(popUp());
  EXPECT_EQ(caption.left - whole.left, 6);
  EXPECT_EQ(across(caption, choice), 6);
  EXPECT_EQ(across(choice, test::placeOf(labelled(bar_, "Modified"))), 6);
  Gtk::MenuButton& menu = *all<Gtk::MenuButton>(bar_).front();
  EXPECT_EQ(whole.right - test::placeOf(menu).right, 6);
  EXPECT_EQ(menu.get_icon_name(), "open-menu-symbolic");
}

class NameDialogTest : public testing::Test {
 protected:
  void SetUp() override {
    dialog_.present();
    ASSERT_TRUE(test::handleEventsUntil([this] { return dialog_.get_mapped(); }));
  }

  void type(const std::string& name) { entry().set_text(name); }
  Gtk::Entry& entry() { return dynamic_cast<Gtk::Entry&>(*test::all<Gtk::Entry>(dialog_).front()); }
  Gtk::Button& save() { return dynamic_cast<Gtk::Button&>(*dialog_.get_default_widget()); }
  bool tells(const std::string& text) {
    const auto labels = test::all<Gtk::Label>(dialog_);
    return std::any_of(labels.begin(), labels.end(), [&text](Gtk::Widget* each) {
      return dynamic_cast<Gtk::Label&>(*each).get_text().raw() == text;
    });
  }

  std::vector<std::string> accepted_;
  NameDialog dialog_{nullptr,
                     [](const std::string& name) {
                       return dialog::NameVerdict{name == "guests", name + "?"};
                     },
                     [this](const std::string& name) {
                       EXPECT_FALSE(dialog_.get_visible());
                       accepted_.push_back(name);
                     }};
};

TEST_F(NameDialogTest, ANameIsJudgedWhileItIsTyped) {
  EXPECT_FALSE(save().get_sensitive());
  type("two words");
  EXPECT_FALSE(save().get_sensitive());
  EXPECT_TRUE(tells("two words?"));
  EXPECT_EQ(accessibleDescription(entry()), "two words?");
  type("guests");
  EXPECT_TRUE(save().get_sensitive());
  type("guestss");
  EXPECT_FALSE(save().get_sensitive());
}

TEST_F(NameDialogTest, TheNameStandsBesideItsCaptionAndTheVerdictBelow) {
  EXPECT_FALSE(dialog_.get_resizable());
  type("two words");
  test::handleEvents();
  const auto caption = test::placeOf(labelled(dialog_, "Name"));
  const auto field = test::placeOf(entry());
  const auto verdict = test::placeOf(labelled(dialog_, "two words?"));
  EXPECT_TRUE(areInOneRow(caption, field));
  EXPECT_EQ(across(caption, field), 12);
  EXPECT_EQ(down(field, verdict), 6);
  EXPECT_EQ(verdict.left, caption.left);
  EXPECT_EQ(verdict.right, field.right);
  EXPECT_EQ(test::placeOf(dialog_).right - field.right, 12);
  EXPECT_EQ(test::placeOf(save()).right, field.right);
}

TEST_F(NameDialogTest, EnterSavesAGoodNameOnly) {
  const auto enter = [this] {
    g_signal_emit_by_name(gtk_editable_get_delegate(GTK_EDITABLE(entry().gobj())), "activate");
  };
  type("two words");
  enter();
  EXPECT_TRUE(dialog_.get_visible());
  EXPECT_THAT(accepted_, IsEmpty());
  type("guests");
  enter();
  EXPECT_TRUE(test::handleEventsUntil([this] { return !dialog_.get_visible(); }));
  EXPECT_THAT(accepted_, ElementsAre("guests"));
}

TEST_F(NameDialogTest, ClosingSavesNothing) {
  type("guests");
  dialog_.close();
  EXPECT_TRUE(test::handleEventsUntil([this] { return !dialog_.get_visible(); }));
  EXPECT_THAT(accepted_, IsEmpty());
}

}  // namespace
}  // namespace cardpanels::gtk4
