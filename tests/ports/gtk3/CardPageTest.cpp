#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <gtkmm/dialog.h>
#include <gtkmm/entry.h>
#include <gtkmm/window.h>

#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/NibOwner.h"
#include "platform/TextField.h"
#include "ports/gtk3/CardPage.h"
#include "ports/gtk3/GtkBundle.h"
#include "ports/gtk3/WidgetView.h"
#include "tests/ports/gtk3/VirtualDisplay.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels::gtk3 {
namespace {

using platform::Text;
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

/// A panel of one field, which takes part in nothing.
class FieldPanel final : public platform::PrintPanel, public platform::NibOwner {
 public:
  explicit FieldPanel(std::string name) : name_(std::move(name)) {}

  std::shared_ptr<platform::View> panelView() override { return view; }
  Text panelName() override { return name_; }
  Text panelKind() override { return std::nullopt; }
  std::shared_ptr<platform::StringArray> supportedPPDOptionKeys() override { return nullptr; }
  void willShow() override {}
  bool shouldHide() override { return true; }
  bool shouldShowHelp() override { return true; }
  void PPDOptionKeyValueDidChange_ppdChoice(const Text&, const Text&) override {}
  bool restoreValuesAndReturnError(Text*) override { return true; }
  bool saveValuesAndReturnError(Text*) override { return true; }
  void updateMarkedSelections() override {}
  void updateUI() override {}
  void initializeUI() override {}
  std::shared_ptr<platform::Dictionary> summaryInfo() override { return nullptr; }
  std::string_view className() const override { return "FieldPanel"; }

  std::span<const platform::Outlet> outlets() const override {
    static constexpr std::array kOutlets{platform::outlet<&FieldPanel::view>("view"),
                                         platform::outlet<&FieldPanel::field>("field")};
    return kOutlets;
  }
  std::span<const platform::Action> actions() const override { return {}; }

  std::shared_ptr<platform::View> view;
  std::shared_ptr<platform::TextField> field;

 private:
  std::string name_;
};

/// Notes what the page asks for, as "show Laminate".
class RecordingDriver final : public host::PanelDriver {
 public:
  RecordingDriver() { folder_.write("resources/ui/Field.ui", kFieldFile); }

  void addPanel(const std::string& name) { panels_.push_back(std::make_shared<FieldPanel>(name)); }

  const std::vector<Panel>& panels() const override { return panels_; }

  std::shared_ptr<platform::View> view(const Panel& panel) override {
    note("view", panel);
    if (fails) throw std::runtime_error("Field.ui: no field");
    const auto owner = std::dynamic_pointer_cast<FieldPanel>(panel);
    return GtkBundle(folder_.path()).loadNibNamed_owner("Field", owner);
  }
  void show(const Panel& panel) override { note("show", panel); }
  void hide(const Panel& panel) override { note("hide", panel); }
  void storeTyped(const Panel& panel) override { note("store", panel); }
  std::shared_ptr<platform::Dictionary> summary(const Panel& panel) const override {
    ++summaries;
    auto dictionary = std::make_shared<platform::Dictionary>();
    if (!value.empty()) dictionary->setValueForKey(value, "Card " + *panel->panelName());
    return dictionary;
  }

  FieldPanel& panel(std::size_t index) { return dynamic_cast<FieldPanel&>(*panels_[index]); }
  std::vector<std::string> calls() { return std::exchange(calls_, {}); }

  bool fails = false;
  std::string value;
  mutable int summaries = 0;  // how often one was asked for

 private:
  void note(const std::string& what, const Panel& panel) {
    calls_.push_back(what + " " + *panel->panelName());
  }

  test::TemporaryFolder folder_;
  std::vector<Panel> panels_;
  std::vector<std::string> calls_;
};

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
    for (const auto& name : names) driver_.addPanel(name);
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

  /// The texts of the labels that can be seen.
  std::vector<std::string> visibleTexts() {
    test::handleEvents();
    std::vector<std::string> texts;
    for (const Gtk::Label* label : all<Gtk::Label>()) {
      if (label->get_mapped() && label->get_child_visible()) texts.push_back(label->get_text());
    }
    return texts;
  }

  RecordingDriver driver_;
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
  EXPECT_THAT(driver_.calls(), ElementsAre("view Peel", "show Peel"));
  EXPECT_TRUE(all<Gtk::Entry>().front()->get_mapped());
}

TEST_F(CardPageTest, ThePanelBeforeHidesBeforeTheNextIsShown) {
  makePage();
  showWindow();
  driver_.calls();
  selectRow(1);
  EXPECT_THAT(driver_.calls(), ElementsAre("hide Peel", "view Laminate", "show Laminate"));
}

