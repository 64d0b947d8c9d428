// cardprint and lp make the same jobs of the same arguments.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "tests/support/BuiltFiles.h"
#include "tests/support/OddServer.h"
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
using testing::Pair;

/// A server with the queue `card`, shared by the tests, and a file to print.
class LpTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    server = std::make_unique<test::PrivatePrintServer>();
    server->addQueue("card",
                     test::fileContent(CARDPANELS_SOURCE_DIR "/resources/ppd/card-laminate.ppd"));
  }
  static void TearDownTestSuite() { server.reset(); }

  /// What `command` makes, without what differs from job to job.
  static std::map<std::string, std::string> jobOf(const std::string& command,
                                                  const std::string& input = {}) {
    const int before = server->jobCount();
    const auto finished = test::runCommand(command, input);
    EXPECT_EQ(finished.status, 0) << command << ": " << finished.errors;
    EXPECT_EQ(server->jobCount(), before + 1) << command;
    auto job = server->job(before + 1);
    for (const char* own : {"job-id", "job-uri", "job-uuid", "job-more-info", "printer-uri",
                            "job-printer-up-time", "time-at-creation", "date-time-at-creation"}) {
      EXPECT_EQ(job.erase(own), 1) << own;
    }
    return job;
  }

  void expectSameJob(const std::string& arguments, const std::string& input = {}) const {
    const auto job = jobOf("lp -d card " + arguments, input);
    EXPECT_THAT(job, Contains(Key("job-name"))) << arguments;
    EXPECT_EQ(jobOf(cardprintCommand() + "-d card " + arguments, input), job) << arguments;
  }

  static void expectRefused(const std::string& arguments, const std::string& reason) {
    const int before = server->jobCount();
    const auto finished = test::runCommand(cardprintCommand() + arguments);
    EXPECT_EQ(finished.status, 2) << arguments;
    EXPECT_EQ(finished.output, "") << arguments;
    EXPECT_THAT(finished.errors, HasSubstr(reason));
    EXPECT_EQ(server->jobCount(), before) << arguments;
  }

  static std::unique_ptr<test::PrivatePrintServer> server;
  test::TemporaryFolder folder;
  std::string file = folder.write("badge.txt", "Ada Lovelace\n");
};

std::unique_ptr<test::PrivatePrintServer> LpTest::server;

TEST_F(LpTest, EachLetterMakesTheSameJob) {
  for (const std::string arguments :
       {"", "-n 3", "-t 'Ada & Co'", "-t ''", "-q 7", "-P 1,3-5", "-P 2-", "-H hold",
        "-H immediate", "-H 23:45", "-H 1:02:03", "-H night", "-U visitor", "-s",
        "-n2 -tBadge -Hhold -q99 -P1"}) {
    expectSameJob(arguments + " -- " + file);
  }
}

TEST_F(LpTest, EachJobAttributeMakesTheSameJob) {
  for (const std::string arguments : {"-o copies=2",
                                      "-o fit-to-page",
                                      "-o nofit-to-page",
                                      "-o landscape -o fitplot",
                                      "-o orientation-requested=4",
                                      "-o page-ranges=1-2,4",
                                      "-o job-hold-until=indefinite",
                                      "-o job-priority=3",
                                      "-o number-up=2",
                                      "-o number-up-layout=tblr",
                                      "-o sides=two-sided-long-edge",
                                      "-o job-sheets=standard,none",
                                      "-o print-quality=5",
                                      "-o print-scaling=fit",
                                      "-o 'copies=2 number-up=4 landscape'",
                                      "-o scaling=50 -o ppi=300",
                                      "-o page-set=odd -o collate=true -o outputorder=reverse",
                                      "-o job-billing='\"Visitors 7\"'",
                                      "-o media-col='{media-type=cards}'",
                                      "-o raw",
                                      "-o document-format=text/plain",
                                      "-n 2 -o copies=3",
                                      "-o copies=3 -n 2",
                                      "-o finishings=3",
                                      "-o printer-resolution=300dpi",
                                      "-o cardLaminate=Front -o copies=2",
                                      "-o ipp-attribute-fidelity=false"}) {
    expectSameJob(arguments + " " + file);
  }
}

TEST_F(LpTest, SavedAttributesGiveWayToGivenOnes) {
  server->addQueue("saved",
                   test::fileContent(CARDPANELS_SOURCE_DIR "/resources/ppd/card-laminate.ppd"));
  server->saveOptions("saved", "copies=4 number-up=2");
  const auto job = jobOf("lp -d saved -n 2 " + file);
  EXPECT_THAT(job, AllOf(Contains(Pair("copies", "2")), Contains(Pair("number-up", "2"))));
  EXPECT_EQ(jobOf(cardprintCommand() + "-d saved -n 2 " + file), job);
}

