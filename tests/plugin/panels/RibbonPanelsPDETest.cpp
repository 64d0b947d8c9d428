#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "tests/plugin/panels/SavePass.h"
#include "tests/plugin/panels/Trace.h"
#include "tests/support/PanelDriver.h"
#include "tests/support/TestPPD.h"

namespace cardpanels {
namespace {

using test::contains;
using test::logged;
using test::messages;
using test::PanelDriver;
using test::testOption;
using test::testPPD;

std::vector<test::TypedArea> resinAreas() {
  return test::typedAreas("", {"ResinInclude", "ResinExclude"});
}

std::string resinAreaOptions() {
  std::string options;
  for (const auto& area : resinAreas()) options += test::testAreaOption(area.key);
  return options;
}

/// Ribbons with six choices, resins with thirteen, and the twelve areas.
std::string ribbonPPD() {
  return testPPD(
      {testOption("frontRibbon", "Front Ribbon", 6), testOption("backRibbon", "Back Ribbon", 6),
       testOption("frontResin", "Front Resin", 13), testOption("backResin", "Back Resin", 13)},
      resinAreaOptions());
}

test::SavePassTexts resinTexts() {
  return {"saveResinAreasToSettings:",
          [](const std::string& /*key*/, const std::vector<std::string>& fields) {
            return "saveResinArea: (" + fields[0] + ")(" + fields[1] + ")(" + fields[2] + ")(" +
                   fields[3] + ")";
          },
          [](const std::string& /*value*/) { return "saveResinArea:"; },
          [](const std::string& key, const std::string& value) {
            return "setAreaUI:(" + key + ", " + value + ")";
          },
          [](const std::string& /*key*/, const std::string& /*value*/) { return "setAreaUI:"; },
          std::nullopt};
}

std::string areaKeys() {
  std::string keys;
  for (const auto& area : resinAreas()) keys += ", " + area.key;
  return keys;
}

constexpr const char* kShow =
    "panels\nribbon restoreValuesAndReturnError\nribbon panelView\nribbon willShow\nrequests";

/// A panel that a dialog has restored and shown.
class ShownRibbon : public testing::Test {
 protected:
  ShownRibbon() { driver.runSilently(kShow); }

  std::string marked(const std::string& side, int ribbon, int resin) {
    driver.runSilently("mark " + side + "Ribbon Choice" + std::to_string(ribbon) + "\nmark " +
                       side + "Resin Choice" + std::to_string(resin) + "\nribbon updateUI");
    return visible(side);
  }

  /// Which of a side's resin controls are shown.
  std::string visible(const std::string& side) {
    std::string shown;
    for (const char* control : {"ResinLabel", "ResinPopUp", "ResinTab"}) {
      const std::string state = driver.result("ribbon state " + side + control);
      if (contains(state, "hidden=NO")) shown += std::string(control) + " ";
    }
    return shown;
  }

  std::string selected(const std::string& outlet) {
    const std::string state = driver.result("ribbon state " + outlet);
    return state.substr(state.find("selected="));
  }

  std::string field(const std::string& outlet) { return driver.result("ribbon state " + outlet); }

