#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "apps/pde-drive/Driver.h"
#include "tests/plugin/panels/PopUpPanels.h"
#include "tests/plugin/panels/Trace.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/PanelDriver.h"
#include "tests/support/TemporaryFolder.h"
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

const std::string kAllOptions = ppdWith({"frontUV", "backUV", "frontUVMAC", "backUVMAC"});

/// A panel that a dialog has restored and shown.
constexpr const char* kShow =
    "panels\nultraviolet restoreValuesAndReturnError\nultraviolet panelView\nultraviolet willShow\n"
    "requests";

TEST(Ultraviolet, WithOnlyTheBackMACOptionThePanelExists) {
  PanelDriver driver(ppdWith({"backUVMAC"}));
  EXPECT_EQ(driver.result("panels"), "(UltravioletPDE)");
  EXPECT_EQ(logged(driver.trace("ultraviolet supportedPPDOptionKeys")),
            "Front UV option not supported!\n"
            "Back UV option not supported!\n"
            "Front MAC option not supported!\n"
            "Adding back MAC option\n");
  EXPECT_EQ(driver.result("ultraviolet supportedPPDOptionKeys"), "(backUVMAC)");
  driver.runSilently("ultraviolet restoreValuesAndReturnError\nultraviolet panelView");
  EXPECT_EQ(messages(driver.trace("ultraviolet initializeUI")),
            "BEGIN initializeUI:\n"
            "LOG disabling front uv\n"
            "LOG disabling back uv\n"
            "LOG disabling front mac\n"
            "LOG initializing back mac\n"
            "END initializeUI:=void\n");
  EXPECT_EQ(driver.result("ultraviolet state frontUVPopUp"), kDisabledPopUp);
  EXPECT_EQ(driver.result("ultraviolet state backUVPopUp"), kDisabledPopUp);
  EXPECT_EQ(driver.result("ultraviolet state frontMACPopup"), kDisabledPopUp);
  EXPECT_EQ(driver.result("ultraviolet state backMACPopup"), popUp(-1));
  EXPECT_EQ(driver.result("ultraviolet summaryInfo"), R"({"Title of backUVMAC" = "Choice 0"; })");
}

TEST(Ultraviolet, WithNoneOfTheOptionsThereIsNoPanel) {
  PanelDriver driver(ppdWith({"cardLaminate"}));
  const std::string trace = messages(driver.trace("panels"));
  EXPECT_TRUE(contains(trace,
                       "END initWithCallback:=id(nil, nil)\n"
                       "LOG Creating PDE of type "
                       "kPrinterModuleTypeIDStr(BDB091F4-E57F-11D3-B5CC-0050E4603277) "
                       "UltravioletPanelPDE (0x0)\n"))
      << trace;
}

TEST(Ultraviolet, TheUVOptionsWorkWithoutTheMACOptions) {
  PanelDriver driver(ppdWith({"frontUV", "backUV"}));
  driver.runSilently(kShow);
  EXPECT_EQ(driver.result("ultraviolet state frontUVPopUp"), popUp(0));
  EXPECT_EQ(driver.result("ultraviolet state backUVPopUp"), popUp(0));
  EXPECT_EQ(driver.result("ultraviolet state frontMACPopup"), kDisabledPopUp);
  EXPECT_EQ(driver.result("ultraviolet state backMACPopup"), kDisabledPopUp);
}

TEST(Ultraviolet, TheMACOptionsWorkWithoutTheUVOptions) {
  PanelDriver driver(ppdWith({"frontUVMAC", "backUVMAC"}));
  driver.runSilently(kShow);
  EXPECT_EQ(driver.result("ultraviolet state frontUVPopUp"), kDisabledPopUp);
  EXPECT_EQ(driver.result("ultraviolet state backUVPopUp"), kDisabledPopUp);
  EXPECT_EQ(driver.result("ultraviolet state frontMACPopup"), popUp(0));
  EXPECT_EQ(driver.result("ultraviolet state backMACPopup"), popUp(0));
}

