// The area editor, on the panel that edits peel-off areas.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/plugin/panels/PeelOffSupport.h"
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
using test::peelOffAreas;
using test::peelOffPPD;
using test::peelOffTexts;

/// A panel that a dialog has restored and shown.
class AreaEditor : public testing::Test {
 protected:
  AreaEditor() {
    driver.runSilently(
        "panels\npeeloff restoreValuesAndReturnError\npeeloff panelView\npeeloff willShow");
  }

  void type(const std::string& field, const std::vector<std::string>& parts) {
    const char* columns[] = {"_X", "_Y", "_Width", "_Height"};
    for (std::size_t i = 0; i < 4; ++i) {
      driver.runSilently("peeloff type " + field + columns[i] + " \"" + parts[i] + "\"");
    }
  }

  std::vector<std::string> shown(const std::string& field) {
    std::vector<std::string> texts;
    for (const char* column : {"_X", "_Y", "_Width", "_Height"}) {
      texts.push_back(driver.result("peeloff state " + field + column));
    }
    return texts;
  }

  static std::vector<std::string> fields(const std::vector<std::string>& parts) {
    std::vector<std::string> texts;
    texts.reserve(parts.size());
    for (const std::string& part : parts) texts.push_back("text=\"" + part + "\" hidden=NO");
    return texts;
  }

  PanelDriver driver{peelOffPPD()};
};

using Parts = std::vector<std::string>;

const Parts kEmptyFields{"", "", "", ""};

TEST_F(AreaEditor, FourEmptyFieldsRequestTheEmptyText) {
  EXPECT_TRUE(contains(logged(driver.trace("peeloff shouldHide")), "peeloffArea[0][0][0]::\n"));
  EXPECT_TRUE(driver.result("requests").starts_with("CustomfrontPeelOff1= granted, "));
}

TEST_F(AreaEditor, SomeEmptyFieldsBecome0px) {
  type("frontPeelOffField1", {"1in", "", "2in", ""});
  EXPECT_TRUE(contains(logged(driver.trace("peeloff shouldHide")),
                       "peeloffArea[0][0][0]::1in 0px 2in 0px\n"));
}

TEST_F(AreaEditor, NoAreaShowsFourEmptyFields) {
  for (const char* value : {"Default", "\"0in 0in 0in 0in\""}) {
    type("frontPeelOffField1", {"1", "2", "3", "4"});
    driver.runSilently(
        std::string("peeloff PPDOptionKeyValueDidChange_ppdChoice CustomfrontPeelOff1 ") + value +
        "\npeeloff updateUI");
    EXPECT_EQ(shown("frontPeelOffField1"), fields(kEmptyFields)) << value;
  }
}

TEST_F(AreaEditor, AValueFromTheHostIsKeptAsItIsAndShownInItsParts) {
  driver.runSilently(
      "peeloff PPDOptionKeyValueDidChange_ppdChoice CustombackNonPeelOff3 "
      "\"Custom.1in 1in 2in 2in\"");
  EXPECT_EQ(shown("backNonPeelOffField3"), fields(kEmptyFields));
  EXPECT_TRUE(contains(messages(driver.trace("peeloff updateUI")),
                       "BEGIN setAreaUI:(CustombackNonPeelOff3)(Custom.1in 1in 2in 2in)\n"));
  EXPECT_EQ(shown("backNonPeelOffField3"), fields({"1in", "1in", "2in", "2in"}));
}

TEST_F(AreaEditor, AValueThatIsNoAreaShowsFourEmptyFieldsAndStays) {
  type("frontPeelOffField2", {"1", "2", "3", "4"});
  driver.runSilently(
      "peeloff PPDOptionKeyValueDidChange_ppdChoice CustomfrontPeelOff2 \"1in, 2in\"\n"
      "peeloff updateUI");
  EXPECT_EQ(shown("frontPeelOffField2"), fields(kEmptyFields));
  EXPECT_TRUE(contains(messages(driver.trace("peeloff updateUI")),
                       "BEGIN setAreaUI:(CustomfrontPeelOff2)(1in, 2in)\n"));
}

