#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "dialog/CardPicture.h"
#include "dialog/Page.h"
#include "host/PPDFile.h"
#include "host/PanelHost.h"
#include "ports/headless/Controls.h"
#include "ports/headless/HeadlessBundle.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/FakePageView.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels::dialog {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

std::string contents(const std::string& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The real plug-in's page on a job, with the toolkit in memory.
class JobPages : public testing::Test, private host::PanelObserver {
 protected:
  /// Opens the sample printer, with `from` in its PPD replaced by `to`.
  void open(const std::string& from = {}, const std::string& to = {}) {
    std::string text = contents(test::duplexPPD());
    for (std::size_t at = 0; !from.empty() && (at = text.find(from, at)) != std::string::npos;) {
      text.replace(at, from.size(), to);
      at += to.size();
    }
    job = std::make_unique<host::JobOptions>(host::openPPD(folder.write("card.ppd", text)));
  }

  void start() {
    panels = std::make_unique<host::PanelHost>(
        test::builtBundle(), std::make_shared<headless::HeadlessBundle>(test::builtBundle()), *job);
    panels->setObserver(this);
    page = std::make_unique<Page>(*panels, view);
    page->start();
    page->appear();
    view.rest();
  }

  void TearDown() override {
    panels->setObserver(nullptr);
    page.reset();
    panels.reset();
  }

  void optionsChanged() override { page->optionsChanged(); }
  void tell(const std::string& message, const std::optional<host::Option>& insisted) override {
    page->tell(message, insisted ? [] {} : std::function<void()>());
  }

  /// The section whose panel is of that class.
  std::size_t sectionOf(const std::string& className) const {
    for (std::size_t i = 0; i < page->sections().size(); ++i) {
      const auto& panel = page->sections()[i].panel;
      if (panel && panel->className() == className) return i;
    }
    return page->sections().size();
  }

  void change(const std::string& key, const std::string& choice) {
    panels->change(key, choice);
    view.rest();
  }

  headless::TextField& field(const std::string& outlet) {
    auto& owner = dynamic_cast<platform::NibOwner&>(*page->sections()[0].panel);
    return dynamic_cast<headless::TextField&>(*owner.outletNamed(outlet)->view(owner));
  }

  /// The user types into one field and goes on to another.
  void typeAndGo(const std::string& outlet, const std::string& text, const std::string& next) {
    field(outlet).userTypes(text);
    field(next).takeFocus();
    field(outlet).userLeaves();
    view.rest();
  }

  void defineAreas() {
    change("frontRibbon", "YMCK");
    change("frontResin", "DefinedAreas");
  }

  test::TemporaryFolder folder;
  std::unique_ptr<host::JobOptions> job;
  std::unique_ptr<host::PanelHost> panels;
  test::FakePageView view;
  std::unique_ptr<Page> page;
};

const char* const kPeelOffGone =
    "“Front Peel-Off” was changed from “Chip” to “No Peel-Off”, because “Thermal Laminate” is now "
    "“Front Side”.";

TEST_F(JobPages, TellWhatARuleChangedUntilTheUserClosesIt) {
  open();
  job->mark("frontPO", "Chip");
  start();
  change("cardLaminate", "Front");
  EXPECT_THAT(view.texts(), ElementsAre(kPeelOffGone));
  EXPECT_THAT(page->status().pressing, ElementsAre(kPeelOffGone));
  EXPECT_EQ(view.marks[sectionOf("PeelOffPanelPDE")], kPeelOffGone);
  EXPECT_EQ(view.marks[sectionOf("ThermalLaminatePDE")], "");
  change("cardLaminate", "None");
  EXPECT_THAT(view.texts(), ElementsAre(kPeelOffGone));
  EXPECT_TRUE(view.answer(kPeelOffGone, "Cl_ose"));
  EXPECT_THAT(view.texts(), IsEmpty());
  EXPECT_EQ(view.marks[sectionOf("PeelOffPanelPDE")], "");
  EXPECT_THAT(page->status().pressing, IsEmpty());
}

TEST_F(JobPages, UndoAsksForTheOldValueAgain) {
  open();
  job->mark("frontPO", "Chip");
  start();
  change("cardLaminate", "Front");
  EXPECT_TRUE(view.answer(kPeelOffGone, "Undo"));
  EXPECT_EQ(job->marked("frontPO"), "Chip");
  EXPECT_EQ(job->marked("cardLaminate"), "None");
  EXPECT_THAT(view.texts(), ElementsAre(AllOf(HasSubstr("“Thermal Laminate” was changed"),
                                              HasSubstr("“Front Peel-Off” is now “Chip”"))));
  EXPECT_TRUE(view.answer(view.texts().front(), "Undo"));
  EXPECT_EQ(job->marked("cardLaminate"), "Front");
  EXPECT_THAT(view.texts(), ElementsAre(kPeelOffGone));
}

TEST_F(JobPages, AChoiceOfTheUsersOwnGoesOverARulesChange) {
  open();
  job->mark("frontPO", "Chip");
  start();
  change("cardLaminate", "Front");
  change("cardLaminate", "None");
  change("frontPO", "Chip");
  EXPECT_THAT(view.texts(), IsEmpty());
}

TEST_F(JobPages, StoreAnAreaWhenTheFocusLeavesItsRow) {
  open();
  start();
  defineAreas();
  typeAndGo("frontResinIncludeField1_X", "1in", "frontResinIncludeField1_Y");
  EXPECT_EQ(job->marked("frontResinInclude1"), "Default");
  typeAndGo("frontResinIncludeField1_Y", "1in", "frontResinIncludeField1_Width");
  typeAndGo("frontResinIncludeField1_Width", "1in", "frontResinIncludeField1_Height");
  typeAndGo("frontResinIncludeField1_Height", "0.5in", "frontResinIncludeField2_X");
  EXPECT_EQ(job->marked("frontResinInclude1"), "Custom.1in 1in 1in 0.5in");
}

TEST_F(JobPages, ADecimalCommaBecomesThePointWhenTheFieldIsLeft) {
  open();
  start();
  defineAreas();
  field("frontResinIncludeField1_X").userTypes("1,5cm");
  EXPECT_TRUE(field("frontResinIncludeField1_X").markedWhy());
  field("frontResinIncludeField1_X").userLeaves();
  view.rest();
  EXPECT_EQ(field("frontResinIncludeField1_X").text(), "1.5cm");
  EXPECT_FALSE(field("frontResinIncludeField1_X").markedWhy());
  EXPECT_EQ(job->marked("frontResinInclude1"), "Custom.1.5cm 0px 0px 0px");
}

TEST_F(JobPages, AFieldTellsHowLargeANumberWithoutAUnitIs) {
  open();
  start();
  EXPECT_THAT(field("frontResinIncludeField1_X").help(), HasSubstr("px"));
  EXPECT_THAT(field("frontResinIncludeField1_X").help(), HasSubstr("0.085 mm"));
}

TEST_F(JobPages, ARefusedAreaStaysInItsRowUntilTheStoredOneIsTakenBack) {
  open("*ParamCustomfrontResinInclude1 Area/X Y Width Height: 1 string 0 83",
       "*ParamCustomfrontResinInclude1 Area/X Y Width Height: 1 string 0 15");
  start();
  defineAreas();
  field("frontResinIncludeField1_X").userTypes("1in");
  field("frontResinIncludeField1_Y").userTypes("1in");
  field("frontResinIncludeField1_Width").userTypes("1.125in");
  field("frontResinIncludeField1_Height").userTypes("1.125in");
  field("frontResinIncludeField1_Height").userPressesEnter();
  view.rest();
  EXPECT_EQ(field("frontResinIncludeField1_Width").text(), "1.125in");
  EXPECT_THAT(field("frontResinIncludeField1_Width").markedWhy().value_or(""), HasSubstr("15"));
  EXPECT_THAT(page->status().wrong, HasSubstr("“Front Resin Area 1”"));
  EXPECT_FALSE(page->mayPrint([] {}));
  EXPECT_EQ(job->marked("frontResinInclude1"), "Default");
  change("frontRotation", "Rotate180");
  EXPECT_EQ(field("frontResinIncludeField1_Width").text(), "1.125in");
  EXPECT_TRUE(view.answer(page->status().wrong, "Take Stored Area Back"));
  EXPECT_EQ(field("frontResinIncludeField1_Width").text(), "");
  EXPECT_FALSE(field("frontResinIncludeField1_Width").markedWhy());
  EXPECT_EQ(page->status().wrong, "");
}

TEST_F(JobPages, ARefusedAreaIsStoredOnceItIsMended) {
  open("*ParamCustomfrontResinInclude1 Area/X Y Width Height: 1 string 0 83",
       "*ParamCustomfrontResinInclude1 Area/X Y Width Height: 1 string 0 15");
  start();
  defineAreas();
  for (const char* part : {"X", "Y", "Width", "Height"}) {
    field(std::string("frontResinIncludeField1_") + part).userTypes("1.25in");
  }
  field("frontResinIncludeField1_X").userPressesEnter();
  view.rest();
  EXPECT_NE(page->status().wrong, "");
  for (const char* part : {"X", "Y", "Width", "Height"}) {
    field(std::string("frontResinIncludeField1_") + part).userTypes("1in");
  }
  field("frontResinIncludeField1_X").userPressesEnter();
  view.rest();
  EXPECT_EQ(page->status().wrong, "");
  EXPECT_EQ(job->marked("frontResinInclude1"), "Custom.1in 1in 1in 1in");
}

TEST_F(JobPages, TellAnImpossibleAreaWhileItIsTypedAndAgainBeforePrint) {
  open();
  start();
  defineAreas();
  ASSERT_EQ(view.texts().size(), 1U);
  EXPECT_THAT(view.texts().front(), HasSubstr("Defined Areas"));
  for (const char* part : {"X", "Y", "Width", "Height"}) {
    field(std::string("frontResinIncludeField1_") + part).userTypes("5in");
    view.rest();
  }
  const std::string outside = view.texts().front();
  EXPECT_THAT(outside, HasSubstr("“Front Resin Area 1”"));
  int printed = 0;
  EXPECT_FALSE(page->mayPrint([&] { ++printed; }));
  EXPECT_TRUE(view.answer(outside, "Print Anyway"));
  EXPECT_EQ(printed, 1);
  EXPECT_TRUE(page->mayPrint([] {}));
  EXPECT_THAT(view.summary.back().entries.front().remark, outside);
}

TEST_F(JobPages, TellConflictsThatAreThereAtFirstAndAgainBeforePrint) {
  open();
  job->mark("cardLaminate", "Both");
  job->mark("PageSize", "CR79");
  start();
  ASSERT_EQ(view.texts().size(), 1U);
  EXPECT_THAT(view.texts().front(), HasSubstr("“Card Size” cannot be “CR79"));
  EXPECT_FALSE(page->mayPrint([] {}));
  change("cardLaminate", "None");
  EXPECT_THAT(view.texts(), IsEmpty());
  EXPECT_TRUE(page->mayPrint([] {}));
}

TEST_F(JobPages, WhatARuleChangesDuringPrintIsSeenFirst) {
  open("*cupsUIConstraints LaminateSize: \"*PageSize CR79 *cardLaminate\"",
       "*cupsUIConstraints Area: \"*frontResinInclude1 Custom *cardLaminate Back\"\n"
       "*cupsUIResolver Area: \"*cardLaminate None\"");
  start();
  defineAreas();
  change("cardLaminate", "Back");
  for (const char* part : {"X", "Y", "Width", "Height"}) {
    field(std::string("frontResinIncludeField1_") + part).userTypes("0.5in");
  }
  EXPECT_FALSE(page->mayPrint([] {}));
  EXPECT_THAT(view.texts(), ElementsAre(HasSubstr("“Thermal Laminate” was changed")));
  EXPECT_TRUE(page->mayPrint([] {}));
}

TEST_F(JobPages, EmphasizeWhatDiffersFromTheDefaultsAndPutItBack) {
  open();
  start();
  EXPECT_FALSE(view.resets);
  defineAreas();
  change("cardLaminate", "Both");
  EXPECT_TRUE(view.resets);
  EXPECT_THAT(view.bold[0], testing::IsSupersetOf({"frontResin"}));
  EXPECT_THAT(view.bold[0], Not(Contains("backResin")));
  EXPECT_TRUE(view.summary[1].entries.front().title.find("Front") == 0);
  page->reset();
  view.rest();
  EXPECT_EQ(job->marked("cardLaminate"), "None");
  EXPECT_EQ(view.summaryOf("Thermal Laminate"), "No Laminate");
  EXPECT_FALSE(view.resets);
  EXPECT_THAT(view.bold[0], IsEmpty());
}

TEST_F(JobPages, TheSummaryTellsTheCardAndItsAreas) {
  open();
  start();
  EXPECT_EQ(view.summaryOf("Size"), "85.6 × 54 mm");
  defineAreas();
  for (const char* part : {"X", "Y", "Width", "Height"}) {
    field(std::string("frontResinIncludeField1_") + part).userTypes("0.5in");
  }
  field("frontResinIncludeField1_X").userPressesEnter();
  view.rest();
  EXPECT_EQ(view.summaryOf("Front Resin Area 1"), "Includes 0.5in × 0.5in at X 0.5in, Y 0.5in");
  for (const auto& group : view.summary) {
    for (const auto& entry : group.entries) {
      if (entry.title.find("Area") == std::string::npos) continue;
      EXPECT_EQ(entry.title, "Front Resin Area 1");
      EXPECT_EQ(group.name, "Ribbon and Resin");
    }
  }
}

TEST_F(JobPages, ShowInThePictureWhatAPanelHasWhenItAppears) {
  open();
  job->mark("frontPO", "DefinedAreas");
  job->mark("CustomfrontPeelOff1", "Custom.1in 0.4in 0.55in 0.5in");
  start();
  const std::size_t section = sectionOf("PeelOffPanelPDE");
  page->select(section);
  ASSERT_EQ(view.pictures[section].size(), 2U);
  EXPECT_EQ(view.pictures[section][0]->scene().shapes.size(), 1U);
  EXPECT_FALSE(view.pictures[section][1]->scene().isShown);
}

}  // namespace
}  // namespace cardpanels::dialog