  PanelDriver driver{ribbonPPD()};
};

TEST(Ribbon, WithTheBackResinOptionOnlyThePanelExists) {
  PanelDriver driver(testPPD({testOption("backResin", "Back Resin", 13)}));
  EXPECT_EQ(driver.result("panels"), "(RibbonPanelsPDE)");
  EXPECT_EQ(messages(driver.trace("ribbon supportedPPDOptionKeys")),
            "BEGIN supportedPPDOptionKeys:\n"
            "LOG Front ribbon option not supported!\n"
            "LOG Back ribon option not supported!\n"
            "LOG Front resin option not supported!\n"
            "LOG Adding back resin option\n"
            "END supportedPPDOptionKeys:=NSArray\n");
  EXPECT_EQ(driver.result("ribbon supportedPPDOptionKeys"), "(backResin" + areaKeys() + ")");
}

TEST(Ribbon, WithNoneOfTheOptionsThereIsNoPanelWhateverAreasThereAre) {
  PanelDriver driver(testPPD({}, resinAreaOptions()));
  const std::string trace = messages(driver.trace("panels"));
  EXPECT_TRUE(contains(trace,
                       "END initWithCallback:=id(nil, nil)\n"
                       "LOG Creating PDE of type "
                       "kPrinterModuleTypeIDStr(BDB091F4-E57F-11D3-B5CC-0050E4603277) "
                       "RibbonPanelsPDE (0x0)\n"))
      << trace;
}

TEST(Ribbon, TheInitialisersTextHasItsOwnComma) {
  PanelDriver driver(ribbonPPD());
  EXPECT_TRUE(contains(messages(driver.trace("panels")),
                       "BEGIN initWithCallback:(<HostCallback: 0x3>, 0x3) "
                       "andBundle:(<Bundle: 0x2>, 0x2)\n"));
}

TEST(Ribbon, AllKeysAreAddedInOrderAndLoggedOnce) {
  PanelDriver driver(ribbonPPD());
  driver.runSilently("panels");
  EXPECT_EQ(logged(driver.trace("ribbon supportedPPDOptionKeys")),
            "Adding front ribbon option\nAdding back ribbon option\n"
            "Adding front resin option\nAdding back resin option\n");
  EXPECT_EQ(logged(driver.trace("ribbon supportedPPDOptionKeys")), "");
  EXPECT_EQ(driver.result("ribbon supportedPPDOptionKeys"),
            "(frontRibbon, backRibbon, frontResin, backResin" + areaKeys() + ")");
}

TEST_F(ShownRibbon, FourthRibbonAndTwelfthResinShowAllThreeResinControls) {
  for (const char* side : {"front", "back"}) {
    EXPECT_EQ(marked(side, 3, 11), "ResinLabel ResinPopUp ResinTab ") << side;
  }
}

TEST_F(ShownRibbon, FourthRibbonAndAnotherResinHideTheFieldsOnly) {
  for (const char* side : {"front", "back"}) {
    for (const int resin : {0, 10, 12}) {
      EXPECT_EQ(marked(side, 3, resin), "ResinLabel ResinPopUp ") << side << resin;
    }
  }
}

TEST_F(ShownRibbon, AnotherRibbonHidesAllThreeResinControls) {
  for (const char* side : {"front", "back"}) {
    for (const int ribbon : {2, 4}) EXPECT_EQ(marked(side, ribbon, 11), "") << side << ribbon;
  }
}

TEST_F(ShownRibbon, OneSideDoesNotTouchTheOther) {
  marked("front", 3, 11);
  marked("back", 2, 11);
  EXPECT_EQ(visible("front"), "ResinLabel ResinPopUp ResinTab ");
}

TEST(Ribbon, AMissingFrontOptionIsLoggedAndHidesTheFrontControls) {
  for (const char* missing : {"frontRibbon", "frontResin"}) {
    std::vector<test::TestOption> options;
    for (const char* key : {"frontRibbon", "backRibbon", "frontResin", "backResin"}) {
      if (key != std::string(missing)) options.push_back(testOption(key, key, 13));
    }
    PanelDriver driver(testPPD(options));
    driver.runSilently("panels\nribbon panelView\nribbon initializeUI");
    EXPECT_TRUE(contains(messages(driver.trace("ribbon updateUI")),
                         "BEGIN updateFrontResinTab:\n"
                         "LOG Option is nil\n"
                         "END updateFrontResinTab:\n"
                         "BEGIN updateBackResinTab:\n"
                         "END updateBackResinTab:\n"))
        << missing;
    for (const char* control : {"frontResinLabel", "frontResinPopUp", "frontResinTab"}) {
      EXPECT_TRUE(contains(driver.result(std::string("ribbon state ") + control), "hidden=YES"))
          << missing << control;
    }
  }
}

TEST(Ribbon, AMissingBackOptionHidesTheBackControlsSilently) {
  PanelDriver driver(testPPD({testOption("frontRibbon", "Front Ribbon", 6),
                              testOption("frontResin", "Front Resin", 13),
                              testOption("backResin", "Back Resin", 13)}));
  driver.runSilently("panels\nribbon panelView\nribbon initializeUI");
  EXPECT_TRUE(contains(messages(driver.trace("ribbon updateUI")),
                       "BEGIN updateBackResinTab:\nEND updateBackResinTab:\n"));
  for (const char* control : {"backResinLabel", "backResinPopUp", "backResinTab"}) {
    EXPECT_TRUE(contains(driver.result(std::string("ribbon state ") + control), "hidden=YES"))
        << control;
  }
}

TEST(Ribbon, BeforeTheViewIsLoadedTheResinRuleDoesNothing) {
  PanelDriver driver(testPPD({testOption("backResin", "Back Resin", 13)}));
  driver.runSilently("panels\nribbon initializeUI");
  EXPECT_TRUE(contains(messages(driver.trace("ribbon updateUI")),
                       "BEGIN updateFrontResinTab:\nEND updateFrontResinTab:\n"
                       "BEGIN updateBackResinTab:\nEND updateBackResinTab:\n"));
}

TEST(Ribbon, WithoutMarkAndDefaultTheResinControlsAreHidden) {
  PanelDriver driver(testPPD({testOption("frontRibbon", "Front Ribbon", 6, "-"),
                              testOption("frontResin", "Front Resin", 13, "-")}));
  driver.runSilently(kShow);
  driver.runSilently("mark frontRibbon Choice3\nribbon updateUI");
  EXPECT_TRUE(contains(driver.result("ribbon state frontResinPopUp"), "hidden=YES"));
  driver.runSilently("mark frontResin Choice0\nribbon updateUI");
  EXPECT_TRUE(contains(driver.result("ribbon state frontResinPopUp"), "hidden=NO"));
}

TEST_F(ShownRibbon, AHostChangeOfTheFrontResinUpdatesOnlyTheFrontFields) {
  driver.runSilently("mark frontRibbon Choice3\nmark frontResin Choice11");
  EXPECT_EQ(messages(driver.trace("ribbon PPDOptionKeyValueDidChange_ppdChoice frontResin "
                                  "Choice11")),
            "BEGIN PPDOptionKeyValueDidChange:(frontResin) ppdChoice:(Choice11)\n"
            "LOG new choice is Choice 11/Choice11\n"
            "BEGIN updateFrontResinTab:\n"
            "END updateFrontResinTab:\n"
            "END PPDOptionKeyValueDidChange:ppdChoice:=void\n");
  EXPECT_EQ(visible("front"), "ResinLabel ResinPopUp ResinTab ");
  EXPECT_EQ(selected("frontResinPopUp"), "selected=0 enabled=YES hidden=NO");
  driver.runSilently("ribbon updateUI");
  EXPECT_EQ(selected("frontResinPopUp"), "selected=11 enabled=YES hidden=NO");
}

TEST_F(ShownRibbon, EachHostChangeUpdatesItsSide) {
  for (const auto& [key, side] : {std::pair("frontRibbon", "Front"),
                                  {"backRibbon", "Back"},
                                  {"frontResin", "Front"},
                                  {"backResin", "Back"}}) {
    const std::string trace = messages(driver.trace(
        std::string("ribbon PPDOptionKeyValueDidChange_ppdChoice ") + key + " Choice1"));
    EXPECT_TRUE(contains(trace, std::string("BEGIN update") + side + "ResinTab:\n")) << trace;
    EXPECT_EQ(std::count(trace.begin(), trace.end(), '\n'), 5) << trace;
  }
}

TEST_F(ShownRibbon, AHostChangeOfAnyOtherKeyChangesNothing) {
  for (const char* key : {"cardLaminate", "CustomfrontResinInclude1"}) {
    EXPECT_EQ(messages(driver.trace(std::string("ribbon PPDOptionKeyValueDidChange_ppdChoice ") +
                                    key + " \"1in 1in 1in 1in\"")),
              std::string("BEGIN PPDOptionKeyValueDidChange:(") + key +
                  ") ppdChoice:(1in 1in 1in 1in)\n"
                  "END PPDOptionKeyValueDidChange:ppdChoice:=void\n");
    EXPECT_FALSE(contains(messages(driver.trace("ribbon updateUI")), "1in 1in 1in 1in"));
  }
}

TEST_F(ShownRibbon, ARefusedChoicePutsThePopUpBack) {
  driver.runSilently("refuse frontRibbon\nribbon pick frontRibbonPopUp 3");
  EXPECT_EQ(driver.result("requests"), "frontRibbon=Choice3 refused");
  EXPECT_EQ(selected("frontRibbonPopUp"), "selected=0 enabled=YES hidden=NO");
  EXPECT_EQ(visible("front"), "");
}

TEST_F(ShownRibbon, AGrantedChoiceShowsTheResinControls) {
  driver.runSilently("ribbon pick backRibbonPopUp 3\nribbon pick backResinPopUp 11");
  EXPECT_EQ(driver.result("requests"), "backRibbon=Choice3 granted, backResin=Choice11 granted");
  EXPECT_EQ(visible("back"), "ResinLabel ResinPopUp ResinTab ");
}

TEST(Ribbon, UpdateUIBeforeWillShowWritesItsTwoLines) {
  PanelDriver driver(ribbonPPD());
  driver.runSilently("panels\nribbon panelView\nribbon updateMarkedSelections");
  EXPECT_EQ(messages(driver.trace("ribbon updateUI")), "BEGIN updateUI:\nEND updateUI:\n");
}

TEST_F(ShownRibbon, MarkedSelectionsAreReadBetweenTwoLines) {
  EXPECT_EQ(messages(driver.trace("ribbon updateMarkedSelections")),
            "BEGIN updateMarkedSelections:\nEND updateMarkedSelections:\n");
}

TEST_F(ShownRibbon, TheSummaryHasTheFourOptionsAndNoAreas) {
  EXPECT_EQ(driver.result("ribbon summaryInfo"),
            R"({"Front Ribbon" = "Choice 0"; "Back Ribbon" = "Choice 0"; )"
            R"("Front Resin" = "Choice 0"; "Back Resin" = "Choice 0"; })");
}

TEST(Ribbon, TheFirstWillShowIsTracedWordForWord) {
  PanelDriver driver(ribbonPPD());
  driver.runSilently("panels\nribbon restoreValuesAndReturnError\nribbon panelView");
  std::string areas;
  for (const auto& area : resinAreas()) {
    areas += "BEGIN setAreaUI:(" + area.key + ", Default)\nEND setAreaUI:\n";
  }
  EXPECT_EQ(messages(driver.trace("ribbon willShow")),
            "BEGIN willShow:\n"
            "BEGIN initializeUI:\n"
            "LOG initializing front ribbon\n"
            "LOG initializing back ribbon\n"
            "LOG initializing front resin\n"
            "LOG initializing back resin\n"
            "BEGIN queryResingAreasFromSettings:\n"
            "END queryResinAreasFromSettings:\n"
            "END initializeUI:=void\n"
            "BEGIN updateUI:\n"
            "BEGIN setAreasUI\n" +
                areas +
                "END setAreasUI\n"
                "BEGIN updateFrontResinTab:\n"
                "END updateFrontResinTab:\n"
                "BEGIN updateBackResinTab:\n"
                "END updateBackResinTab:\n"
                "END updateUI:\n"
                "END willShow:=void\n");
}

TEST(ResinAreas, ReadingFromTheSettingsWritesTwoDifferentTextsEveryTime) {
  PanelDriver driver(ribbonPPD());
  driver.runSilently("panels");
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(contains(messages(driver.trace("ribbon restoreValuesAndReturnError")),
                         "BEGIN queryResingAreasFromSettings:\n"
                         "END queryResinAreasFromSettings:\n"));
  }
}

TEST_F(ShownRibbon, ARefusedSlotTakesTheAreaOfTheOneBefore) {
  driver.runSilently(
      "ribbon type frontResinIncludeField1_X 1in\nribbon type frontResinIncludeField2_X 2in\n"
      "refuse frontResinInclude2\nribbon saveValuesAndReturnError");
  EXPECT_EQ(field("frontResinIncludeField2_X"), "text=\"1in\" hidden=NO");
  EXPECT_EQ(field("frontResinIncludeField2_Height"), "text=\"0px\" hidden=NO");
  EXPECT_TRUE(contains(messages(driver.trace("ribbon updateUI")),
                       "BEGIN setAreaUI:(frontResinInclude2, 1in 0px 0px 0px)\n"));
}

TEST_F(ShownRibbon, ARefusedFirstSlotIsEmptiedAndHoldsNothing) {
  driver.runSilently(
      "ribbon type frontResinIncludeField1_X 1in\nrefuse frontResinInclude1\n"
      "ribbon saveValuesAndReturnError");
  EXPECT_EQ(field("frontResinIncludeField1_X"), "text=\"\" hidden=NO");
  EXPECT_TRUE(contains(messages(driver.trace("ribbon updateUI")),
                       "BEGIN setAreaUI:(frontResinInclude1, (null))\n"));
}

TEST_F(ShownRibbon, SavingRequestsTheTwelveBareKeysInOrder) {
  driver.runSilently("ribbon saveValuesAndReturnError");
  std::string expected;
  for (const auto& area : resinAreas()) {
    expected += (expected.empty() ? "" : ", ") + area.key + "= granted";
  }
  EXPECT_EQ(driver.result("requests"), expected);
}

TEST_F(ShownRibbon, AHostChangeOfAnAreaShowsAtTheNextUpdateUI) {
  driver.runSilently(
      "ribbon PPDOptionKeyValueDidChange_ppdChoice backResinExclude3 \"Custom.1in 2in 3in 4in\"");
  EXPECT_EQ(field("backResinExcludeField3_X"), "text=\"\" hidden=NO");
  EXPECT_TRUE(contains(messages(driver.trace("ribbon updateUI")),
                       "BEGIN setAreaUI:(backResinExclude3, Custom.1in 2in 3in 4in)\n"));
  EXPECT_EQ(field("backResinExcludeField3_X"), "text=\"1in\" hidden=NO");
  EXPECT_EQ(field("backResinExcludeField3_Height"), "text=\"4in\" hidden=NO");
}

TEST(ResinAreas, SavingBeforeThePanelWasShownRequestsTheEmptyText) {
  PanelDriver driver(ribbonPPD());
  driver.runSilently("panels\nribbon saveValuesAndReturnError");
  const std::string requests = driver.result("requests");
  EXPECT_TRUE(requests.starts_with("frontResinInclude1= granted, ")) << requests;
  EXPECT_EQ(std::count(requests.begin(), requests.end(), '='), 12);
}

TEST(ResinAreas, WithoutConstraintHandlingSavingMakesEverySlotTheEmptyText) {
  PanelDriver driver(ribbonPPD(), PanelDriver::Host::plain);
  driver.runSilently("panels\nribbon saveValuesAndReturnError\nribbon panelView");
  driver.runSilently("ribbon PPDOptionKeyValueDidChange_ppdChoice frontRibbon Choice1");
  const std::string trace = logged(driver.trace("ribbon saveValuesAndReturnError"));
  std::string expected;
  for (int i = 0; i < 12; ++i) expected += "area: \nValue saved: \n";
  EXPECT_EQ(trace, expected);
}

TEST_F(ShownRibbon, AreasOfAHiddenTabAreReadSavedAndRequested) {
  EXPECT_EQ(visible("back"), "");
  driver.runSilently("ribbon type backResinIncludeField1_X 1in");
  const std::string trace = logged(driver.trace("ribbon shouldPrint"));
  EXPECT_TRUE(contains(trace, "resinArea[1][0][0]::1in 0px 0px 0px\n")) << trace;
  EXPECT_TRUE(contains(driver.result("requests"), "backResinInclude1=1in 0px 0px 0px granted"));
  EXPECT_EQ(driver.result("marked backResinInclude1"), "Custom.1in 0px 0px 0px");
}

TEST_F(ShownRibbon, TypedAreasAreReadInTheirOrderWhenThePanelHides) {
  const std::string trace = messages(driver.trace("ribbon shouldHide"));
  EXPECT_TRUE(
      trace.starts_with("BEGIN shouldHide:\nBEGIN queryResinAreasUI:\n"
                        "BEGIN queryResinArea:\n"
                        "BEGIN formatArea: ()()()()\n"
                        "END formatArea: ()\n"
                        "END queryResinArea:()\n"))
      << trace;
  std::string lines;
  for (const char* side : {"0", "1"}) {
    for (const char* kind : {"0", "1"}) {
      for (const char* number : {"0", "1", "2"}) {
        lines += std::string("LOG resinArea[") + side + "][" + kind + "][" + number + "]::\n";
      }
    }
  }
  EXPECT_TRUE(contains(trace, lines + "END queryResinAreasFromUI:\n"
                                      "BEGIN saveResinAreasToSettings:\n"))
      << trace;
}

TEST(ResinAreas, SavePassesAreTracedWordForWordWhateverTheHostRefuses) {
  test::checkSavePasses(ribbonPPD(), "ribbon", resinTexts(), resinAreas());
}

TEST(Ribbon, EveryOperationWorksBeforeTheViewIsLoaded) {
  PanelDriver driver(ribbonPPD());
  const std::string trace = driver.trace(
      "panels\nribbon updateUI\nribbon restoreValuesAndReturnError\nribbon willShow\n"
      "ribbon changeFrontRibbonOption\nribbon changeBackResinOption\nribbon shouldHide\n"
      "ribbon shouldPrint\nribbon saveValuesAndReturnError\nribbon summaryInfo\n"
      "ribbon shouldShowHelp\nribbon panelName");
  EXPECT_FALSE(driver.failed());
  EXPECT_EQ(test::depthAfter(trace), 0);
  EXPECT_EQ(driver.result("ribbon panelKind"), "org.cardpanels.RibbonPanelKind");
}

}  // namespace
}  // namespace cardpanels