TEST(Ultraviolet, NoPopUpDependsOnAnother) {
  PanelDriver driver(kAllOptions);
  driver.runSilently(kShow);
  driver.runSilently("ultraviolet pick frontUVPopUp 1\nultraviolet pick backMACPopup 2");
  EXPECT_EQ(driver.result("requests"), "frontUV=Choice1 granted, backUVMAC=Choice2 granted");
  EXPECT_EQ(driver.result("ultraviolet state frontUVPopUp"), popUp(1));
  EXPECT_EQ(driver.result("ultraviolet state backUVPopUp"), popUp(0));
  EXPECT_EQ(driver.result("ultraviolet state frontMACPopup"), popUp(0));
  EXPECT_EQ(driver.result("ultraviolet state backMACPopup"), popUp(2));
}

TEST(Ultraviolet, OfTwoOptionsWithOneTitleTheSummaryKeepsTheLater) {
  PanelDriver driver(testPPD({testOption("frontUV", "Same", 2, "Choice0"),
                              testOption("backUVMAC", "Same", 2, "Choice1")}));
  driver.runSilently(kShow);
  EXPECT_EQ(driver.result("ultraviolet summaryInfo"), R"({Same = "Choice 1"; })");
}

TEST(Ultraviolet, ASecondWillShowOnlySelects) {
  PanelDriver driver(kAllOptions);
  driver.runSilently(kShow);
  driver.runSilently("mark frontUV Choice2\nultraviolet updateMarkedSelections");
  EXPECT_EQ(messages(driver.trace("ultraviolet willShow")),
            "BEGIN willShow:\n"
            "BEGIN initializeUI:\n"
            "END initializeUI:=void\n"
            "BEGIN updateUI:\n"
            "END updateUI:\n"
            "END willShow:=void\n");
  EXPECT_EQ(driver.result("ultraviolet state frontUVPopUp"), popUp(2));
}

TEST(Ultraviolet, AFreedViewIsLoadedAnewAndNotFilled) {
  PanelDriver driver(kAllOptions);
  driver.runSilently(kShow);
  driver.runSilently("ultraviolet forgetView");
  EXPECT_EQ(driver.result("ultraviolet state pdeView"), "nil");
  EXPECT_EQ(driver.result("ultraviolet state frontUVPopUp"), "nil");
  EXPECT_TRUE(contains(driver.result("ultraviolet panelView"), "<View: 0x"));
  driver.runSilently("ultraviolet willShow");
  EXPECT_EQ(driver.result("ultraviolet state frontUVPopUp"),
            "items=() selected=-1 enabled=YES hidden=NO");
}

TEST(Ultraviolet, FreshPopUpsKeepTheItemsOfTheUserInterfaceFile) {
  const test::TemporaryFolder folder;
  std::string popUps;
  for (const auto& [id, action] : {std::pair("frontUVPopUp", "changeFrontUVOption:"),
                                   {"backUVPopUp", "changeBackUVOption:"},
                                   {"frontMACPopup", "changeFrontMACOption:"},
                                   {"backMACPopup", "changeBackMACOption:"}}) {
    popUps += std::string("<child><object class='GtkComboBoxText' id='") + id +
              "'><items><item>Low</item><item>High</item></items>"
              "<signal name='changed' handler='" +
              action + "'/></object></child>";
  }
  folder.write(
      "own.bundle/resources/ui/UltravioletPanelPDE.ui",
      "<interface><object class='GtkGrid' id='pdeView'>" + popUps + "</object></interface>");
  const std::filesystem::path bundle = folder.path() / "own.bundle";
  std::filesystem::create_symlink(test::builtBundle() + "/cardpanels.so", bundle / "cardpanels.so");
  std::ostringstream out;
  drive::Driver driver({folder.write("test.ppd", kAllOptions), bundle.string(), true, true}, out);
  for (const char* command :
       {"panels", "mark frontUV Choice1", "ultraviolet restoreValuesAndReturnError",
        "ultraviolet panelView", "ultraviolet willShow", "ultraviolet forgetView",
        "ultraviolet panelView", "ultraviolet willShow"}) {
    ASSERT_TRUE(driver.run(command)) << out.str();
  }
  out.str("");
  driver.run("ultraviolet state frontUVPopUp");
  EXPECT_EQ(out.str(),
            "> ultraviolet state frontUVPopUp\n"
            "= items=(\"Low\", \"High\") selected=1 enabled=YES hidden=NO\n");
}

