#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialog/Page.h"
#include "ports/headless/Controls.h"
#include "tests/support/FakePageView.h"
#include "tests/support/RecordingDriver.h"

namespace cardpanels::dialog {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Gives the panel a field that stands for its view too.
void loadField(const std::shared_ptr<test::FieldPanel>& panel) {
  const auto field = std::make_shared<headless::TextField>(headless::TextField::Use::entry);
  field->setCaption("Width");
  panel->view = panel->field = field;
}

class Pages : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : {"Peel", "Laminate"}) driver.add(name);
    page = std::make_unique<Page>(driver, view);
    page->start();
    driver.calls();
  }
  void TearDown() override { page.reset(); }

  headless::TextField& field(std::size_t panel) {
    return dynamic_cast<headless::TextField&>(*driver.panel(panel).field);
  }

  test::RecordingDriver driver{loadField};
  test::FakePageView view;
  std::unique_ptr<Page> page;
};

TEST_F(Pages, HaveASectionForEachPanelAndTheSummaryAsTheLast) {
  std::vector<std::string> names;
  for (const auto& section : page->sections()) names.push_back(section.name);
  EXPECT_THAT(names, ElementsAre("Peel", "Laminate", "Summary"));
  EXPECT_EQ(page->sections().back().panel, nullptr);
  EXPECT_EQ(view.summaryOf("Card Laminate"), "None");
}

TEST_F(Pages, LoadAPanelWhenItIsFirstSeen) {
  EXPECT_THAT(driver.calls(), IsEmpty());
  page->appear();
  EXPECT_THAT(driver.calls(), ElementsAre("load Peel", "show Peel"));
  EXPECT_EQ(view.filled[0], "view");
  page->disappear();
  page->appear();
  EXPECT_THAT(driver.calls(), ElementsAre("hide Peel", "show Peel"));
}

TEST_F(Pages, HideAPanelBeforeTheNextIsShown) {
  page->appear();
  driver.calls();
  page->select(1);
  EXPECT_THAT(driver.calls(), ElementsAre("hide Peel", "load Laminate", "show Laminate"));
  EXPECT_EQ(view.shown, 1U);
  page->select(1);
  EXPECT_THAT(driver.calls(), IsEmpty());
  page->select(2);
  EXPECT_THAT(driver.calls(), ElementsAre("hide Laminate"));
}

TEST_F(Pages, ShowThePanelThatWasChosenWhileThePageWasNotSeen) {
  page->select(1);
  EXPECT_THAT(driver.calls(), IsEmpty());
  page->appear();
  EXPECT_THAT(driver.calls(), ElementsAre("load Laminate", "show Laminate"));
}

TEST_F(Pages, TellInItsPlaceWhyAPanelHasNoView) {
  driver.fails = true;
  page->appear();
  EXPECT_EQ(view.filled[0], "no field");
}

TEST_F(Pages, StoreWhatWasTypedOnceWhenTheFocusIsElsewhere) {
  page->appear();
  driver.calls();
  field(0).userTypes("1in");
  view.rest();
  EXPECT_THAT(driver.calls(), IsEmpty());
  field(0).userLeaves();
  view.rest();
  EXPECT_THAT(driver.calls(), ElementsAre("store Peel"));
  field(0).userLeaves();
  view.rest();
  EXPECT_THAT(driver.calls(), IsEmpty());
}

TEST_F(Pages, StoreWhatWasTypedWithEnterAndBeforeAPanelIsLeft) {
  page->appear();
  driver.calls();
  field(0).userTypes("1in");
  field(0).userPressesEnter();
  EXPECT_THAT(driver.calls(), ElementsAre("store Peel"));
  field(0).userTypes("2in");
  page->select(2);
  EXPECT_THAT(driver.calls(), ElementsAre("store Peel", "hide Peel"));
}

TEST_F(Pages, NeitherStoreNorLeaveNorPrintATextThatIsNoMeasurement) {
  page->appear();
  driver.calls();
  field(0).userTypes("abc");
  EXPECT_TRUE(field(0).markedWhy());
  EXPECT_EQ(page->status().wrong, "“Width” is no measurement: “abc”");
  field(0).userLeaves();
  view.rest();
  page->select(1);
  EXPECT_EQ(view.shown, 0U);
  EXPECT_THAT(view.texts(), ElementsAre("“Width” is no measurement: “abc”"));
  EXPECT_EQ(view.notices.front().kind, Notice::Kind::error);
  EXPECT_TRUE(field(0).hasFocus());
  EXPECT_FALSE(page->mayPrint([] {}));
  page->disappear();
  EXPECT_THAT(driver.calls(), IsEmpty());
  field(0).userTypes("1in");
  EXPECT_FALSE(field(0).markedWhy());
  EXPECT_EQ(page->status(), PageStatus());
  EXPECT_TRUE(page->mayPrint([] {}));
  page->select(1);
  EXPECT_EQ(view.shown, 1U);
}

