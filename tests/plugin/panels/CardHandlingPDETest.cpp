#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/plugin/panels/PopUpPanels.h"
#include "tests/plugin/panels/Trace.h"
#include "tests/support/PanelDriver.h"
#include "tests/support/TestPPD.h"

namespace cardpanels {
namespace {

using test::contains;
using test::kDisabledPopUp;
using test::logged;
using test::messages;
using test::PanelDriver;
using test::popUp;
using test::ppdWith;
using test::testOption;
using test::testPPD;

const std::string kAllOptions =
    ppdWith({"frontRotation", "backRotation", "entryCardFlip", "magEncodeCardFlip"});

/// A panel that a dialog has restored and shown.
constexpr const char* kShow =
    "panels\ncardhandling restoreValuesAndReturnError\ncardhandling panelView\n"
    "cardhandling willShow\nrequests";

TEST(CardHandling, WithOnlyTheMagneticEncodingOptionThePanelExists) {
  PanelDriver driver(ppdWith({"magEncodeCardFlip"}));
  EXPECT_EQ(driver.result("panels"), "(CardHandlingPDE)");
  EXPECT_EQ(logged(driver.trace("cardhandling supportedPPDOptionKeys")),
            "Front rotate option not supported!\n"
            "Back rotate option not supported!\n"
            "Card entry option not supported!\n"
            "Adding mag encode flip option\n");
  EXPECT_EQ(driver.result("cardhandling supportedPPDOptionKeys"), "(magEncodeCardFlip)");
  driver.runSilently("cardhandling panelView");
  EXPECT_EQ(messages(driver.trace("cardhandling initializeUI")),
            "BEGIN initializeUI:\n"
            "LOG disabling front rotate\n"
            "LOG disabling back rotate\n"
            "LOG disabling card entry\n"
            "LOG initializing mag encode\n"
            "LOG initializing mag encode\n"
            "END initializeUI:=void\n");
  EXPECT_EQ(driver.result("cardhandling state frontRotatePopUp"), kDisabledPopUp);
  EXPECT_EQ(driver.result("cardhandling state backRotatePopUp"), kDisabledPopUp);
  EXPECT_EQ(driver.result("cardhandling state cardEntryPopUp"), kDisabledPopUp);
  EXPECT_EQ(driver.result("cardhandling state magEncodePopUp"), popUp(-1));
}

TEST(CardHandling, WithoutTheMagneticEncodingOptionItsTextsAreLogged) {
  PanelDriver driver(ppdWith({"frontRotation", "backRotation", "entryCardFlip"}));
  driver.runSilently("panels\ncardhandling panelView");
  EXPECT_EQ(logged(driver.trace("cardhandling supportedPPDOptionKeys")),
            "Adding front rotate option\n"
            "Adding back rotate option\n"
            "Adding card entry option\n"
            "Card mag encode flip not supported!\n");
  EXPECT_EQ(logged(driver.trace("cardhandling willShow")),
            "initializing front rotate\n"
            "initializing back rotate\n"
            "initializing card entry\n"
            "disabling mag encode\n"
            "disabling mag encode\n");
  EXPECT_EQ(driver.result("cardhandling state magEncodePopUp"), kDisabledPopUp);
}

TEST(CardHandling, WithNoneOfTheOptionsThereIsNoPanel) {
  PanelDriver driver(ppdWith({"cardLaminate"}));
  const std::string trace = messages(driver.trace("panels"));
  EXPECT_TRUE(contains(trace,
                       "END initWithCallback:=id(nil, nil)\n"
                       "LOG Creating PDE of type "
                       "kPrinterModuleTypeIDStr(BDB091F4-E57F-11D3-B5CC-0050E4603277) "
                       "CardHandlingPDE (0x0)\n"))
      << trace;
}

TEST(CardHandling, TheSummaryHasAnEntryForEachOption) {
  PanelDriver driver(kAllOptions);
  driver.runSilently(kShow);
  driver.runSilently("mark entryCardFlip Choice2\ncardhandling updateMarkedSelections");
  EXPECT_EQ(
      driver.result("cardhandling summaryInfo"),
      R"({"Title of frontRotation" = "Choice 0"; "Title of backRotation" = "Choice 0"; )"
      R"("Title of entryCardFlip" = "Choice 2"; "Title of magEncodeCardFlip" = "Choice 0"; })");
}

TEST(CardHandling, OfTwoOptionsWithOneTitleTheSummaryKeepsTheLater) {
  PanelDriver driver(testPPD({testOption("magEncodeCardFlip", "Same", 2, "Choice1"),
                              testOption("backRotation", "Same", 2, "Choice0")}));
  driver.runSilently(kShow);
  EXPECT_EQ(driver.result("cardhandling summaryInfo"), R"({Same = "Choice 1"; })");
}

TEST(CardHandling, ASecondWillShowOnlySelects) {
  PanelDriver driver(kAllOptions);
  driver.runSilently(kShow);
  EXPECT_EQ(messages(driver.trace("cardhandling willShow")),
            "BEGIN willShow:\n"
            "BEGIN initializeUI:\n"
            "END initializeUI:=void\n"
            "BEGIN updateUI:\n"
            "END updateUI:\n"
            "END willShow:=void\n");
}

TEST(CardHandling, WithoutConstraintHandlingAnActionKeepsTheChoiceItself) {
  PanelDriver driver(kAllOptions, PanelDriver::Host::plain);
  driver.runSilently(kShow);
  driver.runSilently("cardhandling pick cardEntryPopUp 2");
  EXPECT_EQ(driver.result("cardhandling state cardEntryPopUp"), popUp(2));
  EXPECT_EQ(driver.result("cardhandling summaryInfo"),
            R"({"Title of entryCardFlip" = "Choice 2"; })");
  EXPECT_EQ(messages(driver.trace("cardhandling saveValuesAndReturnError")),
            "BEGIN saveValuesAndReturnError:(0x0)\n"
            "END saveValuesAndReturnError:=BOOL(YES)\n");
  EXPECT_EQ(driver.result("marked entryCardFlip"), "Choice0");
}

TEST(CardHandling, EachActionAsksForItsOwnOption) {
  PanelDriver driver(kAllOptions);
  driver.runSilently(kShow);
  driver.runSilently(
      "cardhandling pick frontRotatePopUp 1\ncardhandling pick backRotatePopUp 2\n"
      "cardhandling pick cardEntryPopUp 1\ncardhandling pick magEncodePopUp 2");
  EXPECT_EQ(driver.result("requests"),
            "frontRotation=Choice1 granted, backRotation=Choice2 granted, "
            "entryCardFlip=Choice1 granted, magEncodeCardFlip=Choice2 granted");
  EXPECT_EQ(driver.result("cardhandling state magEncodePopUp"), popUp(2));
}

TEST(CardHandling, ARefusedChoiceSnapsBack) {
  PanelDriver driver(kAllOptions);
  driver.runSilently(kShow);
  driver.runSilently("refuse backRotation\ncardhandling pick backRotatePopUp 2");
  EXPECT_EQ(driver.result("requests"), "backRotation=Choice2 refused");
  EXPECT_EQ(driver.result("cardhandling state backRotatePopUp"), popUp(0));
}

TEST(CardHandling, AHostChangeShowsAtTheNextUpdateUI) {
  PanelDriver driver(kAllOptions);
  driver.runSilently(kShow);
  const std::vector<std::pair<std::string, std::string>> slots{
      {"frontRotation", "frontRotatePopUp"},
      {"backRotation", "backRotatePopUp"},
      {"entryCardFlip", "cardEntryPopUp"},
      {"magEncodeCardFlip", "magEncodePopUp"}};
  for (const auto& [key, outlet] : slots) {
    EXPECT_EQ(logged(driver.trace("cardhandling PPDOptionKeyValueDidChange_ppdChoice " + key +
                                  " Choice1")),
              "new choice is Choice 1/Choice1\n");
    EXPECT_EQ(driver.result("cardhandling state " + outlet), popUp(0));
    driver.runSilently("cardhandling updateUI");
    EXPECT_EQ(driver.result("cardhandling state " + outlet), popUp(1));
  }
}

TEST(CardHandling, AHostChangeOfAnotherKeyChangesNothing) {
  PanelDriver driver(kAllOptions);
  driver.runSilently(kShow);
  EXPECT_EQ(messages(driver.trace(
                "cardhandling PPDOptionKeyValueDidChange_ppdChoice frontrotation Choice1")),
            "BEGIN PPDOptionKeyValueDidChange:(frontrotation) ppdChoice:(Choice1)\n"
            "END PPDOptionKeyValueDidChange:ppdChoice:=void\n");
}

TEST(CardHandling, ThePanelKeepsItsViewWhenTheHostLetsGo) {
  PanelDriver driver(kAllOptions);
  driver.runSilently(kShow);
  driver.runSilently("cardhandling forgetView");
  EXPECT_EQ(driver.result("cardhandling state magEncodePopUp"), popUp(0));
}

TEST(CardHandling, EveryOperationWorksBeforeTheViewIsLoaded) {
  PanelDriver driver(kAllOptions);
  driver.runSilently(
      "panels\ncardhandling updateUI\ncardhandling restoreValuesAndReturnError\n"
      "cardhandling willShow\ncardhandling changeFrontRotateOption\n"
      "cardhandling changeMagEncodeOption\ncardhandling shouldHide\n"
      "cardhandling saveValuesAndReturnError\ncardhandling summaryInfo\n"
      "cardhandling shouldShowHelp\ncardhandling panelName");
  EXPECT_FALSE(driver.failed());
  EXPECT_EQ(driver.result("cardhandling panelKind"), "org.cardpanels.CardHandlingKind");
}

}  // namespace
}  // namespace cardpanels