TEST_F(LpTest, AHyphenIsStandardInput) {
  expectSameJob("-", "Grace Hopper\n");
  expectSameJob("-t Guest -", std::string(200'000, 'x'));
  const auto finished = test::runCommand(cardprintCommand() + "-d card -", "Grace Hopper\n");
  EXPECT_THAT(finished.output, EndsWith(" (0 file(s))\n"));
  expectRefused("-d card - " + file, "Standard input");
  const auto refused = test::runCommand(cardprintCommand() + "-d card - <&-");
  EXPECT_EQ(refused.status, 2);
  EXPECT_THAT(refused.errors, HasSubstr("(stdin): "));
}

TEST_F(LpTest, APipeIsPrinted) {
  const std::string pipe = folder.path() / "pipe";
  const std::string throughPipe = "mkfifo " + pipe + " && { cat " + file + " >" + pipe +
                                  " & } && " + cardprintCommand() + "-d card ";
  EXPECT_THAT(jobOf(throughPipe + pipe), AllOf(Contains(Pair("job-name", "pipe")),
                                               Contains(Pair("number-of-documents", "1"))));
}

TEST_F(LpTest, StandardInputAloneIsNotPrinted) {
  const int before = server->jobCount();
  const auto finished =
      test::runCommand(cardprintCommand() + "-d card -n 2 -o fit-to-page", "a badge\n");
  EXPECT_EQ(finished.status, 0) << finished.errors;
  EXPECT_THAT(finished.output, EndsWith("\n-o copies=2 -o fit-to-page=true\n"));
  EXPECT_EQ(server->jobCount(), before);
}

TEST_F(LpTest, ASilentProgramTellsNothing) {
  const auto finished = test::runCommand(cardprintCommand() + "-s -d card " + file);
  EXPECT_EQ(finished.status, 0);
  EXPECT_EQ(finished.output + finished.errors, "");
}

TEST_F(LpTest, TheServerIsThatOfTheCommandLine) {
  for (const std::string& arguments : {"-h " + server->address() + " -d card ",
                                       "-U visitor -d card -h" + server->address() + " "}) {
    EXPECT_THAT(jobOf("CUPS_SERVER=/nowhere " + cardprintCommand() + arguments + file),
                Contains(Key("job-name")));
  }
  expectRefused("-h /nowhere -d card " + file, "/nowhere");
}

TEST_F(LpTest, WhatIsNoOptionAndNoAttributeIsRefusedByName) {
  expectRefused("-d card -o nose=Big " + file, "-o nose=Big: ");
  expectRefused("-d card -o nosewide " + file, "-o sewide=false: ");
  expectRefused("-d card -n 2 -o 'copies=2 Copies=3' " + file, "-o Copies=3: ");
  expectRefused("-d card -o printer-uri=ipp://a/ " + file, "printer-uri");
}

TEST_F(LpTest, ALettersValueIsRefusedByName) {
  expectRefused("-d card -n 0 " + file, "-n 0: ");
  expectRefused("-d card -n 2x " + file, "-n 2x: ");
  expectRefused("-d card -q 101 " + file, "-q 101: ");
  expectRefused("-d card -P 1- -P a " + file, "-P a: ");
  expectRefused("-d card -H restart " + file, "-H restart: ");
  expectRefused("-d card -H 24:00 " + file, "-H 24:00: ");
  expectRefused("-d card -h '' " + file, "-h");
  expectRefused("-d card -U '' " + file, "-U");
}

/// What the server at `at` gets first from cardprint with `arguments`, which get its name.
std::string firstBytes(test::OddServer::At at, const std::string& arguments) {
  std::mutex mutex;
  std::string first;
  const test::OddServer server(
      [&](test::OddServer::Client& client) {
        const std::string some = client.some(4);
        const std::lock_guard lock(mutex);
        if (first.empty()) first = some;
      },
      at);
  test::runCommand("CUPS_SERVER=/nowhere " + cardprintCommand() + arguments + " -h " +
                   server.name());
  const std::lock_guard lock(mutex);
  return first;
}

TEST(CardprintAtAServer, EncryptsOnRequest) {
  EXPECT_EQ(firstBytes(test::OddServer::At::socket, "-d card"), "POST");
  EXPECT_EQ(firstBytes(test::OddServer::At::socket, "-d card -E"), "OPTI");
}

TEST(CardprintAtAServer, TakesAHostWithAPort) {
  EXPECT_EQ(firstBytes(test::OddServer::At::port, "-d card"), "POST");
}

}  // namespace
}  // namespace cardpanels
