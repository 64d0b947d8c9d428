#include <gtest/gtest.h>

#include <string>

#include "tests/support/PanelDriver.h"
#include "tests/support/TestPPD.h"

namespace cardpanels {
namespace {

class AreaCommands : public testing::Test {
 protected:
  test::PanelDriver driver{test::testPPD({test::laminateOption()})};
};

TEST_F(AreaCommands, ParseAreaPrintsTraceAndTheFourParts) {
  EXPECT_EQ(driver.run("parseArea \"Custom.1in 2 3\\\" .4MM\""),
            "> parseArea \"Custom.1in 2 3\\\" .4MM\"\n"
            "| BEGIN parseArea:\n"
            "| END parseArea: (1in)(2px)(3\")(.4MM)\n"
            "= (1in)(2px)(3\")(.4MM)\n");
  EXPECT_FALSE(driver.failed());
}

TEST_F(AreaCommands, ParseAreaOfNoAreaPrintsFourEmptyParts) {
  for (const char* area : {"nil", "\"\"", "Custom.", "1in", "１in"}) {
    EXPECT_EQ(driver.result(std::string("parseArea ") + area), "()()()()") << area;
  }
}

TEST_F(AreaCommands, FormatAreaPrintsTraceAndTheArea) {
  EXPECT_EQ(driver.run("formatArea 1in nil \"\" 4in"),
            "> formatArea 1in nil \"\" 4in\n"
            "| BEGIN formatArea: (1in)((null))()(4in)\n"
            "| END formatArea: (1in 0px 0px 4in)\n"
            "= 1in 0px 0px 4in\n");
}

TEST_F(AreaCommands, FormatAreaOfNothingOrOfTooLongAPartIsTheEmptyText) {
  EXPECT_EQ(driver.result("formatArea nil nil nil nil"), "");
  EXPECT_EQ(driver.result("formatArea 1 2 3 123456789012345678901"), "");
}

TEST_F(AreaCommands, WantAllTheirArguments) {
  EXPECT_EQ(driver.result("formatArea 1 2 3"), "takes 4 arguments, not 3");
  EXPECT_EQ(driver.result("parseArea"), "takes 1 arguments, not 0");
}

}  // namespace
}  // namespace cardpanels
