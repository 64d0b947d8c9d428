// What cardprint makes of many files, and of jobs that it waits for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string>

#include "tests/support/BuiltFiles.h"
#include "tests/support/PrivatePrintServer.h"
#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels {
namespace {

using test::cardprintCommand;
using testing::AllOf;
using testing::Contains;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Key;
using testing::Not;
using testing::Pair;
using testing::StartsWith;

class JobsTest : public testing::Test {
 protected:
  JobsTest() {
    server_.addQueue("card",
                     test::fileContent(CARDPANELS_SOURCE_DIR "/resources/ppd/card-duplex.ppd"));
  }

  test::Finished cardprint(const std::string& arguments, const std::string& input = {}) const {
    return test::runCommand("cd " + folder_.path().string() + " && timeout -s INT 60 " +
                                cardprintCommand() + "-d card " + arguments,
                            input);
  }

  /// Runs cardprint, which waits, and `meanwhile` once it stands in the log that there is a job.
  test::Finished cardprintWhile(const std::string& arguments, const std::string& meanwhile) const {
    return cardprint(arguments + " & { while ! lpstat -o card | grep -q .; do sleep .1; done; " +
                     meanwhile + "; } >&2; wait $!");
  }

  std::string state(int id) const { return server_.job(id)["job-state"]; }

