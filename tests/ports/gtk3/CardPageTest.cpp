#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <gtkmm/dialog.h>
#include <gtkmm/entry.h>
#include <gtkmm/window.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "ports/gtk3/CardPage.h"
#include "ports/gtk3/GtkBundle.h"
#include "ports/gtk3/WidgetView.h"
#include "tests/ports/gtk3/VirtualDisplay.h"
#include "tests/support/RecordingDriver.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels::gtk3 {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kFieldFile = R"(<interface>
  <object class="GtkBox" id="view">
    <property name="visible">True</property>
    <child>
      <object class="GtkEntry" id="field"><property name="visible">True</property></object>
    </child>
  </object>
</interface>
)";

void loadField(const std::shared_ptr<test::FieldPanel>& panel) {
  static const test::TemporaryFolder folder;
  folder.write("resources/ui/Field.ui", kFieldFile);
  GtkBundle(folder.path()).loadNibNamed_owner("Field", panel);
}

/// All widgets of that type at and below `widget`, in order.
template <class Widget>
void collect(Gtk::Widget& widget, std::vector<Widget*>& found) {
  if (auto* fitting = dynamic_cast<Widget*>(&widget)) found.push_back(fitting);
  if (auto* container = dynamic_cast<Gtk::Container*>(&widget)) {
    for (Gtk::Widget* child : container->get_children()) collect(*child, found);
  }
}

class CardPageTest : public testing::Test {
 protected:
  void makePage(const std::vector<std::string>& names = {"Peel", "Laminate"}) {
    for (const auto& name : names) driver_.add(name);
    page_ = std::make_unique<CardPage>(driver_);
    window_ = std::make_unique<Gtk::Window>();
    window_->add(*page_);
    page_->show();
  }

  void showWindow() {
    window_->show();
    ASSERT_TRUE(test::handleEventsUntil([this] { return page_->get_mapped(); }));
  }

  template <class Widget>
  std::vector<Widget*> all() {
    std::vector<Widget*> found;
    collect(*page_, found);
    return found;
  }

  void selectRow(int index) {
    auto* const sidebar = all<Gtk::ListBox>().front();
    sidebar->select_row(*sidebar->get_row_at_index(index));
  }

  Gtk::Button& button(const std::string& label) {
    for (Gtk::Button* each : all<Gtk::Button>()) {
      if (each->get_label() == label) return *each;
    }
    throw std::runtime_error("there is no button " + label);
  }

  /// The texts of the labels that can be seen.
  std::vector<std::string> visibleTexts() {
    test::handleEvents();
    std::vector<std::string> texts;
    for (const Gtk::Label* label : all<Gtk::Label>()) {
      if (label->get_mapped() && label->get_child_visible()) texts.push_back(label->get_text());
    }
    return texts;
  }

  test::RecordingDriver driver_{loadField};
  std::unique_ptr<CardPage> page_;
  std::unique_ptr<Gtk::Window> window_;

  void TearDown() override {
    page_.reset();
    window_.reset();
  }
};

TEST_F(CardPageTest, TheSidebarNamesThePanelsAndTheSummary) {
  makePage();
  std::vector<std::string> names;
  for (const auto* row : all<Gtk::ListBoxRow>()) names.push_back(row->get_accessible()->get_name());
  EXPECT_THAT(names, ElementsAre("Peel", "Laminate", "Summary"));
}

TEST_F(CardPageTest, NothingIsShownBeforeThePageIs) {
  makePage();
  EXPECT_THAT(driver_.calls(), IsEmpty());
}

TEST_F(CardPageTest, TheFirstPanelIsShownWithThePage) {
  makePage();
  showWindow();
  EXPECT_THAT(driver_.calls(), ElementsAre("load Peel", "show Peel"));
  EXPECT_TRUE(all<Gtk::Entry>().front()->get_mapped());
}

TEST_F(CardPageTest, ThePanelBeforeHidesBeforeTheNextIsShown) {
  makePage();
  showWindow();
  driver_.calls();
  selectRow(1);
  EXPECT_THAT(driver_.calls(), ElementsAre("hide Peel", "load Laminate", "show Laminate"));
}

TEST_F(CardPageTest, ThePanelComesAndGoesWithThePage) {
  makePage();
  showWindow();
  driver_.calls();
  page_->hide();
  EXPECT_THAT(driver_.calls(), ElementsAre("hide Peel"));
  page_->show();
  EXPECT_THAT(driver_.calls(), ElementsAre("show Peel"));
}

TEST_F(CardPageTest, APageThatEndsHidesThePanelAndLeavesItsViewWhole) {
  makePage();
  showWindow();
  driver_.calls();
  page_.reset();
  EXPECT_THAT(driver_.calls(), ElementsAre("hide Peel"));
  auto& widget = dynamic_cast<WidgetView&>(*driver_.panel(0).view).widget();
  EXPECT_EQ(widget.get_parent(), nullptr);
}

