#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/plugin/panels/PeelOffSupport.h"
#include "tests/plugin/panels/Trace.h"
#include "tests/support/PanelDriver.h"
#include "tests/support/TestPPD.h"

namespace cardpanels {
namespace {

using test::contains;
using test::logged;
using test::messages;
using test::PanelDriver;
using test::peelOffAreas;
using test::peelOffPPD;
using test::testOption;
using test::testPPD;

constexpr const char* kShow =
    "panels\npeeloff restoreValuesAndReturnError\npeeloff panelView\npeeloff willShow\nrequests";

std::string areaKeys() {
  std::string keys;
  for (const auto& area : peelOffAreas()) keys += ", " + area.key;
  return keys;
}

/// What `state` ends with, leaving the pop-up's items out.
std::string selected(PanelDriver& driver, const std::string& outlet) {
  const std::string state = driver.result("peeloff state " + outlet);
  return state.substr(state.find("selected="));
}

TEST(PeelOff, WithTheBackOptionOnlyThePanelExists) {
  PanelDriver driver(testPPD({testOption("backPO", "Back Peel-Off", 14)}));
  EXPECT_EQ(driver.result("panels"), "(PeelOffPanelPDE)");
  EXPECT_EQ(logged(driver.trace("peeloff supportedPPDOptionKeys")),
            "Front peel-off option not supported!\nAdding back peel-off option\n");
  EXPECT_EQ(driver.result("peeloff supportedPPDOptionKeys"), "(backPO" + areaKeys() + ")");
  driver.runSilently("peeloff panelView");
  EXPECT_EQ(logged(driver.trace("peeloff willShow")),
            "disabling front peel-off\ninitializing back peel-off\n");
  EXPECT_EQ(driver.result("peeloff state frontPeelOffPopUp"),
            "items=() selected=-1 enabled=NO hidden=NO");
  EXPECT_EQ(driver.result("peeloff state frontPeelOffArea"), "hidden=YES");
}

TEST(PeelOff, WithTheFrontOptionOnlyThePanelExists) {
  PanelDriver driver(testPPD({testOption("frontPO", "Front Peel-Off", 14)}));
  driver.runSilently("panels");
  EXPECT_EQ(logged(driver.trace("peeloff supportedPPDOptionKeys")),
            "Adding front peel-off option\nBack peel-off option not supported!\n");
  EXPECT_EQ(driver.result("peeloff supportedPPDOptionKeys"), "(frontPO" + areaKeys() + ")");
  driver.runSilently("peeloff panelView");
  EXPECT_EQ(logged(driver.trace("peeloff willShow")),
            "initializing front peel-off\ndisabling back peel-off\n");
  EXPECT_EQ(driver.result("peeloff state backPeelOffArea"), "hidden=YES");
}

TEST(PeelOff, WithNeitherOptionThereIsNoPanel) {
  std::string areas;
  for (const auto& area : peelOffAreas()) areas += test::testAreaOption(area.key);
  PanelDriver driver(testPPD({}, areas));
  const std::string trace = messages(driver.trace("panels"));
  EXPECT_TRUE(contains(trace,
                       "END initWithCallback:=id(nil, nil)\n"
                       "LOG Creating PDE of type "
                       "kPrinterModuleTypeIDStr(BDB091F4-E57F-11D3-B5CC-0050E4603277) "
                       "PeelOffPanelPDE (0x0)\n"))
      << trace;
}

TEST(PeelOff, TheThirteenthChoiceShowsTheSidesFields) {
  PanelDriver driver(peelOffPPD());
  driver.runSilently(kShow);
  for (const std::string side : {"front", "back"}) {
    for (const auto& [choice, hidden] : {std::pair("Choice11", "hidden=YES"),
                                         {"Choice12", "hidden=NO"},
                                         {"Choice13", "hidden=YES"}}) {
      driver.runSilently("mark " + side + "PO " + choice + "\npeeloff updateUI");
      EXPECT_EQ(driver.result("peeloff state " + side + "PeelOffArea"), hidden) << side << choice;
    }
  }
}

TEST(PeelOff, WithoutMarkAndDefaultTheFieldsAreHiddenAndTheSelectionIsCleared) {
  PanelDriver driver(testPPD({testOption("frontPO", "Front Peel-Off", 14, "-")}));
  driver.runSilently(kShow);
  driver.runSilently("mark frontPO Choice12\npeeloff updateUI\nunmark frontPO");
  EXPECT_EQ(logged(driver.trace("peeloff restoreValuesAndReturnError")),
            "returning a -1 index means there was no default choice\n"
            "returning a -1 index means there was no default choice\n");
  EXPECT_EQ(driver.result("peeloff state frontPeelOffArea"), "hidden=YES");
  EXPECT_EQ(driver.result("peeloff summaryInfo"), "{}");
}

TEST(PeelOff, WithConstraintHandlingTheMarksDecide) {
  PanelDriver driver(peelOffPPD());
  driver.runSilently(kShow);
  driver.runSilently(
      "peeloff pick frontPeelOffPopUp 12\nrefuse backPO\n"
      "peeloff pick backPeelOffPopUp 12");
  EXPECT_EQ(driver.result("requests"), "frontPO=Choice12 granted, backPO=Choice12 refused");
  EXPECT_EQ(selected(driver, "frontPeelOffPopUp"), "selected=12 enabled=YES hidden=NO");
  EXPECT_EQ(selected(driver, "backPeelOffPopUp"), "selected=0 enabled=YES hidden=NO");
  EXPECT_EQ(driver.result("peeloff state frontPeelOffArea"), "hidden=NO");
  EXPECT_EQ(driver.result("peeloff state backPeelOffArea"), "hidden=YES");
}

TEST(PeelOff, WithoutConstraintHandlingThePanelKeepsTheChoiceItself) {
  PanelDriver driver(peelOffPPD(), PanelDriver::Host::plain);
  driver.runSilently(kShow);
  driver.runSilently("peeloff pick backPeelOffPopUp 12");
  EXPECT_EQ(selected(driver, "backPeelOffPopUp"), "selected=12 enabled=YES hidden=NO");
  EXPECT_EQ(driver.result("peeloff state backPeelOffArea"), "hidden=YES");
  EXPECT_EQ(driver.result("peeloff summaryInfo"), R"({"Back Peel-Off" = "Choice 12"; })");
}

TEST(PeelOff, UpdateUIBeforeTheFirstWillShowDoesNothing) {
  PanelDriver driver(peelOffPPD());
  driver.runSilently("panels\npeeloff panelView\npeeloff updateMarkedSelections");
  EXPECT_EQ(messages(driver.trace("peeloff updateUI")), "BEGIN updateUI:\nEND updateUI:\n");
  EXPECT_EQ(selected(driver, "frontPeelOffPopUp"), "selected=-1 enabled=YES hidden=NO");
}

TEST(PeelOff, TheSummaryHasAnEntryForEachSelection) {
  PanelDriver driver(peelOffPPD());
  driver.runSilently("panels");
  EXPECT_EQ(driver.result("peeloff summaryInfo"), "{}");
  driver.runSilently("mark backPO Choice3\npeeloff updateMarkedSelections");
  EXPECT_EQ(driver.result("peeloff summaryInfo"),
            R"({"Front Peel-Off" = "Choice 0"; "Back Peel-Off" = "Choice 3"; })");
}

TEST(PeelOff, MarkedSelectionsAreReadBetweenTwoLines) {
  PanelDriver driver(peelOffPPD());
  driver.runSilently("panels");
  EXPECT_EQ(messages(driver.trace("peeloff updateMarkedSelections")),
            "BEGIN updateMarkedSelections\nEND updateMarkedSelections\n");
}

TEST(PeelOff, AHostChangeOfASideUpdatesItsFieldsOnly) {
  PanelDriver driver(peelOffPPD());
  driver.runSilently(kShow);
  driver.runSilently("mark frontPO Choice12\nmark backPO Choice12");
  EXPECT_EQ(messages(driver.trace("peeloff PPDOptionKeyValueDidChange_ppdChoice backPO Choice12")),
            "BEGIN PPDOptionKeyValueDidChange:(backPO) ppdChoice:(Choice12)\n"
            "LOG new choice is Choice 12/Choice12\n"
            "BEGIN updateBackPeelOffTab\n"
            "END updateBackPeelOffTab\n"
            "END PPDOptionKeyValueDidChange:ppdChoice:=void\n");
  EXPECT_EQ(driver.result("peeloff state backPeelOffArea"), "hidden=NO");
  EXPECT_EQ(driver.result("peeloff state frontPeelOffArea"), "hidden=YES");
  EXPECT_EQ(selected(driver, "backPeelOffPopUp"), "selected=0 enabled=YES hidden=NO");
}

TEST(PeelOff, AHostChangeWithoutKeyOrChoiceIsIgnored) {
  PanelDriver driver(peelOffPPD());
  driver.runSilently(kShow);
  EXPECT_EQ(messages(driver.trace("peeloff PPDOptionKeyValueDidChange_ppdChoice frontPO nil")),
            "BEGIN PPDOptionKeyValueDidChange:(frontPO) ppdChoice:((null))\n"
            "END PPDOptionKeyValueDidChange:ppdChoice:=void\n");
}

TEST(PeelOff, NothingIsStoredBeforeThePanelWasShown) {
  PanelDriver driver(peelOffPPD());
  driver.runSilently("panels");
  EXPECT_EQ(messages(driver.trace("peeloff shouldHide")),
            "BEGIN shouldHide:\nEND shouldHide:=BOOL(YES)\n");
  EXPECT_EQ(messages(driver.trace("peeloff shouldPrint")),
            "BEGIN shouldPrint:\nEND shouldPrint:=BOOL(YES)\n");
  EXPECT_EQ(driver.result("requests"), "nil");
}

TEST(PeelOff, TheFirstWillShowIsTracedWordForWord) {
  PanelDriver driver(peelOffPPD());
  driver.runSilently("panels\npeeloff restoreValuesAndReturnError\npeeloff panelView");
  std::string areas;
  for (const auto& area : peelOffAreas()) {
    areas +=
        "BEGIN setAreaUI:(" + area.key + ")(Default)\nEND setAreaUI:(" + area.key + ")(Default)\n";
  }
  EXPECT_EQ(messages(driver.trace("peeloff willShow")),
            "BEGIN willShow:\n"
            "BEGIN initializeUI:\n"
            "LOG initializing front peel-off\n"
            "LOG initializing back peel-off\n"
            "BEGIN queryPeelOffAreasFromSettings:\n"
            "END queryPeelOffAreasFromSettings:\n"
            "END initializeUI:=void\n"
            "BEGIN updateUI:\n"
            "BEGIN setAreasUI\n" +
                areas +
                "END setAreasUI\n"
                "BEGIN updateFrontPeelOffTab\n"
                "END updateFrontPeelOffTab\n"
                "BEGIN updateBackPeelOffTab\n"
                "END updateBackPeelOffTab\n"
                "END updateUI:\n"
                "END willShow:=void\n");
}

TEST(PeelOff, EveryOperationWorksBeforeTheViewIsLoaded) {
  PanelDriver driver(peelOffPPD());
  const std::string trace = driver.trace(
      "panels\npeeloff updateUI\npeeloff restoreValuesAndReturnError\npeeloff willShow\n"
      "peeloff changeFrontPeelOffOption\npeeloff changeBackPeelOffOption\npeeloff shouldHide\n"
      "peeloff shouldPrint\npeeloff saveValuesAndReturnError\npeeloff summaryInfo\n"
      "peeloff shouldShowHelp\npeeloff panelName");
  EXPECT_FALSE(driver.failed());
  EXPECT_EQ(test::depthAfter(trace), 0);
  EXPECT_EQ(driver.result("peeloff panelKind"), "org.cardpanels.PeelOffKind");
}

}  // namespace
}  // namespace cardpanels