TEST_F(AreaEditor, SavingRequestsAllTwelveInOrderWhetherChangedOrNot) {
  driver.runSilently("requests\npeeloff saveValuesAndReturnError");
  std::string expected;
  for (const auto& area : peelOffAreas()) {
    expected += (expected.empty() ? "" : ", ") + area.key + "= granted";
  }
  EXPECT_EQ(driver.result("requests"), expected);
  driver.runSilently("peeloff saveValuesAndReturnError");
  EXPECT_EQ(driver.result("requests"), expected);
}

TEST_F(AreaEditor, ARefusedSlotTakesTheAreaOfTheOneBefore) {
  type("frontPeelOffField1", {"1in", "2in", "3in", "4in"});
  type("frontPeelOffField2", {"5in", "6in", "7in", "8in"});
  driver.runSilently("refuse CustomfrontPeelOff2\npeeloff saveValuesAndReturnError");
  EXPECT_EQ(shown("frontPeelOffField2"), fields({"1in", "2in", "3in", "4in"}));
  EXPECT_TRUE(contains(messages(driver.trace("peeloff updateUI")),
                       "BEGIN setAreaUI:(CustomfrontPeelOff2)(1in 2in 3in 4in)\n"));
}

TEST_F(AreaEditor, ARefusedFirstSlotIsEmptiedAndHoldsDefault) {
  type("frontPeelOffField1", {"1in", "2in", "3in", "4in"});
  driver.runSilently("refuse CustomfrontPeelOff1\npeeloff saveValuesAndReturnError");
  EXPECT_EQ(shown("frontPeelOffField1"), fields(kEmptyFields));
  EXPECT_TRUE(contains(messages(driver.trace("peeloff updateUI")),
                       "BEGIN setAreaUI:(CustomfrontPeelOff1)(Default)\n"));
}

TEST(AreaEditorBeforeTheViewIsLoaded, SavingRequestsTheEmptyText) {
  PanelDriver fresh(peelOffPPD());
  fresh.runSilently("panels\nrefuse CustombackPeelOff1");
  const std::string trace = messages(fresh.trace("peeloff saveValuesAndReturnError"));
  EXPECT_TRUE(contains(trace,
                       "BEGIN savePeelOffArea: (CustomfrontPeelOff1)((null))((null))((null))"
                       "((null))\n"
                       "BEGIN formatArea: ((null))((null))((null))((null))\n"
                       "END formatArea: ()\n"
                       "LOG area: \n"
                       "LOG >>> constraint\n"
                       "LOG Request granted. Value saved: \n"
                       "LOG <<< constraint\n"
                       "END savePeelOffArea: ()\n"))
      << trace;
  EXPECT_TRUE(contains(trace,
                       "LOG Request not granted. Restoring value: \n"
                       "BEGIN setAreaUI:(CustombackPeelOff1)()\n"
                       "END setAreaUI:(CustombackPeelOff1)()\n"))
      << trace;
  const std::string requests = fresh.result("requests");
  EXPECT_EQ(std::count(requests.begin(), requests.end(), '='), 12);
  EXPECT_TRUE(contains(requests, "CustombackPeelOff1= refused"));
}

TEST(AreaEditorWithoutConstraintHandling, TheSlotsAloneHoldTheValues) {
  PanelDriver driver(peelOffPPD(), PanelDriver::Host::plain);
  driver.runSilently("panels\npeeloff panelView\npeeloff willShow\n" +
                     typing("peeloff", peelOffAreas()));
  const std::string trace = messages(driver.trace("peeloff saveValuesAndReturnError"));
  EXPECT_TRUE(contains(trace,
                       "LOG area: 1.0in 2mm .0cm 0\n"
                       "LOG Value saved: 1.0in 2mm .0cm 0\n"
                       "END savePeelOffArea: (1.0in 2mm .0cm 0)\n"))
      << trace;
  EXPECT_FALSE(contains(trace, "constraint"));
  EXPECT_EQ(driver.result("marked CustomfrontPeelOff1"), "Default");
  EXPECT_TRUE(contains(messages(driver.trace("peeloff updateUI")),
                       "BEGIN setAreaUI:(CustomfrontPeelOff1)(1.0in 2mm .0cm 0)\n"));
}

