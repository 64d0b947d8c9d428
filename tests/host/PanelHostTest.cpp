#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

#include "host/PanelHost.h"
#include "platform/NibOwner.h"
#include "platform/TextField.h"
#include "ports/headless/Controls.h"
#include "ports/headless/HeadlessBundle.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/RecordedLog.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::host {
namespace {

/// Longer than the 40 bytes that a PPD's record has room for.
const std::string kLongArea = "1.23456789in 2.3456789in 3.456789in 4.56789in";

JobOptions jobOf(const std::string& ppd) {
  const test::TemporaryFolder folder;
  return JobOptions(openPPD(folder.write("test.ppd", ppd)));
}

/// What a dialog was told.
struct Dialog final : PanelObserver {
  void optionsChanged() override { ++changes; }
  void tell(const std::string& text, const std::optional<Option>& option) override {
    messages.push_back(text);
    insisted = option;
  }
  int changes = 0;
  std::vector<std::string> messages;
  std::optional<Option> insisted;
};

class Host : public testing::Test {
 protected:
  Host() { host.setObserver(&dialog); }

  PanelHost::Panel panel(const std::string& className) {
    for (const auto& each : host.panels()) {
      if (each->className() == className) return each;
    }
    return nullptr;
  }

  template <class Control>
  std::shared_ptr<Control> control(const std::string& className, const std::string& outlet) {
    auto& owner = dynamic_cast<platform::NibOwner&>(*panel(className));
    return std::dynamic_pointer_cast<Control>(owner.outletNamed(outlet)->view(owner));
  }

  std::string fieldText(const std::string& outlet) {
    return control<platform::TextField>("PeelOffPanelPDE", outlet)->stringValue();
  }

  void show(const std::string& className) {
    host.view(panel(className));
    host.show(panel(className));
  }