TEST(Ultraviolet, WithoutConstraintHandlingAnActionKeepsTheChoiceItself) {
  PanelDriver driver(kAllOptions, PanelDriver::Host::plain);
  driver.runSilently(kShow);
  driver.runSilently("ultraviolet pick backUVPopUp 2");
  EXPECT_EQ(driver.result("ultraviolet state backUVPopUp"), popUp(2));
  EXPECT_EQ(driver.result("ultraviolet summaryInfo"), R"({"Title of backUV" = "Choice 2"; })");
  EXPECT_EQ(messages(driver.trace("ultraviolet saveValuesAndReturnError")),
            "BEGIN saveValuesAndReturnError:(0x0)\n"
            "END saveValuesAndReturnError:=BOOL(YES)\n");
  EXPECT_EQ(driver.result("marked backUV"), "Choice0");
}

TEST(Ultraviolet, ARefusedChoiceSnapsBack) {
  PanelDriver driver(kAllOptions);
  driver.runSilently(kShow);
  driver.runSilently("refuse frontUVMAC\nultraviolet pick frontMACPopup 2");
  EXPECT_EQ(driver.result("requests"), "frontUVMAC=Choice2 refused");
  EXPECT_EQ(driver.result("ultraviolet state frontMACPopup"), popUp(0));
}

TEST(Ultraviolet, AHostChangeShowsAtTheNextUpdateUI) {
  PanelDriver driver(kAllOptions);
  driver.runSilently(kShow);
  const std::vector<std::pair<std::string, std::string>> slots{{"frontUV", "frontUVPopUp"},
                                                               {"backUV", "backUVPopUp"},
                                                               {"frontUVMAC", "frontMACPopup"},
                                                               {"backUVMAC", "backMACPopup"}};
  for (const auto& [key, outlet] : slots) {
    EXPECT_EQ(logged(driver.trace("ultraviolet PPDOptionKeyValueDidChange_ppdChoice " + key +
                                  " Choice1")),
              "new choice is Choice 1/Choice1\n");
    EXPECT_EQ(driver.result("ultraviolet state " + outlet), popUp(0));
    driver.runSilently("ultraviolet updateUI");
    EXPECT_EQ(driver.result("ultraviolet state " + outlet), popUp(1));
  }
}

TEST(Ultraviolet, WithoutMarkAndDefaultTheSelectionIsCleared) {
  PanelDriver driver(testPPD({testOption("frontUV", "Front UV", 3, "-")}));
  driver.runSilently("panels\nunmark frontUV");
  EXPECT_EQ(logged(driver.trace("ultraviolet updateMarkedSelections")),
            "returning a -1 index means there was no default choice\n");
  EXPECT_EQ(driver.result("ultraviolet summaryInfo"), "{}");
}

TEST(Ultraviolet, TheKeysAreLoggedOnce) {
  PanelDriver driver(kAllOptions);
  driver.runSilently("panels");
  EXPECT_EQ(logged(driver.trace("ultraviolet supportedPPDOptionKeys")),
            "Adding front UV option\nAdding back UV option\n"
            "Adding front MAC option\nAdding back MAC option\n");
  EXPECT_EQ(logged(driver.trace("ultraviolet supportedPPDOptionKeys")), "");
  EXPECT_EQ(driver.result("ultraviolet supportedPPDOptionKeys"),
            "(frontUV, backUV, frontUVMAC, backUVMAC)");
}

TEST(Ultraviolet, EveryPopUpIsFilledInItsTurn) {
  PanelDriver driver(kAllOptions);
  driver.runSilently("panels\nultraviolet panelView");
  EXPECT_EQ(logged(driver.trace("ultraviolet initializeUI")),
            "initializing front uv\ninitializing back uv\n"
            "initializing front mac\ninitializing back mac\n");
}

TEST(Ultraviolet, EveryOperationWorksBeforeTheViewIsLoaded) {
  PanelDriver driver(kAllOptions);
  driver.runSilently(
      "panels\nultraviolet updateUI\nultraviolet restoreValuesAndReturnError\n"
      "ultraviolet willShow\nultraviolet changeFrontUVOption\nultraviolet changeBackMACOption\n"
      "ultraviolet shouldHide\nultraviolet saveValuesAndReturnError\nultraviolet summaryInfo\n"
      "ultraviolet shouldShowHelp\nultraviolet panelName");
  EXPECT_FALSE(driver.failed());
  EXPECT_EQ(driver.result("ultraviolet panelKind"), "org.cardpanels.UltravioletKind");
}

}  // namespace
}  // namespace cardpanels