TEST_F(CardPageTest, TypedTextIsStoredWhenTheFieldIsLeft) {
  makePage();
  showWindow();
  driver_.calls();
  auto* const entry = all<Gtk::Entry>().front();
  entry->set_text("1in");
  entry->activate();
  EXPECT_THAT(driver_.calls(), ElementsAre("store Peel"));
}

TEST_F(CardPageTest, APageThatIsGoneStoresNothing) {
  makePage();
  showWindow();
  page_.reset();
  driver_.calls();
  auto& entry =
      dynamic_cast<Gtk::Entry&>(dynamic_cast<WidgetView&>(*driver_.panel(0).field).widget());
  entry.set_text("1in");
  entry.activate();
  EXPECT_THAT(driver_.calls(), IsEmpty());
}

TEST_F(CardPageTest, AViewThatCannotBeLoadedIsToldInItsPlace) {
  driver_.fails = true;
  makePage();
  showWindow();
  EXPECT_THAT(visibleTexts(), testing::Contains("no field"));
}

/// Sets `isGone` when the widget, or what assistive technology has of it, is.
template <class Object>
void watch(Object& object, bool& isGone) {
  g_object_weak_ref(
      G_OBJECT(object.gobj()),
      [](gpointer gone, GObject* /*object*/) { *static_cast<bool*>(gone) = true; }, &isGone);
}

TEST_F(CardPageTest, AViewGoesWithThePanelAfterThePage) {
  makePage();
  showWindow();
  auto* const entry = all<Gtk::Entry>().front();
  bool isGone = false;
  watch(*entry, isGone);
  page_.reset();
  window_.reset();
  ASSERT_FALSE(isGone);
  EXPECT_NE(entry->get_parent(), nullptr);
  for (const auto& each : driver_.panels()) {
    auto& panel = dynamic_cast<test::FieldPanel&>(*each);
    panel.view.reset();
    panel.field.reset();
  }
  EXPECT_TRUE(isGone);
}

TEST_F(CardPageTest, TheSummaryIsGroupedByPanel) {
  driver_.value = "Front";
  makePage();
  showWindow();
  selectRow(2);
  EXPECT_THAT(visibleTexts(), ElementsAre("Peel", "Laminate", "Summary", "Card", "Size",
                                          "85.7 × 54 mm", "Peel", "Card Peel", "Front", "Laminate",
                                          "Card Laminate", "Front", "Reset to Defaults", "?"));
}

TEST_F(CardPageTest, WhatTheSummaryNoLongerTellsGoes) {
  driver_.value = "Front";
  makePage();
  showWindow();
  selectRow(2);
  bool isGone = false;
  bool isAccessibleGone = false;
  for (Gtk::Label* each : all<Gtk::Label>()) {
    if (each->get_text() != "Front") continue;
    watch(*each, isGone);
    watch(*each->get_accessible().operator->(), isAccessibleGone);
  }
  driver_.tells = false;
  page_->page().optionsChanged();
  test::handleEvents();
  EXPECT_TRUE(isGone);
  EXPECT_TRUE(isAccessibleGone);
}

TEST_F(CardPageTest, LabelsOfTheSummaryStayWhereOnlyTextsChange) {
  driver_.value = "Front";
  makePage();
  showWindow();
  selectRow(2);
  const auto before = all<Gtk::Label>();
  driver_.value = "Back";
  page_->page().optionsChanged();
  EXPECT_EQ(all<Gtk::Label>(), before);
}

TEST_F(CardPageTest, TheSummaryIsReadAgainAfterAChange) {
  driver_.value = "Front";
  makePage();
  showWindow();
  selectRow(2);
  driver_.value = "Back";
  page_->page().optionsChanged();
  EXPECT_THAT(visibleTexts(),
              testing::AllOf(testing::Contains("Back"), testing::Not(testing::Contains("Front"))));
}

TEST_F(CardPageTest, APageThatIsGoneReadsNoSummary) {
  makePage();
  page_->page().optionsChanged();
  page_.reset();
  driver_.calls();
  test::handleEvents();
  EXPECT_THAT(driver_.calls(), IsEmpty());
}

TEST_F(CardPageTest, AMessageIsToldUntilItNoLongerHolds) {
  makePage();
  showWindow();
  page_->page().tell("Laminate needs a ribbon.");
  EXPECT_THAT(visibleTexts(), testing::Contains("Laminate needs a ribbon."));
  page_->page().tell("");
  EXPECT_THAT(visibleTexts(), testing::Not(testing::Contains("Laminate needs a ribbon.")));
}

TEST_F(CardPageTest, TheBarHasARowANoticeAndItsButtons) {
  makePage();
  showWindow();
  int insisted = 0;
  page_->page().keep("A saved option was left out.");
  page_->page().tell("That would remove an area.", [&] { ++insisted; });
  EXPECT_THAT(visibleTexts(), testing::IsSupersetOf(
                                  {"A saved option was left out.", "That would remove an area."}));
  button("Change An_yway").clicked();
  EXPECT_EQ(insisted, 1);
  EXPECT_THAT(visibleTexts(), testing::Not(testing::Contains("That would remove an area.")));
  auto& close = button("Cl_ose");
  EXPECT_EQ(close.get_accessible()->get_description(), "A saved option was left out.");
  close.clicked();
  EXPECT_FALSE(all<Gtk::InfoBar>().front()->get_visible());
}