  test::RecordedLog log;
  JobOptions job = jobOf(test::testPPD(
      {test::laminateOption(), test::testOption("frontPO", "Front Peel-Off", 14)},
      test::testAreaOption("CustomfrontPeelOff1") + test::testAreaOption("CustomfrontPeelOff2") +
          "*UIConstraints: *cardLaminate Front *frontPO Choice1\n"
          "*UIConstraints: *frontPO Choice1 *cardLaminate Front\n"
          "*UIConstraints: *cardLaminate Both *frontPO\n"
          "*UIConstraints: *cardLaminate Both *PageSize CR80\n"));
  Dialog dialog;
  PanelHost host{test::builtBundle(),
                 std::make_shared<headless::HeadlessBundle>(test::builtBundle()), job};
};

TEST_F(Host, HasThePanelsThatThePPDNeedsInTheirOrder) {
  ASSERT_EQ(host.panels().size(), 2U);
  EXPECT_EQ(host.panels()[0]->className(), "PeelOffPanelPDE");
  EXPECT_EQ(host.panels()[1]->className(), "ThermalLaminatePDE");
}

TEST_F(Host, ClaimsTheOptionsThatThePPDHas) {
  EXPECT_EQ(host.claimedKeys(), (std::set<std::string>{"CustomfrontPeelOff1", "CustomfrontPeelOff2",
                                                       "cardLaminate", "frontPO"}));
}

TEST_F(Host, SummarizesTheMarksFromTheStart) {
  EXPECT_EQ(host.summary(panel("ThermalLaminatePDE"))->description(),
            R"({"Card Laminate" = None; })");
}

TEST_F(Host, AUsersChoiceIsMarkedAndTheDialogLearnsOfIt) {
  show("ThermalLaminatePDE");
  dialog.changes = 0;
  control<headless::PopUpButton>("ThermalLaminatePDE", "frontLaminatePopUp")->userSelects(2);
  EXPECT_EQ(job.marked("cardLaminate"), "Back");
  EXPECT_EQ(dialog.changes, 1);
  EXPECT_EQ(dialog.messages, std::vector<std::string>{""});
}

TEST_F(Host, AResolvedConflictIsToldToTheDialogAndToThePanelThatItConcerns) {
  job.mark("frontPO", "Choice1");
  show("PeelOffPanelPDE");
  show("ThermalLaminatePDE");
  control<headless::PopUpButton>("ThermalLaminatePDE", "frontLaminatePopUp")->userSelects(1);
  ASSERT_EQ(job.ruleChanges().size(), 1U);
  EXPECT_EQ(
      job.ruleChanges().front().sentence,
      "“Front Peel-Off” was changed from “Choice 1” to “Choice 0”, because “Card Laminate” is "
      "now “Front Side”.");
  EXPECT_EQ(dialog.messages.back(), "");
  EXPECT_EQ(host.summary(panel("PeelOffPanelPDE"))->description(),
            R"({"Front Peel-Off" = "Choice 0"; })");
}

TEST_F(Host, ARefusedChoiceIsToldAndSnapsBack) {
  show("ThermalLaminatePDE");
  const auto popUp = control<headless::PopUpButton>("ThermalLaminatePDE", "frontLaminatePopUp");
  popUp->userSelects(3);
  EXPECT_EQ(dialog.messages.back(),
            "“Card Laminate” cannot be “Both Sides” while “Card Size” is “CR-80” and “Front "
            "Peel-Off” is “Choice 0”.");
  EXPECT_EQ(popUp->indexOfSelectedItem(), 0);
}

TEST_F(Host, AChangeOfTheDialogReachesThePanelThatIsShown) {
  show("ThermalLaminatePDE");
  EXPECT_TRUE(host.change("cardLaminate", "Back").granted);
  EXPECT_EQ(control<headless::PopUpButton>("ThermalLaminatePDE", "frontLaminatePopUp")
                ->indexOfSelectedItem(),
            2);
}

TEST_F(Host, ResetShowsTheDefaultsAlsoOnThePanelThatIsShown) {
  host.change("cardLaminate", "Back");
  host.reset();  // without a panel
  EXPECT_EQ(job.marked("cardLaminate"), "None");
  show("ThermalLaminatePDE");
  control<headless::PopUpButton>("ThermalLaminatePDE", "frontLaminatePopUp")->userSelects(2);
  host.reset();
  EXPECT_EQ(control<headless::PopUpButton>("ThermalLaminatePDE", "frontLaminatePopUp")
                ->indexOfSelectedItem(),
            0);
}

TEST_F(Host, TypedAreasAreStoredWithoutPrinting) {
  job.mark("frontPO", "Choice12");
  show("PeelOffPanelPDE");
  for (const char* field : {"X", "Y", "Width", "Height"}) {
    control<platform::TextField>("PeelOffPanelPDE", "frontPeelOffField1_" + std::string(field))
        ->setStringValue("1in");
  }
  host.storeTyped(panel("PeelOffPanelPDE"));
  EXPECT_EQ(job.marked("CustomfrontPeelOff1"), "Custom.1in 1in 1in 1in");
}

TEST_F(Host, ManyRequestsOfOneOperationAreToldOnce) {
  show("PeelOffPanelPDE");
  const std::size_t before = dialog.messages.size();
  host.print();
  EXPECT_EQ(dialog.messages.size(), before + 1);
}

TEST(Hosts, TellEachRefusalOfOneOperationInALineOfItsOwn) {
  const test::RecordedLog log;
  std::string areas =
      test::testAreaOption("CustomfrontPeelOff1") + test::testAreaOption("CustomfrontPeelOff2");
  for (std::size_t at = 0; (at = areas.find("0 83")) != std::string::npos;)
    areas.replace(at, 4, "0 10");
  JobOptions job = jobOf(test::testPPD({test::testOption("frontPO", "Front Peel-Off", 14)}, areas));
  job.mark("frontPO", "Choice12");
  Dialog dialog;
  PanelHost host(test::builtBundle(),
                 std::make_shared<headless::HeadlessBundle>(test::builtBundle()), job);
  host.setObserver(&dialog);
  const auto panel = host.panels().front();
  host.view(panel);
  host.show(panel);
  auto& owner = dynamic_cast<platform::NibOwner&>(*panel);
  for (const std::string field : {"frontPeelOffField1_", "frontPeelOffField2_"}) {
    for (const char* part : {"X", "Y", "Width", "Height"}) {
      std::dynamic_pointer_cast<platform::TextField>(owner.outletNamed(field + part)->view(owner))
          ->setStringValue("1in");
    }
  }
  dialog.messages.clear();
  host.storeTyped(panel);
  ASSERT_EQ(dialog.messages.size(), 1U);
  const std::string& told = dialog.messages.front();
  EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 1) << told;
  EXPECT_NE(told.front(), '\n');
}

// The PPD has two of the twelve options.
TEST_F(Host, AreasThatThePrinterLacksAreNotTold) {
  show("PeelOffPanelPDE");
  dialog.messages.clear();
  host.print();
  EXPECT_EQ(dialog.messages, std::vector<std::string>{""});
}

TEST_F(Host, EmptyFieldsMarkTheDefaultChoice) {
  show("PeelOffPanelPDE");
  host.print();
  EXPECT_EQ(job.marked("CustomfrontPeelOff1"), "Default");
  EXPECT_EQ(job.options(), std::vector<Option>());
}