TEST_F(Pages, ReadTheSummaryOnceAfterManyChanges) {
  driver.value = "Front";
  page->optionsChanged();
  page->optionsChanged();
  EXPECT_EQ(view.summaryOf("Card Laminate"), "None");
  view.rest();
  EXPECT_EQ(view.summaryOf("Card Laminate"), "Front");
}

TEST_F(Pages, OfferToInsistOnlyWhereThatIsOffered) {
  int insisted = 0;
  page->tell("That would remove an area.", [&] { ++insisted; });
  EXPECT_TRUE(view.answer("That would remove an area.", "Change An_yway"));
  EXPECT_EQ(insisted, 1);
  EXPECT_THAT(view.texts(), IsEmpty());
  page->tell("Something else.");
  EXPECT_FALSE(view.answer("Something else.", "Change An_yway"));
  EXPECT_EQ(view.notices.front().kind, Notice::Kind::warning);
  EXPECT_TRUE(view.answer("Something else.", "Cl_ose"));
  EXPECT_THAT(view.texts(), IsEmpty());
}

TEST_F(Pages, KeepWhatIsNotAnOutcomeUntilItIsClosed) {
  page->keep("The saved option x was left out.");
  page->keep("The saved option x was left out.");
  page->tell("Something.");
  page->tell("");
  EXPECT_THAT(view.texts(), ElementsAre("The saved option x was left out."));
  EXPECT_TRUE(view.answer("The saved option x was left out.", "Cl_ose"));
  EXPECT_THAT(view.texts(), IsEmpty());
}

TEST_F(Pages, ThatEndHideTheirPanelAndStoreNothingMore) {
  page->appear();
  driver.calls();
  page.reset();
  EXPECT_THAT(driver.calls(), ElementsAre("hide Peel"));
  field(0).userTypes("1in");
  field(0).userLeaves();
  view.rest();
  EXPECT_THAT(driver.calls(), IsEmpty());
}

TEST_F(Pages, GoFromSectionToSectionAndStopAtTheEnds) {
  page->selectPrevious();
  EXPECT_EQ(view.shown, 0U);
  for (int i = 0; i < 3; ++i) page->selectNext();
  EXPECT_EQ(view.shown, 2U);
  page->selectPrevious();
  EXPECT_EQ(view.shown, 1U);
}

TEST_F(Pages, GoOnFromNoTextThatIsNoMeasurement) {
  page->appear();
  field(0).userTypes("abc");
  page->selectNext();
  EXPECT_EQ(view.shown, 0U);
  EXPECT_TRUE(field(0).hasFocus());
}

TEST_F(Pages, HelpWithThePanelThatShowsWhereThatOffersHelp) {
  EXPECT_TRUE(page->offersHelp());
  EXPECT_EQ(page->help().title, "Peel");
  page->select(2);
  EXPECT_EQ(page->help().title, "Summary");
  EXPECT_THAT(page->help().paragraphs, testing::Contains(testing::HasSubstr("chosen")));
  driver.panel(1).offersHelp = false;
  page->select(1);
  EXPECT_FALSE(page->offersHelp());
  EXPECT_THAT(page->help().paragraphs, IsEmpty());
}

TEST_F(Pages, LoadNoPanelBeforeItIsSeen) {
  page->appear();
  EXPECT_THAT(driver.calls(), testing::Not(testing::Contains("load Laminate")));
  EXPECT_EQ(view.filled[1], "");
  page->select(1);
  EXPECT_THAT(driver.calls(), ElementsAre("hide Peel", "load Laminate", "show Laminate"));
  EXPECT_EQ(view.filled[1], "view");
}

TEST(PageOfNothing, HasNoSections) {
  test::RecordingDriver driver(loadField);
  test::FakePageView view;
  Page page(driver, view);
  page.start();
  page.appear();
  EXPECT_THAT(page.sections(), IsEmpty());
  EXPECT_TRUE(page.mayPrint([] {}));
  page.selectNext();
  page.selectPrevious();
  EXPECT_FALSE(page.offersHelp());
}

TEST(PageStatus, TellsWhatIsWrongBeforeAllElse) {
  const PageStatus status{"Wrong.", {"Pressing.", "More."}, "Printer stopped"};
  EXPECT_EQ(status.told(), "Wrong.");
  EXPECT_EQ(status.toldBeside(true), "Wrong.");
}

TEST(PageStatus, LeavesToThePageWhatThatTellsWhileItIsSeen) {
  const PageStatus status{"", {"Pressing.", "More."}, "Printer stopped"};
  EXPECT_EQ(status.told(), "Pressing.\nMore.\nPrinter stopped");
  EXPECT_EQ(status.toldBeside(false), status.told());
  EXPECT_EQ(status.toldBeside(true), "");
  EXPECT_EQ(PageStatus{}.told(), "");
}

}  // namespace
}  // namespace cardpanels::dialog