TEST_F(CardPageTest, AViewIsLoadedOnceAndShownWheneverItAppears) {
  makePage();
  showWindow();
  selectRow(1);
  driver_.calls();
  selectRow(0);
  EXPECT_THAT(driver_.calls(), ElementsAre("hide Laminate", "show Peel"));
}

TEST_F(CardPageTest, TheSummaryHidesThePanel) {
  makePage();
  showWindow();
  driver_.calls();
  selectRow(2);
  EXPECT_THAT(driver_.calls(), ElementsAre("hide Peel"));
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
  EXPECT_THAT(visibleTexts(), testing::Contains("Field.ui: no field"));
}

TEST_F(CardPageTest, TheSummaryIsGroupedByPanel) {
  driver_.value = "Front";
  makePage();
  showWindow();
  selectRow(2);
  EXPECT_THAT(visibleTexts(), ElementsAre("Peel", "Laminate", "Summary", "Peel", "Card Peel",
                                          "Front", "Laminate", "Card Laminate", "Front"));
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

TEST_F(CardPageTest, TheSummaryIsReadWhenThePanelKnowsOfTheChangeToo) {
  makePage();
  showWindow();
  selectRow(2);
  page_->page().optionsChanged();
  driver_.value = "Back";
  EXPECT_THAT(visibleTexts(), testing::Contains("Back"));
}

TEST_F(CardPageTest, APageThatIsGoneReadsNoSummary) {
  makePage();
  page_->page().optionsChanged();
  page_.reset();
  driver_.summaries = 0;
  test::handleEvents();
  EXPECT_EQ(driver_.summaries, 0);
}

TEST_F(CardPageTest, AMessageIsToldUntilItNoLongerHolds) {
  makePage();
  showWindow();
  page_->page().tell("Laminate needs a ribbon.");
  EXPECT_THAT(visibleTexts(), testing::Contains("Laminate needs a ribbon."));
  page_->page().tell("");
  EXPECT_THAT(visibleTexts(), testing::Not(testing::Contains("Laminate needs a ribbon.")));
}

TEST_F(CardPageTest, AMessageThatIsToldBeforeThePageAppearsIsThere) {
  makePage();
  page_->page().tell("Laminate needs a ribbon.");
  window_->show_all();
  showWindow();
  EXPECT_THAT(visibleTexts(), testing::Contains("Laminate needs a ribbon."));
}

TEST_F(CardPageTest, TheUserClosesTheMessageBar) {
  makePage();
  showWindow();
  page_->page().tell("Laminate needs a ribbon.");
  all<Gtk::InfoBar>().front()->response(Gtk::RESPONSE_CLOSE);
  EXPECT_FALSE(all<Gtk::InfoBar>().front()->get_visible());
}

TEST_F(CardPageTest, TheBarOffersToChangeAnywayOnlyWhereThatIsOffered) {
  makePage();
  showWindow();
  int insisted = 0;
  page_->page().tell("That would remove an area.", [&] { ++insisted; });
  auto* const bar = all<Gtk::InfoBar>().front();
  const auto buttons = all<Gtk::Button>();
  auto* const button = *std::find_if(buttons.begin(), buttons.end(), [](const Gtk::Button* each) {
    return each->get_label() == "Change An_yway";
  });
  EXPECT_TRUE(button->get_visible());
  bar->response(Gtk::RESPONSE_CLOSE);
  EXPECT_EQ(insisted, 0);
  page_->page().tell("That would remove an area.", [&] { ++insisted; });
  button->clicked();
  EXPECT_EQ(insisted, 1);
  EXPECT_FALSE(bar->get_visible());
  page_->page().tell("Something else.");
  EXPECT_FALSE(button->get_visible());
}

TEST_F(CardPageTest, AnErrorIsTold) {
  makePage();
  showWindow();
  page_->page().tellError("The print server does not answer.");
  EXPECT_THAT(visibleTexts(), testing::Contains("The print server does not answer."));
  EXPECT_EQ(all<Gtk::InfoBar>().front()->get_message_type(), Gtk::MESSAGE_ERROR);
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

TEST_F(CardPageTest, APrinterWithoutPanelsIsTold) {
  makePage({});
  showWindow();
  EXPECT_THAT(visibleTexts(), ElementsAre(HasSubstr("no card options")));
  EXPECT_THAT(driver_.calls(), IsEmpty());
}

}  // namespace
}  // namespace cardpanels::gtk3