TEST_F(AreaEditor, AFieldThatIsNotASCIIReadsAsAbsent) {
  type("frontPeelOffField1", {"1in", "２in", "3in", "4in"});
  EXPECT_TRUE(contains(messages(driver.trace("peeloff shouldPrint")),
                       "BEGIN formatArea: (1in)((null))(3in)(4in)\n"
                       "END formatArea: (1in 0px 3in 4in)\n"));
}

TEST_F(AreaEditor, AFieldTextOf21CharactersIsRefusedAndTheProcessLivesOn) {
  type("frontPeelOffField1", {"1234567890123456789in", "1", "1", "1"});
  EXPECT_TRUE(contains(messages(driver.trace("peeloff shouldPrint")),
                       "BEGIN formatArea: (1234567890123456789in)(1)(1)(1)\n"
                       "END formatArea: ()\n"));
}

TEST_F(AreaEditor, AreasMarkedInThePPDAreShown) {
  driver.runSilently(
      "mark CustombackPeelOff2 \"Custom.1in 2in 3in 4in\"\npeeloff restoreValuesAndReturnError");
  EXPECT_EQ(shown("backPeelOffField2"), fields({"1in", "2in", "3in", "4in"}));
}

TEST_F(AreaEditor, ReadingFromTheSettingsWritesItsTwoLines) {
  EXPECT_TRUE(contains(messages(driver.trace("peeloff restoreValuesAndReturnError")),
                       "BEGIN queryPeelOffAreasFromSettings:\n"
                       "END queryPeelOffAreasFromSettings:\n"));
}

TEST_F(AreaEditor, AnUnknownKeyFromTheHostMatchesNoSlot) {
  driver.runSilently(
      "peeloff PPDOptionKeyValueDidChange_ppdChoice frontPeelOff1 \"1in 1in 1in 1in\"");
  EXPECT_FALSE(contains(messages(driver.trace("peeloff updateUI")), "1in 1in 1in 1in"));
}

TEST_F(AreaEditor, TypedAreasAreReadThenRequestedWhenThePanelHides) {
  type("backNonPeelOffField1", {"1in", "2in", "3in", "4in"});
  const std::string trace = messages(driver.trace("peeloff shouldHide"));
  EXPECT_TRUE(
      trace.starts_with("BEGIN shouldHide:\n"
                        "BEGIN queryPeelOffAreasUI:\n"
                        "BEGIN queryPeelOffArea:\n"
                        "BEGIN formatArea: ()()()()\n"
                        "END formatArea: ()\n"
                        "END queryPeelOffArea:()\n"))
      << trace;
  EXPECT_TRUE(contains(trace,
                       "LOG peeloffArea[0][0][0]::\n"
                       "LOG peeloffArea[0][0][1]::\n"
                       "LOG peeloffArea[0][0][2]::\n"
                       "LOG peeloffArea[0][1][0]::\n"
                       "LOG peeloffArea[0][1][1]::\n"
                       "LOG peeloffArea[0][1][2]::\n"
                       "LOG peeloffArea[1][0][0]::\n"
                       "LOG peeloffArea[1][0][1]::\n"
                       "LOG peeloffArea[1][0][2]::\n"
                       "LOG peeloffArea[1][1][0]::1in 2in 3in 4in\n"
                       "LOG peeloffArea[1][1][1]::\n"
                       "LOG peeloffArea[1][1][2]::\n"
                       "END queryPeelOffAreasFromUI:\n"
                       "BEGIN savePeelOffAreasToSettings:\n"))
      << trace;
  EXPECT_EQ(driver.result("marked CustombackNonPeelOff1"), "Custom.1in 2in 3in 4in");
}

TEST(AreaEditorSavePasses, AreTracedWordForWordWhateverTheHostRefuses) {
  test::checkSavePasses(peelOffPPD(), "peeloff", peelOffTexts(), peelOffAreas());
}

}  // namespace
}  // namespace cardpanels
