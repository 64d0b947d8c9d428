#include <gtest/gtest.h>

#include <string>

#include "tests/support/PanelDriver.h"
#include "tests/support/TestPPD.h"

namespace cardpanels {
namespace {

class Driver : public testing::Test {
 protected:
  Driver() { driver.runSilently("panels\nlaminate panelView\nlaminate willShow"); }

  std::string result(const std::string& command) { return driver.result(command); }

  test::PanelDriver driver{test::testPPD({test::laminateOption()})};
};

TEST_F(Driver, PrintsCommandTraceAndResult) {
  EXPECT_EQ(driver.run("laminate shouldHide   # bye"),
            "> laminate shouldHide\n"
            "| BEGIN self(<ThermalLaminatePDE: 0x7>) shouldHide:\n"
            "| END self(<ThermalLaminatePDE: 0x7>) shouldHide:=BOOL(YES)\n"
            "= YES\n");
}

TEST_F(Driver, ACommentOrAnEmptyLinePrintsNothing) {
  EXPECT_EQ(driver.run("# nothing\n\n   \n"), "");
}

TEST_F(Driver, AnErrorIsOneLineAndLaterCommandsGoOn) {
  EXPECT_EQ(driver.run("jump\nmarked cardLaminate"),
            "> jump\n! no command or panel is called \"jump\"\n> marked cardLaminate\n= None\n");
  EXPECT_TRUE(driver.failed());
}

TEST_F(Driver, NamesWhatIsWrongWithACommand) {
  EXPECT_EQ(result("laminate"), "laminate wants an operation");
  EXPECT_EQ(result("laminate jump"), "ThermalLaminatePDE has no operation \"jump\"");
  EXPECT_EQ(result("ribbon willShow"), "there is no panel ribbon");
  EXPECT_EQ(result("laminate willShow now"), "takes 0 arguments, not 1");
  EXPECT_EQ(result("refuse"), "takes 1 or more arguments, not 0");
  EXPECT_EQ(result("laminate pick frontLaminatePopUp 4"), "frontLaminatePopUp has no item 4");
  EXPECT_EQ(result("laminate pick frontLaminatePopUp 1st"), "\"1st\" is no index");
  EXPECT_EQ(result("laminate pick backLaminatePopUp 1"),
            "ThermalLaminatePDE has no outlet \"backLaminatePopUp\"");
  EXPECT_EQ(result("laminate type frontLaminatePopUp x"),
            "the outlet \"frontLaminatePopUp\" is a PopUpButton");
  EXPECT_EQ(result("mark cardLaminate \"a"), "a double quote is not closed");
  EXPECT_EQ(result("mark nil Front"), "nil is no argument here");
}

TEST_F(Driver, TakesNoWordTooMany) {
  for (const char* each :
       {"panelName", "panelKind", "supportedPPDOptionKeys", "willShow", "shouldHide", "shouldPrint",
        "shouldShowHelp", "updateMarkedSelections", "updateUI", "initializeUI", "summaryInfo"}) {
    EXPECT_EQ(result("laminate " + std::string(each) + " more"), "takes 0 arguments, not 1");
  }
  for (const char* each : {"restoreValuesAndReturnError", "saveValuesAndReturnError"}) {
    EXPECT_EQ(result("laminate " + std::string(each) + " error more"),
              "takes 0 to 1 arguments, not 2");
  }
  for (const char* each : {"PPDOptionKeyValueDidChange_ppdChoice", "pick", "type"}) {
    EXPECT_EQ(result("laminate " + std::string(each) + " one"), "takes 2 arguments, not 1");
    EXPECT_EQ(result("laminate " + std::string(each) + " one two three"),
              "takes 2 arguments, not 3");
  }
  EXPECT_EQ(result("laminate state one two"), "takes 1 arguments, not 2");
}

TEST_F(Driver, NamesAnOptionOrChoiceThatThePPDLacks) {
  EXPECT_NE(result("mark cardLamination Front").find("cardLamination"), std::string::npos);
  EXPECT_NE(result("mark cardLaminate Sideways").find("Sideways"), std::string::npos);
  EXPECT_NE(result("marked cardLamination").find("cardLamination"), std::string::npos);
  EXPECT_NE(result("unmark cardLamination").find("cardLamination"), std::string::npos);
  EXPECT_EQ(result("marked cardLaminate"), "None");
}

TEST_F(Driver, ActionsAreCalledByTheirCppName) {
  EXPECT_EQ(result("laminate changeFrontLaminateOption"), "void");
}

TEST_F(Driver, MarksAndUnmarksBehindThePanelsBacks) {
  EXPECT_EQ(driver.trace("mark cardLaminate Both"), "");
  EXPECT_EQ(result("marked cardLaminate"), "Both");
  EXPECT_EQ(result("unmark cardLaminate"), "void");
  EXPECT_EQ(result("marked cardLaminate"), "nil");
}

TEST_F(Driver, RequestsAreForgottenOncePrinted) {
  driver.runSilently(
      "laminate pick frontLaminatePopUp 1\nrefuse cardLaminate\n"
      "laminate pick frontLaminatePopUp 2\ngrant cardLaminate\n"
      "laminate pick frontLaminatePopUp 3");
  EXPECT_EQ(result("requests"),
            "cardLaminate=Front granted, cardLaminate=Back refused, cardLaminate=Both granted");
  EXPECT_EQ(result("requests"), "nil");
}

TEST_F(Driver, ShowsTheStateOfEachKindOfControl) {
  EXPECT_EQ(result("laminate state frontLaminatePopUp"),
            "items=(\"None\", \"Front Side\", \"Back Side\", \"Both Sides\") selected=-1 "
            "enabled=YES hidden=NO");
  EXPECT_EQ(result("laminate state pdeView"), "hidden=NO");
}

TEST(DriverBeforeTheView, StateIsNilAndPickAnError) {
  test::PanelDriver driver(test::testPPD({test::laminateOption()}));
  driver.runSilently("panels");
  EXPECT_EQ(driver.result("laminate state frontLaminatePopUp"), "nil");
  EXPECT_EQ(driver.result("laminate pick frontLaminatePopUp 0"),
            "the outlet \"frontLaminatePopUp\" is not connected");
}

}  // namespace
}  // namespace cardpanels
