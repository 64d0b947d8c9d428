#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/support/PanelDriver.h"
#include "tests/support/TestPPD.h"

namespace cardpanels {
namespace {

using test::laminateOption;
using test::PanelDriver;
using test::testPPD;

constexpr const char* kItems = R"(items=("None", "Front Side", "Back Side", "Both Sides"))";

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

std::string popUp(int selected, const std::string& items = kItems) {
  return items + " selected=" + std::to_string(selected) + " enabled=YES hidden=NO";
}

/// A panel that a dialog has restored and shown.
class ShownLaminate : public testing::Test {
 protected:
  ShownLaminate() {
    driver.runSilently(
        "panels\nlaminate restoreValuesAndReturnError\nlaminate panelView\nlaminate willShow\n"
        "requests");
  }
  PanelDriver driver{testPPD({laminateOption()})};
};

TEST(ThermalLaminate, AWholeVisitIsTracedWordForWord) {
  PanelDriver driver(testPPD({laminateOption()}));
  EXPECT_EQ(driver.run(R"(panels
laminate panelName
laminate panelKind
laminate supportedPPDOptionKeys
laminate restoreValuesAndReturnError nil
laminate panelView
laminate willShow
laminate state frontLaminatePopUp
laminate pick frontLaminatePopUp 1
requests
refuse cardLaminate
laminate pick frontLaminatePopUp 3
requests
laminate state frontLaminatePopUp
mark cardLaminate Back
laminate PPDOptionKeyValueDidChange_ppdChoice cardLaminate Back
laminate updateUI
laminate state frontLaminatePopUp
laminate shouldHide
laminate saveValuesAndReturnError nil
laminate summaryInfo
)"),
            R"-(> panels
| BEGIN self(<ORBPDEPlugIn: 0x1>) initWithBundle:(<Bundle: 0x2>, 0x2)
| END self(<ORBPDEPlugIn: 0x1>) initWithBundle:=BOOL(YES)
| BEGIN self(<ORBPDEPlugIn: 0x1>) PDEPanelsForType:(BDB091F4-E57F-11D3-B5CC-0050E4603277) withHostInfo:(<HostCallback: 0x3>)
|     LOG self(<ORBPDEPlugIn: 0x1>) ATTR: nil
|     BEGIN self(<RibbonPanelsPDE: 0x4>) initWithCallback:(<HostCallback: 0x3>, 0x3) andBundle:(<Bundle: 0x2>, 0x2)
|         LOG self(<RibbonPanelsPDE: 0x4>) Constraint Handling Available: YES
|     END self(<RibbonPanelsPDE: 0x4>) initWithCallback:=id(nil, nil)
|     LOG self(<ORBPDEPlugIn: 0x1>) Creating PDE of type kPrinterModuleTypeIDStr(BDB091F4-E57F-11D3-B5CC-0050E4603277) RibbonPanelsPDE (0x0)
|     BEGIN self(<UltravioletPDE: 0x5>) initWithCallback:(<HostCallback: 0x3>, 0x3) andBundle:(<Bundle: 0x2> 0x2)
|         LOG self(<UltravioletPDE: 0x5>) Constraint Handling Available: YES
|     END self(<UltravioletPDE: 0x5>) initWithCallback:=id(nil, nil)
|     LOG self(<ORBPDEPlugIn: 0x1>) Creating PDE of type kPrinterModuleTypeIDStr(BDB091F4-E57F-11D3-B5CC-0050E4603277) UltravioletPanelPDE (0x0)
|     BEGIN self(<PeelOffPanelPDE: 0x6>) initWithCallback:(<HostCallback: 0x3>, 0x3) andBundle:(<Bundle: 0x2> 0x2)
|         LOG self(<PeelOffPanelPDE: 0x6>) Constraint Handling Available: YES
|     END self(<PeelOffPanelPDE: 0x6>) initWithCallback:=id(nil, nil)
|     LOG self(<ORBPDEPlugIn: 0x1>) Creating PDE of type kPrinterModuleTypeIDStr(BDB091F4-E57F-11D3-B5CC-0050E4603277) PeelOffPanelPDE (0x0)
|     BEGIN self(<ThermalLaminatePDE: 0x7>) initWithCallback:(<HostCallback: 0x3>, 0x3) andBundle:(<Bundle: 0x2> 0x2)
|         LOG self(<ThermalLaminatePDE: 0x7>) Constraint Handling Available: YES
|     END self(<ThermalLaminatePDE: 0x7>) initWithCallback:andBundle:=id(self)
|     LOG self(<ORBPDEPlugIn: 0x1>) Creating PDE of type kPrinterModuleTypeIDStr(BDB091F4-E57F-11D3-B5CC-0050E4603277) ThermalLaminatePDE (0x7)
|     BEGIN self(<CardHandlingPDE: 0x8>) initWithCallback:(<HostCallback: 0x3>, 0x3) andBundle:(<Bundle: 0x2> 0x2)
|         LOG self(<CardHandlingPDE: 0x8>) Constraint Handling Available: YES
|     END self(<CardHandlingPDE: 0x8>) initWithCallback:=id(nil, nil)
|     LOG self(<ORBPDEPlugIn: 0x1>) Creating PDE of type kPrinterModuleTypeIDStr(BDB091F4-E57F-11D3-B5CC-0050E4603277) CardHandlingPDE (0x0)
| END self(<ORBPDEPlugIn: 0x1>) PDEPanelsForType:withHostInfo:=NSArray(("<ThermalLaminatePDE: 0x7>"))
= (ThermalLaminatePDE)
> laminate panelName
| BEGIN self(<ThermalLaminatePDE: 0x7>) panelName:
| END self(<ThermalLaminatePDE: 0x7>) panelName:=NSString(Thermal Laminate)
= Thermal Laminate
> laminate panelKind
| BEGIN self(<ThermalLaminatePDE: 0x7>) panelKind:
| END self(<ThermalLaminatePDE: 0x7>) panelKind:=NSString(org.cardpanels.ThermalLaminateKind)
= org.cardpanels.ThermalLaminateKind
> laminate supportedPPDOptionKeys
| BEGIN self(<ThermalLaminatePDE: 0x7>) supportedPPDOptionKeys:
|     LOG self(<ThermalLaminatePDE: 0x7>) Adding laminate option
| END self(<ThermalLaminatePDE: 0x7>) supportedPPDOptionKeys:=NSArray((cardLaminate))
= (cardLaminate)
> laminate restoreValuesAndReturnError nil
| BEGIN self(<ThermalLaminatePDE: 0x7>) restoreValuesAndReturnError:(0x0)
|     BEGIN self(<ThermalLaminatePDE: 0x7>) updateUI:
|     END self(<ThermalLaminatePDE: 0x7>) updateUI:
| END self(<ThermalLaminatePDE: 0x7>) restoreValuesAndReturnError:=BOOL(YES)
= YES
> laminate panelView
| BEGIN self(<ThermalLaminatePDE: 0x7>) panelView:
| END self(<ThermalLaminatePDE: 0x7>) panelView:=NSView(<View: 0x9>, 0x9)
= <View: 0x9>
> laminate willShow
| BEGIN self(<ThermalLaminatePDE: 0x7>) willShow:
|     BEGIN self(<ThermalLaminatePDE: 0x7>) initializeUI:
|         LOG self(<ThermalLaminatePDE: 0x7>) initializing laminate
|     END self(<ThermalLaminatePDE: 0x7>) initializeUI:=void
|     BEGIN self(<ThermalLaminatePDE: 0x7>) updateUI:
|     END self(<ThermalLaminatePDE: 0x7>) updateUI:
| END self(<ThermalLaminatePDE: 0x7>) willShow:=void
= void
> laminate state frontLaminatePopUp
= items=("None", "Front Side", "Back Side", "Both Sides") selected=0 enabled=YES hidden=NO
> laminate pick frontLaminatePopUp 1
| BEGIN self(<ThermalLaminatePDE: 0x7>) doSelectionForPopUp:(<PopUpButton: 0xa>) withKey:(cardLaminate)
|     LOG self(<ThermalLaminatePDE: 0x7>) selected index: 1
|     LOG self(<ThermalLaminatePDE: 0x7>) selected request: <PDEChoice 0xb userTitle:"Front Side" ppdTitle:"Front" marked:NO choice:2 of 4>
| END self(<ThermalLaminatePDE: 0x7>) doSelectionForPopUp:withKey:=PDEChoice((null))
| BEGIN self(<ThermalLaminatePDE: 0x7>) updateUI:
| END self(<ThermalLaminatePDE: 0x7>) updateUI:
= void
> requests
= cardLaminate=Front granted
> refuse cardLaminate
= void
> laminate pick frontLaminatePopUp 3
| BEGIN self(<ThermalLaminatePDE: 0x7>) doSelectionForPopUp:(<PopUpButton: 0xa>) withKey:(cardLaminate)
|     LOG self(<ThermalLaminatePDE: 0x7>) selected index: 3
|     LOG self(<ThermalLaminatePDE: 0x7>) selected request: <PDEChoice 0xc userTitle:"Both Sides" ppdTitle:"Both" marked:NO choice:4 of 4>
| END self(<ThermalLaminatePDE: 0x7>) doSelectionForPopUp:withKey:=PDEChoice((null))
| BEGIN self(<ThermalLaminatePDE: 0x7>) updateUI:
| END self(<ThermalLaminatePDE: 0x7>) updateUI:
= void
> requests
= cardLaminate=Both refused
> laminate state frontLaminatePopUp
= items=("None", "Front Side", "Back Side", "Both Sides") selected=1 enabled=YES hidden=NO
> mark cardLaminate Back
= void
> laminate PPDOptionKeyValueDidChange_ppdChoice cardLaminate Back
| BEGIN self(<ThermalLaminatePDE: 0x7>) PPDOptionKeyValueDidChange:(cardLaminate) ppdChoice:(Back)
|     LOG self(<ThermalLaminatePDE: 0x7>) new choice is Back Side/Back
| END self(<ThermalLaminatePDE: 0x7>) PPDOptionKeyValueDidChange:ppdChoice:=void
= void
> laminate updateUI
| BEGIN self(<ThermalLaminatePDE: 0x7>) updateUI:
| END self(<ThermalLaminatePDE: 0x7>) updateUI:
= void
> laminate state frontLaminatePopUp
= items=("None", "Front Side", "Back Side", "Both Sides") selected=2 enabled=YES hidden=NO
> laminate shouldHide
| BEGIN self(<ThermalLaminatePDE: 0x7>) shouldHide:
| END self(<ThermalLaminatePDE: 0x7>) shouldHide:=BOOL(YES)
= YES
> laminate saveValuesAndReturnError nil
| BEGIN self(<ThermalLaminatePDE: 0x7>) saveValuesAndReturnError:(0x0)
| END self(<ThermalLaminatePDE: 0x7>) saveValuesAndReturnError:=BOOL(YES)
= YES
> laminate summaryInfo
| BEGIN self(<ThermalLaminatePDE: 0x7>) summaryInfo:
| END self(<ThermalLaminatePDE: 0x7>) summaryInfo:NSDictionary({"Card Laminate" = "Back Side"; }, 0xd)=
= {"Card Laminate" = "Back Side"; }
)-");
}

TEST(ThermalLaminate, WithoutConstraintHandlingSaysNOAndKeepsTheChoiceItself) {
  PanelDriver driver(testPPD({laminateOption()}), PanelDriver::Host::plain);
  EXPECT_TRUE(contains(driver.trace("panels"), " Constraint Handling Available: NO\n"));
  driver.runSilently("laminate panelView\nlaminate willShow");
  EXPECT_TRUE(contains(driver.trace("laminate pick frontLaminatePopUp 2"),
                       "doSelectionForPopUp:withKey:=PDEChoice(<PDEChoice "));
  EXPECT_EQ(driver.result("laminate state frontLaminatePopUp"), popUp(2));
  EXPECT_EQ(driver.result("laminate summaryInfo"), R"({"Card Laminate" = "Back Side"; })");
  EXPECT_EQ(driver.result("marked cardLaminate"), "None");
}

TEST(ThermalLaminate, WithoutConstraintHandlingSavesNothing) {
  PanelDriver driver(testPPD({laminateOption()}), PanelDriver::Host::plain);
  driver.runSilently(
      "panels\nlaminate panelView\nlaminate willShow\n"
      "laminate pick frontLaminatePopUp 2");
  EXPECT_EQ(driver.trace("laminate saveValuesAndReturnError"),
            "BEGIN self(<ThermalLaminatePDE: 0x7>) saveValuesAndReturnError:(0x0)\n"
            "END self(<ThermalLaminatePDE: 0x7>) saveValuesAndReturnError:=BOOL(YES)\n");
  EXPECT_EQ(driver.result("marked cardLaminate"), "None");
}

TEST(ThermalLaminate, APPDWithoutTheOptionGivesNoPanel) {
  PanelDriver driver(testPPD({}));
  EXPECT_TRUE(contains(driver.trace("panels"), "ThermalLaminatePDE: 0x"));
  EXPECT_TRUE(contains(driver.trace("panels"), ">) initWithCallback:=id(nil, nil)\n"));
  EXPECT_EQ(driver.result("laminate willShow"), "there is no panel laminate");
}

TEST(ThermalLaminate, TheKeysAreTheSameArrayAndLoggedOnce) {
  PanelDriver driver(testPPD({laminateOption()}));
  driver.runSilently("panels");
  EXPECT_TRUE(
      contains(driver.trace("laminate supportedPPDOptionKeys"), " Adding laminate option\n"));
  EXPECT_FALSE(contains(driver.trace("laminate supportedPPDOptionKeys"), "Adding"));
  EXPECT_EQ(driver.result("laminate supportedPPDOptionKeys"), "(cardLaminate)");
}

TEST(ThermalLaminate, UpdateUIBeforeWillShowSelectsNothingAndWritesItsTwoLines) {
  PanelDriver driver(testPPD({laminateOption()}));
  driver.runSilently("panels\nlaminate panelView\nlaminate updateMarkedSelections");
  const std::string trace = driver.trace("laminate updateUI");
  EXPECT_EQ(std::count(trace.begin(), trace.end(), '\n'), 2);
  EXPECT_TRUE(trace.starts_with("BEGIN self(<ThermalLaminatePDE: ")) << trace;
  EXPECT_TRUE(trace.ends_with(">) updateUI:\n")) << trace;
  EXPECT_EQ(driver.result("laminate state frontLaminatePopUp"), popUp(-1, "items=()"));
}

TEST_F(ShownLaminate, ChoosingAnItemAnswersNothingAndEndsOnTheMarkedChoice) {
  EXPECT_TRUE(contains(driver.trace("laminate pick frontLaminatePopUp 1"),
                       "doSelectionForPopUp:withKey:=PDEChoice((null))\n"));
  EXPECT_EQ(driver.result("requests"), "cardLaminate=Front granted");
  EXPECT_EQ(driver.result("marked cardLaminate"), "Front");
  EXPECT_EQ(driver.result("laminate state frontLaminatePopUp"), popUp(1));
}

TEST_F(ShownLaminate, ARefusedChoiceSnapsBack) {
  driver.runSilently("refuse cardLaminate\nlaminate pick frontLaminatePopUp 3");
  EXPECT_EQ(driver.result("requests"), "cardLaminate=Both refused");
  EXPECT_EQ(driver.result("laminate state frontLaminatePopUp"), popUp(0));
}

TEST_F(ShownLaminate, AHostChangeShowsAtTheNextUpdateUI) {
  EXPECT_TRUE(
      contains(driver.trace("laminate PPDOptionKeyValueDidChange_ppdChoice cardLaminate Both"),
               "new choice is Both Sides/Both\n"));
  EXPECT_EQ(driver.result("laminate state frontLaminatePopUp"), popUp(0));
  driver.runSilently("laminate updateUI");
  EXPECT_EQ(driver.result("laminate state frontLaminatePopUp"), popUp(3));
}

TEST_F(ShownLaminate, AHostChangeToAnUnknownKeywordClearsTheSelection) {
  EXPECT_TRUE(
      contains(driver.trace("laminate PPDOptionKeyValueDidChange_ppdChoice cardLaminate front"),
               "new choice is (null)/(null)\n"));
  EXPECT_EQ(driver.result("laminate summaryInfo"), "{}");
  driver.runSilently("laminate updateUI");
  EXPECT_EQ(driver.result("laminate state frontLaminatePopUp"), popUp(0));
}

TEST_F(ShownLaminate, AHostChangeOfAnotherKeyOrOfNothingIsIgnored) {
  for (const char* arguments : {"frontUV None", "nil Front", "cardLaminate nil", "nil nil"}) {
    const std::string trace =
        driver.trace(std::string("laminate PPDOptionKeyValueDidChange_ppdChoice ") + arguments);
    EXPECT_FALSE(contains(trace, "LOG")) << trace;
  }
  EXPECT_EQ(driver.result("laminate summaryInfo"), R"({"Card Laminate" = None; })");
}

TEST_F(ShownLaminate, TheSummaryHasTheOptionsTextAndTheChoicesTitle) {
  driver.runSilently("laminate pick frontLaminatePopUp 1");
  EXPECT_EQ(driver.result("laminate summaryInfo"), R"({"Card Laminate" = "Front Side"; })");
}

TEST_F(ShownLaminate, ASecondWillShowFillsNothingAgain) {
  EXPECT_FALSE(contains(driver.trace("laminate willShow"), "initializing"));
}

TEST_F(ShownLaminate, RestoreFollowsTheMarks) {
  driver.runSilently("mark cardLaminate Back\nlaminate restoreValuesAndReturnError");
  EXPECT_EQ(driver.result("laminate state frontLaminatePopUp"), popUp(2));
}

TEST_F(ShownLaminate, NothingMarkedFallsBackToTheDefault) {
  driver.runSilently(
      "mark cardLaminate Back\nunmark cardLaminate\n"
      "laminate restoreValuesAndReturnError");
  EXPECT_EQ(driver.result("laminate state frontLaminatePopUp"), popUp(0));
}

TEST(ThermalLaminate, NothingMarkedAndNoDefaultClearsTheSelection) {
  auto option = laminateOption();
  option.defaultChoice = "-";
  PanelDriver driver(testPPD({option}));
  driver.runSilently("panels\nunmark cardLaminate");
  EXPECT_TRUE(
      contains(driver.trace("laminate restoreValuesAndReturnError"),
               "    LOG self(<ThermalLaminatePDE: 0x7>) returning a -1 index means there was "
               "no default choice\n"));
  EXPECT_EQ(driver.result("laminate summaryInfo"), "{}");
}

TEST(ThermalLaminate, EveryOperationWorksBeforeTheViewIsLoaded) {
  PanelDriver driver(testPPD({laminateOption()}));
  driver.runSilently(
      "panels\nlaminate initializeUI\nlaminate updateUI\nlaminate willShow\n"
      "laminate updateMarkedSelections\nlaminate changeFrontLaminateOption\n"
      "laminate PPDOptionKeyValueDidChange_ppdChoice cardLaminate Front\nlaminate updateUI\n"
      "laminate shouldHide\nlaminate saveValuesAndReturnError\nlaminate summaryInfo\n"
      "laminate shouldShowHelp");
  EXPECT_FALSE(driver.failed());
}

TEST(ThermalLaminate, AnActionWithoutAnItemAsksForNothingAndIsRefused) {
  PanelDriver driver(testPPD({laminateOption()}));
  driver.runSilently("panels\nlaminate panelView");
  const std::string trace = driver.trace("laminate changeFrontLaminateOption");
  EXPECT_TRUE(contains(trace, "selected index: -1\n")) << trace;
  EXPECT_TRUE(contains(trace, "selected request: (null)\n")) << trace;
  EXPECT_EQ(driver.result("requests"), "cardLaminate=nil refused");
}

TEST_F(ShownLaminate, HasNoShouldPrint) {
  EXPECT_EQ(driver.result("laminate shouldPrint"), "ThermalLaminatePDE has no shouldPrint");
}

TEST_F(ShownLaminate, ThePanelKeepsItsViewWhenTheHostLetsGo) {
  driver.runSilently("laminate forgetView");
  EXPECT_EQ(driver.result("laminate state frontLaminatePopUp"), popUp(0));
}

TEST_F(ShownLaminate, IsGoneWhenDestroyed) {
  EXPECT_EQ(driver.result("laminate destroy"), "void");
  EXPECT_EQ(driver.result("laminate willShow"), "there is no panel laminate");
}

TEST_F(ShownLaminate, HasTheKindOfThePlugIn) {
  EXPECT_EQ(driver.result("laminate panelKind"), "org.cardpanels.ThermalLaminateKind");
}

}  // namespace
}  // namespace cardpanels