TEST_F(CardPageTest, ARowThatStaysKeepsTheFocus) {
  makePage();
  showWindow();
  page_->page().keep("A saved option was left out.");
  button("Cl_ose").grab_focus();
  page_->page().optionsChanged();
  test::handleEvents();
  EXPECT_TRUE(button("Cl_ose").is_focus());
}

TEST_F(CardPageTest, AnErrorIsTold) {
  makePage();
  showWindow();
  page_->page().tellError("The print server does not answer.");
  EXPECT_THAT(visibleTexts(), testing::Contains("The print server does not answer."));
  EXPECT_EQ(all<Gtk::InfoBar>().front()->get_message_type(), Gtk::MESSAGE_ERROR);
}

TEST_F(CardPageTest, ANoticeOfAFewLinesShowsWhole) {
  makePage();
  showWindow();
  std::string text;
  for (int i = 0; i < 12; ++i) text += "a few words ";
  page_->page().tell(text);
  const auto isWhole = [this] {
    const auto scrollers = all<Gtk::ScrolledWindow>();
    const auto inBar = std::find_if(scrollers.begin(), scrollers.end(), [](auto* each) {
      return each->get_ancestor(GTK_TYPE_INFO_BAR) != nullptr;
    });
    const auto scroll = (*inBar)->get_vadjustment();
    return scroll->get_upper() > 40 && scroll->get_upper() <= scroll->get_page_size();
  };
  EXPECT_TRUE(test::handleEventsUntil(isWhole));
}

TEST_F(CardPageTest, ThePageBecomesSmallWhateverIsOnIt) {
  driver_.value = std::string(200, 'x');
  makePage();
  showWindow();
  page_->page().tell(std::string(2000, 'x') + " " + std::string(2000, 'x'));
  selectRow(2);
  int minimum = 0;
  int natural = 0;
  page_->get_preferred_width(minimum, natural);
  EXPECT_LE(minimum, 400);
  page_->get_preferred_height(minimum, natural);
  EXPECT_LE(minimum, 240);
}

TEST_F(CardPageTest, TheNamesOfThePanelsAreNeverCutOff) {
  makePage({"A panel with a very long name", "Laminate"});
  showWindow();
  window_->resize(1, 1);
  test::handleEvents();
  for (Gtk::Label* each : all<Gtk::Label>()) {
    if (each->get_text() != "A panel with a very long name") continue;
    int minimum = 0;
    int natural = 0;
    page_->get_preferred_width(minimum, natural);
    EXPECT_GE(minimum, each->get_layout()->get_pixel_logical_extents().get_width() + 300);
    return;
  }
  FAIL() << "the name is not there";
}

TEST_F(CardPageTest, TheFirstHeadingOfTheSummaryStandsAtTheTop) {
  driver_.value = "Front";
  makePage();
  showWindow();
  selectRow(2);
  test::handleEvents();
  for (Gtk::Label* each : all<Gtk::Label>()) {
    if (each->get_text() != "Card") continue;
    EXPECT_EQ(each->get_margin_top(), 0);
  }
}

TEST_F(CardPageTest, AWindowBecomesWideEnoughForEachPanelThatIsSeen) {
  makePage();
  page_->page().appear();
  all<Gtk::Entry>().back()->set_width_chars(60);
  window_->set_default_size(1, 1);
  page_->widenWindowWhenSeen();
  showWindow();
  const auto isWideEnough = [this] {
    return page_->get_allocated_width() >= page_->naturalWidth();
  };
  EXPECT_TRUE(test::handleEventsUntil(isWideEnough)) << page_->get_allocated_width();
  EXPECT_GT(page_->naturalWidth(), 60 * 6);
  page_->page().select(1);
  all<Gtk::Entry>().back()->set_width_chars(90);
  EXPECT_FALSE(isWideEnough());
  EXPECT_TRUE(test::handleEventsUntil(isWideEnough)) << page_->get_allocated_width();
  EXPECT_GT(page_->naturalWidth(), 90 * 6);
}

TEST_F(CardPageTest, AWindowBecomesNoWiderThanTheMonitor) {
  makePage();
  page_->page().appear();
  all<Gtk::Entry>().back()->set_width_chars(400);
  page_->widenWindowWhenSeen();
  showWindow();
  constexpr int kMonitor = 1280;
  EXPECT_TRUE(test::handleEventsUntil([this] { return page_->get_allocated_width() == kMonitor; }))
      << page_->get_allocated_width();
}

TEST_F(CardPageTest, APrinterWithoutPanelsIsTold) {
  makePage({});
  showWindow();
  EXPECT_THAT(visibleTexts(), ElementsAre(HasSubstr("no card options")));
  EXPECT_THAT(driver_.calls(), IsEmpty());
}

}  // namespace
}  // namespace cardpanels::gtk3