  test::PrivatePrintServer server_;
  test::TemporaryFolder folder_;
  std::string ada_ = folder_.write("ada.txt", "Ada Lovelace\n");
  std::string grace_ = folder_.write("grace hopper.txt", "Grace Hopper\n");
};

TEST_F(JobsTest, EachFileIsAJob) {
  server_.enable("card");
  const auto finished = cardprint("--each --wait -n 2 ada.txt 'grace hopper.txt'");
  EXPECT_EQ(finished.status, 0) << finished.errors;
  EXPECT_EQ(finished.output, "ada.txt: card-1\ngrace hopper.txt: card-2\n");
  EXPECT_EQ(finished.errors, "");
  EXPECT_THAT(server_.job(1),
              AllOf(Contains(Pair("job-name", "ada.txt")), Contains(Pair("copies", "2")),
                    Contains(Pair("number-of-documents", "1"))));
  EXPECT_THAT(server_.job(2), Contains(Pair("job-name", "grace hopper.txt")));
  EXPECT_EQ(state(1) + state(2), "completedcompleted");
}

TEST_F(JobsTest, WithoutEachAllFilesAreOneJob) {
  EXPECT_EQ(cardprint("ada.txt 'grace hopper.txt'").status, 0);
  EXPECT_EQ(server_.jobCount(), 1);
}

TEST_F(JobsTest, WhatIsTheSameForAllFilesIsToldOnce) {
  const auto finished = cardprint(
      "--each -o frontResin=DefinedAreas -o frontResinInclude1='9cm 1in 2in 1in' "
      "ada.txt 'grace hopper.txt'");
  EXPECT_EQ(finished.status, 0);
  EXPECT_EQ(std::count(finished.errors.begin(), finished.errors.end(), '\n'), 1) << finished.errors;
}

TEST_F(JobsTest, ALineOfAListHasOptionsOfItsOwn) {
  server_.saveOptions("card", "backPO=Chip");
  folder_.write("jobs",
                "ada.txt frontRibbon=K frontResin=DefinedAreas "
                "frontResinInclude1=\"1in 1in 2in 2in\" copies=3\n"
                "# the second one\n"
                "'grace hopper.txt' job-name='Rear Admiral'\n"
                "ada.txt frontRibbon=YMC\n");
  const auto finished = cardprint("-o frontRibbon=YMCK -n 2 --list jobs");
  EXPECT_EQ(finished.status, 0) << finished.errors;
  EXPECT_EQ(finished.output, "ada.txt: card-1\ngrace hopper.txt: card-2\nada.txt: card-3\n");
  EXPECT_THAT(server_.job(1),
              AllOf(Contains(Pair("frontRibbon", "K")), Contains(Pair("copies", "3")),
                    Contains(Pair("backPO", "Chip")),
                    Contains(Pair("frontResinInclude1", "Custom.1in 1in 2in 2in"))));
  EXPECT_THAT(server_.job(2),
              AllOf(Contains(Pair("frontRibbon", "YMCK")), Contains(Pair("copies", "2")),
                    Contains(Pair("job-name", "Rear Admiral")), Not(Contains(Key("frontResin"))),
                    Not(Contains(Key("frontResinInclude1")))));
  EXPECT_THAT(server_.job(3),
              AllOf(Contains(Pair("frontRibbon", "YMC")), Contains(Pair("job-name", "ada.txt"))));
}

TEST_F(JobsTest, AListMayComeFromStandardInput) {
  const auto finished = cardprint("-s --list -", "ada.txt\nada.txt copies=2\n");
  EXPECT_EQ(finished.status, 0) << finished.errors;
  EXPECT_EQ(finished.output, "");
  EXPECT_EQ(server_.jobCount(), 2);
  EXPECT_THAT(cardprint("--list -", "\nnone.txt\n").errors,
              StartsWith("cardprint: (stdin):2: none.txt: "));
}

TEST_F(JobsTest, AllFaultsOfAListAreToldAndNothingIsPrinted) {
  folder_.write("jobs",
                "none.txt nose=Big frontRibbon=Gold\n"
                "ada.txt\n"
                "ada.txt 'copies=2\n"
                "ada.txt frontUV=ImageCopy frontRibbon=YMC\n"
                "ada.txt frontResinInclude1='1in 1in 1in'\n"
                "ada.txt =\n");
  const auto finished = cardprint("--list jobs");
  EXPECT_EQ(finished.status, 2);
  EXPECT_EQ(finished.output, "");
  EXPECT_THAT(
      finished.errors,
      AllOf(HasSubstr("jobs:1: none.txt: "), HasSubstr("jobs:1: -o nose=Big: "),
            HasSubstr("jobs:1: -o frontRibbon=Gold: "), Not(HasSubstr("jobs:2:")),
            HasSubstr("jobs:3: "), HasSubstr("jobs:4: “"),
            HasSubstr("jobs:5: -o frontResinInclude1=1in 1in 1in: "), HasSubstr("jobs:6: -o =: ")));
  EXPECT_EQ(server_.jobCount(), 0);
}

TEST_F(JobsTest, AStrictListPrintsNothingWhenAnAreaCannotBeRight) {
  folder_.write("jobs",
                "ada.txt\nada.txt frontResin=DefinedAreas frontResinInclude1='9cm 1in 2in 1in'\n");
  const auto strict = cardprint("--strict --list jobs");
  EXPECT_EQ(strict.status, 2);
  EXPECT_THAT(strict.errors, AllOf(StartsWith("cardprint: jobs:2: "), HasSubstr("outside")));
  EXPECT_EQ(server_.jobCount(), 0);
  EXPECT_EQ(cardprint("--list jobs").status, 0);
  EXPECT_EQ(server_.jobCount(), 2);
}

TEST_F(JobsTest, OptionsOfTheCommandLineAreToldOnce) {
  folder_.write("jobs", "ada.txt\nada.txt\n");
  const auto finished = cardprint("-o nose=Big --list jobs");
  EXPECT_EQ(finished.status, 2);
  EXPECT_THAT(finished.errors, StartsWith("cardprint: -o nose=Big: "));
}

TEST_F(JobsTest, GoesOnAtAFailureUnlessItShallStop) {
  // cupsd refuses more copies than it allows.
  folder_.write("jobs", "ada.txt copies=123456\n'grace hopper.txt'\n");
  const auto finished = cardprint("--list jobs");
  EXPECT_EQ(finished.status, 2);
  EXPECT_EQ(finished.output, "grace hopper.txt: card-1\n");
  EXPECT_THAT(finished.errors, StartsWith("cardprint: jobs:1: ada.txt: The queue card does not"));
  EXPECT_EQ(cardprint("--stop --list jobs").status, 2);
  EXPECT_EQ(server_.jobCount(), 1);
}

TEST_F(JobsTest, AListThatCannotBeReadOrUsedIsTold) {
  EXPECT_THAT(cardprint("--list none").errors, HasSubstr("none: No such file"));
  EXPECT_THAT(cardprint("--list /tmp").errors, HasSubstr("/tmp: Is a directory"));
  folder_.write("jobs", "# nothing\n");
  const auto empty = cardprint("--list jobs");
  EXPECT_EQ(empty.status, 2);
  EXPECT_THAT(empty.errors, HasSubstr("jobs: "));
}

TEST_F(JobsTest, WaitingEndsWithTheJob) {
  server_.enable("card");
  const auto finished = cardprint("--wait ada.txt");
  EXPECT_EQ(finished.status, 0) << finished.errors;
  EXPECT_THAT(finished.output, EndsWith("request id is card-1 (1 file(s))\n"));
  EXPECT_EQ(finished.errors, "");
  EXPECT_EQ(state(1), "completed");
}

TEST_F(JobsTest, AStoppedPrinterIsToldOnceWhileItWaits) {
  server_.stop("card", "Lid open");
  const auto finished = cardprintWhile("--wait ada.txt", "sleep 3; cupsenable card");
  EXPECT_EQ(finished.status, 0);
  EXPECT_EQ(finished.errors, "cardprint: card: Printer stopped: Lid open\n");
  EXPECT_EQ(state(1), "completed");
}

TEST_F(JobsTest, ACancelledJobIsTold) {
  const auto finished = cardprintWhile("--wait ada.txt", "cancel card-1");
  EXPECT_EQ(finished.status, 4);
  EXPECT_THAT(finished.errors, EndsWith("cardprint: card-1: Job cancelled\n"));
  EXPECT_EQ(state(1), "canceled");
}

TEST_F(JobsTest, AJobThatItsFiltersCannotReadIsTold) {
  server_.enable("card");
  folder_.write("broken.pdf", "%PDF-1.4\nno pdf\n");
  const auto finished = cardprint("--wait --each broken.pdf ada.txt");
  EXPECT_EQ(finished.status, 4);
  EXPECT_EQ(finished.output, "broken.pdf: card-1\nada.txt: card-2\n");
  EXPECT_THAT(finished.errors, StartsWith("cardprint: card-1: Job stopped · "));
  EXPECT_THAT(finished.errors, Not(HasSubstr("card-2")));
  EXPECT_EQ(state(1) + state(2), "processing-stoppedcompleted");
}

TEST_F(JobsTest, AnAbortedJobIsToldWithItsReasons) {
  ASSERT_EQ(
      test::runCommand("PATH=$PATH:/usr/sbin lpadmin -p card -o printer-error-policy=abort-job "
                       "-v 'socket://localhost:1/?contimeout=1'")
          .status,
      0);
  server_.enable("card");
  const auto finished = cardprint("--wait ada.txt");
  EXPECT_EQ(finished.status, 4);
  EXPECT_THAT(finished.errors, StartsWith("cardprint: card-1: Job aborted · "));
  EXPECT_EQ(state(1), "aborted");
}

TEST_F(JobsTest, AJobThatNobodyKnowsAnyMoreIsTold) {
  const auto finished = cardprintWhile("--wait ada.txt", "cancel -a -x card");
  EXPECT_EQ(finished.status, 4);
  EXPECT_THAT(finished.errors, HasSubstr("cardprint: card-1: The print server "));
}

TEST_F(JobsTest, AnInterruptEndsTheWaitingAndNotTheJob) {
  constexpr int kTimedOut = 124;
  EXPECT_EQ(
      test::runCommand("timeout -s INT 3 " + cardprintCommand() + "-d card --wait " + ada_).status,
      kTimedOut);
  EXPECT_EQ(state(1), "pending");
}

}  // namespace
}  // namespace cardpanels
