#include <gtest/gtest.h>

#include <string>

#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels {
namespace {

const std::string kProgram = CARDPANELS_BUILD_DIR "/bin/pde-drive";

class Program : public testing::Test {
 protected:
  test::Finished run(const std::string& arguments, const std::string& script = {}) {
    return test::runCommand("LC_ALL=C " + kProgram + " " + arguments, script);
  }
  test::TemporaryFolder folder;
  std::string ppd = folder.write("test.ppd", test::testPPD({test::laminateOption()}));
};

TEST_F(Program, RunsAScriptFromStandardInput) {
  const auto finished = run("--ppd " + ppd + " --stable", "panels\nlaminate panelName\n");
  EXPECT_EQ(finished.status, 0) << finished.errors;
  EXPECT_TRUE(finished.output.ends_with("= Thermal Laminate\n")) << finished.output;
}

TEST_F(Program, SaysTheEncodingAtTheFirstChoiceOfAProcess) {
  const auto finished = run("--ppd " + ppd, "panels\n");
  EXPECT_NE(finished.output.find("\n| LOG Encoding set as 4\n"), std::string::npos)
      << finished.output;
}

TEST_F(Program, PrintsRealAddressesWithoutStable) {
  const auto finished = run("--ppd " + ppd, "panels\n");
  EXPECT_EQ(finished.output.find("<ORBPDEPlugIn: 0x1>"), std::string::npos);
}

TEST_F(Program, AFailedCommandMakesTheStatusOne) {
  const auto finished = run("--ppd " + ppd, "jump\npanels\n");
  EXPECT_EQ(finished.status, 1);
  EXPECT_NE(finished.output.find("\n! "), std::string::npos);
}

TEST_F(Program, WithoutConstraintHandlingAsksNoHost) {
  const auto finished = run("--ppd " + ppd + " --no-constraint-handling", "panels\n");
  EXPECT_NE(finished.output.find("Constraint Handling Available: NO"), std::string::npos);
}

TEST_F(Program, WithoutAPPDIsAUsageError) {
  const auto finished = run("");
  EXPECT_EQ(finished.status, 2);
  EXPECT_EQ(finished.errors, "pde-drive: --ppd FILE is needed\nTry 'pde-drive --help'.\n");
}

TEST_F(Program, APPDThatIsNotThereIsNamed) {
  const auto finished = run("--ppd /nowhere.ppd");
  EXPECT_EQ(finished.status, 2);
  EXPECT_EQ(finished.errors.find("pde-drive: /nowhere.ppd: "), 0U) << finished.errors;
}

TEST_F(Program, ABundleThatIsNotThereIsNamed) {
  const auto finished = run("--ppd " + ppd + " --bundle /nowhere", "panels\n");
  EXPECT_EQ(finished.status, 1);
  EXPECT_NE(finished.output.find("! The panels cannot be loaded: /nowhere/cardpanels.so"),
            std::string::npos)
      << finished.output;
}

TEST_F(Program, SaysWhenStandardOutputCannotBeWritten) {
  for (const char* output : {" >/dev/full", " >&-"}) {
    const auto finished = run("--ppd " + ppd + output, "panels\n");
    EXPECT_EQ(finished.status, 2) << output;
    EXPECT_EQ(finished.errors.find("pde-drive: Standard output cannot be written: "), 0U)
        << finished.errors;
  }
}

TEST_F(Program, AnUnknownOptionIsNamedWithoutControlCharacters) {
  const auto finished = test::runCommand("bash -c \"" + kProgram + " $'--a\\x1b'\"");
  EXPECT_EQ(finished.status, 2);
  EXPECT_EQ(finished.errors, "pde-drive: There is no option --a\\x1b.\nTry 'pde-drive --help'.\n");
}

TEST_F(Program, HasHelpAndAVersion) {
  EXPECT_EQ(run("--help").status, 0);
  EXPECT_EQ(run("--help").output.find("Usage: pde-drive --ppd FILE"), 0U);
  EXPECT_EQ(run("--version").output.find("pde-drive "), 0U);
}

}  // namespace
}  // namespace cardpanels