TEST_F(Host, ABundleWithoutItsViewsIsToldByFile) {
  PanelHost other(test::builtBundle(), std::make_shared<headless::HeadlessBundle>("/nowhere"), job);
  EXPECT_THROW(
      {
        try {
          other.view(other.panels()[0]);
        } catch (const std::exception& error) {
          EXPECT_NE(std::string(error.what()).find("/nowhere/resources/ui/PeelOffPDE.ui"),
                    std::string::npos)
              << error.what();
          throw;
        }
      },
      std::exception);
}

/// A job that starts with saved areas, a short one and one that no PPD record has room for.
class SavedAreas : public testing::Test {
 protected:
  SavedAreas() {
    job.markSaved({{"frontPO", "Choice12"},
                   {"CustomfrontPeelOff1", "Custom.1in 1in 2in 2in"},
                   {"CustomfrontPeelOff2", "Custom." + kLongArea}});
    host = std::make_unique<PanelHost>(
        test::builtBundle(), std::make_shared<headless::HeadlessBundle>(test::builtBundle()), job);
    host->setObserver(&dialog);
    peelOff = host->panels()[0];
  }

  void expectTheSavedAreas() const {
    EXPECT_EQ(job.marked("CustomfrontPeelOff1"), "Custom.1in 1in 2in 2in");
    EXPECT_EQ(job.marked("CustomfrontPeelOff2"), "Custom." + kLongArea);
  }

  std::string field(const std::string& outlet) {
    auto& owner = dynamic_cast<platform::NibOwner&>(*peelOff);
    return std::dynamic_pointer_cast<platform::TextField>(owner.outletNamed(outlet)->view(owner))
        ->stringValue();
  }

  test::RecordedLog log;
  JobOptions job = jobOf(test::testPPD(
      {test::laminateOption(), test::testOption("frontPO", "Front Peel-Off", 14)},
      test::testAreaOption("CustomfrontPeelOff1") + test::testAreaOption("CustomfrontPeelOff2") +
          "*UIConstraints: *cardLaminate Back *CustomCustomfrontPeelOff1 True\n"));
  Dialog dialog;
  std::unique_ptr<PanelHost> host;
  PanelHost::Panel peelOff;
};

TEST_F(SavedAreas, StayWhenPrintingWithoutLookingAtThePanel) {
  host->print();
  expectTheSavedAreas();
}

TEST_F(SavedAreas, StayWhenThePanelIsShownHiddenAndPrinted) {
  host->view(peelOff);
  host->show(peelOff);
  host->hide(peelOff);
  host->show(peelOff);
  host->print();
  expectTheSavedAreas();
}

TEST_F(SavedAreas, AreInTheFieldsToTheLastDigit) {
  host->view(peelOff);
  host->show(peelOff);
  EXPECT_EQ(field("frontPeelOffField1_Width"), "2in");
  EXPECT_EQ(field("frontPeelOffField2_X"), "1.23456789in");
  EXPECT_EQ(field("frontPeelOffField2_Height"), "4.56789in");
}

TEST_F(SavedAreas, AreNotLostByAConflictUnlessTheUserInsists) {
  const auto& laminate = host->panels()[1];
  host->view(laminate);
  host->show(laminate);
  auto& owner = dynamic_cast<platform::NibOwner&>(*laminate);
  const auto popUp = std::dynamic_pointer_cast<headless::PopUpButton>(
      owner.outletNamed("frontLaminatePopUp")->view(owner));
  popUp->userSelects(2);
  EXPECT_EQ(
      dialog.messages.back(),
      "“Card Laminate” was not changed to “Back Side”, because that would remove “1in 1in 2in "
      "2in” of “CustomfrontPeelOff1”.");
  EXPECT_EQ(popUp->indexOfSelectedItem(), 0);
  expectTheSavedAreas();
  ASSERT_EQ(dialog.insisted, (Option{"cardLaminate", "Back"}));

  EXPECT_TRUE(host->insist("cardLaminate", "Back").granted);
  EXPECT_EQ(dialog.insisted, std::nullopt);
  EXPECT_EQ(popUp->indexOfSelectedItem(), 2);
  EXPECT_EQ(job.marked("CustomfrontPeelOff1"), "Default");
  host->view(peelOff);
  host->show(peelOff);
  EXPECT_EQ(field("frontPeelOffField1_Width"), "");
  EXPECT_EQ(field("frontPeelOffField2_X"), "1.23456789in");
}

TEST_F(SavedAreas, AreInTheFieldsAgainAfterAnotherChange) {
  host->view(peelOff);
  host->show(peelOff);
  host->change("cardLaminate", "Front");
  EXPECT_EQ(field("frontPeelOffField2_X"), "1.23456789in");
  host->print();
  expectTheSavedAreas();
}

}  // namespace
}  // namespace cardpanels::host
