#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/BuiltFiles.h"
#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

const std::string kCheck =
    "env -u DISPLAY LC_ALL=C.UTF-8 " CARDPANELS_BUILD_DIR "/bin/cardprint --check ";

class Check : public testing::Test {
 protected:
  std::string ppd(const std::string& lines) {
    return folder.write("card.ppd", test::testPPD({test::laminateOption()}, lines));
  }
  test::TemporaryFolder folder;
};

TEST_F(Check, FindsNothingWrongInTheSamples) {
  for (const char* name : {"card-duplex", "card-single", "card-laminate"}) {
    const auto done =
        test::runCommand(kCheck + CARDPANELS_SOURCE_DIR "/resources/ppd/" + name + ".ppd");
    EXPECT_EQ(done.status, 0) << done.output;
    EXPECT_THAT(done.output, HasSubstr(".ppd: Errors: 0, warnings: 0.\n"));
    EXPECT_THAT(done.errors, IsEmpty());
  }
}

constexpr const char* kNearly =
    "*OpenUI *backRibon/Ribbon: PickOne\n*DefaultbackRibon: A\n*backRibon A/A: \"\"\n"
    "*CloseUI: *backRibon\n";

TEST_F(Check, AnswersWarningsByFileAndLine) {
  const std::string path = ppd(kNearly);
  const auto done = test::runCommand(kCheck + path);
  EXPECT_EQ(done.status, 1) << done.output;
  EXPECT_THAT(done.output, HasSubstr("\n" + path + ":34: warning: backRibon is "));
}

TEST_F(Check, AnswersErrorsOfAnyFile) {
  const std::string path = folder.write("bad.ppd", test::testPPD({}, kNearly));
  const auto done = test::runCommand(kCheck + path + " " + test::duplexPPD());
  EXPECT_EQ(done.status, 2);
  EXPECT_THAT(done.output, HasSubstr(path + ": error: No panel appears"));
  EXPECT_THAT(done.output, HasSubstr(path + ": Errors: 1, warnings: 1.\n"));
  EXPECT_THAT(done.output, HasSubstr(test::duplexPPD() + ": Errors: 0, warnings: 0.\n"));
}

TEST_F(Check, TellsALineOfOursThatIsWrong) {
  const std::string path = ppd("*cardpanelsOrigin: Nose\n");
  const auto done = test::runCommand(kCheck + path);
  EXPECT_EQ(done.status, 2);
  EXPECT_THAT(done.errors, StartsWith("cardprint: " + path + ":34: *cardpanelsOrigin is "));
}

TEST_F(Check, TellsAFileThatIsNoPPDAndGoesOn) {
  const std::string path = folder.write("text.ppd", "Hello\n");
  const auto done = test::runCommand(kCheck + path + " " + test::duplexPPD());
  EXPECT_EQ(done.status, 2);
  EXPECT_EQ(done.errors, "cardprint: " + path +
                             ":1: This is not a PPD file: it does not start with *PPD-Adobe.\n");
  EXPECT_THAT(done.output, StartsWith(test::duplexPPD() + ": The panel "));
}

TEST_F(Check, TakesNothingThatIsForPrinting) {
  for (const std::string arguments : {"", "-d badges a.ppd", "--no-dialog a.ppd", "-o a=b a.ppd",
                                      "--ppd a.ppd", "--wait a.ppd", "--list a b"}) {
    const auto done = test::runCommand(kCheck + arguments);
    EXPECT_EQ(done.status, 2) << arguments;
    EXPECT_THAT(done.errors, StartsWith("cardprint: --check takes PPD files, and nothing that is "
                                        "for printing.\n"))
        << arguments;
  }
}

}  // namespace
}  // namespace cardpanels
