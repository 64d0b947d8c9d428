// What cardprint sends to a real print server.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <fstream>
#include <string>
#include <thread>

#include "tests/support/PrivatePrintServer.h"
#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Key;
using testing::Not;
using testing::Pair;

class CardprintQueueTest : public testing::Test {
 protected:
  CardprintQueueTest() {
    server_.addQueue("card",
                     test::fileContent(CARDPANELS_SOURCE_DIR "/resources/ppd/card-laminate.ppd"));
  }

  static test::Finished cardprint(const std::string& arguments) {
    return test::runCommand("env -u DISPLAY -u WAYLAND_DISPLAY " CARDPANELS_BUILD_DIR
                            "/bin/cardprint --no-dialog " +
                            arguments);
  }

  test::PrivatePrintServer server_;
  test::TemporaryFolder folder_;
  std::string picture_ = folder_.write("badge.txt", "Ada Lovelace\n");
};

TEST_F(CardprintQueueTest, SendsTheFilesWithTheChosenOptionsAndTellsTheJob) {
  const auto finished = cardprint("-d card -o cardLaminate=Front " + picture_ + " " + picture_);
  EXPECT_EQ(finished.status, 0) << finished.errors;
  EXPECT_THAT(finished.output, EndsWith("\nrequest id is card-1 (2 file(s))\n"));
  EXPECT_THAT(server_.job(1), Contains(Pair("cardLaminate", "Front")));
  EXPECT_THAT(server_.job(1), Contains(Pair("job-name", "badge.txt")));
}

TEST_F(CardprintQueueTest, AFolderForTemporaryFilesThatIsNotThereAbortsNothing) {
  const auto finished = test::runCommand("env -u DISPLAY TMPDIR=/nonexistent " CARDPANELS_BUILD_DIR
                                         "/bin/cardprint --no-dialog -d card");
  EXPECT_THAT(finished.status, testing::AnyOf(0, 2));
  EXPECT_EQ(finished.errors.empty(), finished.status == 0) << finished.errors;
}

TEST_F(CardprintQueueTest, AJobThatWasPrintedButNotToldHasAStatusOfItsOwn) {
  const auto finished = cardprint("-d card " + picture_ + " >/dev/full");
  EXPECT_EQ(finished.status, 3);
  EXPECT_THAT(finished.errors, EndsWith("The job was printed.\n"));
  EXPECT_EQ(server_.jobCount(), 1);
}

TEST_F(CardprintQueueTest, AJobIsPrinted) {
  server_.enable("card");
  cardprint("-d card -o cardLaminate=Front " + picture_);
  EXPECT_EQ(server_.endedJob(1), "completed");
  EXPECT_THAT(server_.filterOptions(1), HasSubstr("cardLaminate=Front"));
}

TEST_F(CardprintQueueTest, PrintsNothingWhenTwoOptionsExcludeEachOther) {
  const auto finished = cardprint("-d card -o cardLaminate=Both -o PageSize=CR79 " + picture_);
  EXPECT_EQ(finished.status, 2);
  EXPECT_EQ(finished.output, "");
  EXPECT_EQ(server_.jobCount(), 0);
}

TEST_F(CardprintQueueTest, ChangesASavedOptionForAGivenOneAndTellsIt) {
  server_.saveOptions("card", "cardLaminate=Both");
  server_.enable("card");
  const auto finished = cardprint("-d card -o PageSize=CR79 " + picture_);
  EXPECT_EQ(finished.status, 0);
  EXPECT_THAT(finished.errors,
              AllOf(HasSubstr("“Both Sides” to “No Laminate”"), HasSubstr("Card Size")));
  EXPECT_EQ(server_.endedJob(1), "completed");
  EXPECT_THAT(server_.job(1),
              AllOf(Contains(Pair("PageSize", "CR79")), Contains(Pair("cardLaminate", "None"))));
}

TEST_F(CardprintQueueTest, PrintsNothingWhenSavedOptionsExcludeEachOther) {
  server_.saveOptions("card", "cardLaminate=Both PageSize=CR79");
  const auto finished = cardprint("-d card " + picture_);
  EXPECT_EQ(finished.status, 2);
  EXPECT_THAT(finished.errors, AllOf(HasSubstr("“Thermal Laminate”"), HasSubstr("“Card Size”")));
  EXPECT_EQ(cardprint("-d card -o cardLaminate=Front " + picture_).status, 2);
  EXPECT_EQ(server_.jobCount(), 0);
}

TEST_F(CardprintQueueTest, PrintsWhenAGivenOptionResolvesWhatSavedOnesExclude) {
  server_.saveOptions("card", "cardLaminate=Both PageSize=CR79");
  server_.enable("card");
  const auto finished = cardprint("-d card -o PageSize=CR80 " + picture_);
  EXPECT_EQ(finished.status, 0) << finished.errors;
  EXPECT_EQ(finished.errors, "");
  EXPECT_EQ(server_.endedJob(1), "completed");
  EXPECT_THAT(server_.filterOptions(1),
              AllOf(HasSubstr("PageSize=CR80"), HasSubstr("cardLaminate=Both")));
}

TEST_F(CardprintQueueTest, WhatIsToldAsLeftOutIsNotInTheJob) {
  server_.setDefaults("card", "-o cardLaminate-default=Nope");
  server_.enable("card");
  const auto finished = cardprint("-d card " + picture_);
  EXPECT_EQ(finished.status, 0);
  EXPECT_THAT(finished.errors, HasSubstr("cardLaminate=Nope was left out"));
  EXPECT_EQ(server_.endedJob(1), "completed");
  EXPECT_THAT(server_.filterOptions(1),
              AllOf(HasSubstr("cardLaminate=None"), Not(HasSubstr("Nope"))));
}

TEST_F(CardprintQueueTest, SeesWhatASavedMediaExcludes) {
  server_.saveOptions("card", "cardLaminate=Both media=CR79");
  EXPECT_EQ(cardprint("-d card " + picture_).status, 2);
  EXPECT_EQ(server_.jobCount(), 0);
}

TEST_F(CardprintQueueTest, SendsTheSizeOfAGivenMediaOnce) {
  server_.saveOptions("card", "media=CR79");
  server_.enable("card");
  const auto finished = cardprint("-d card -o media=iso_id-1_53.98x85.6mm " + picture_);
  EXPECT_EQ(finished.status, 0) << finished.errors;
  EXPECT_EQ(server_.endedJob(1), "completed");
  EXPECT_THAT(server_.job(1),
              AllOf(Contains(Pair("PageSize", "CR80")), Not(Contains(Key("media")))));
}

TEST_F(CardprintQueueTest, PrintsOnTheDefaultQueue) {
  server_.setDefault("card");
  EXPECT_THAT(cardprint(picture_).output, EndsWith("\nrequest id is card-1 (1 file(s))\n"));
}

TEST_F(CardprintQueueTest, StartsFromTheOptionsSavedForAnInstance) {
  server_.saveOptions("card/visitors", "cardLaminate=Back");
  const auto finished = cardprint("-d card/visitors " + picture_);
  EXPECT_EQ(finished.status, 0) << finished.errors;
  EXPECT_THAT(finished.output, HasSubstr("Thermal Laminate: Back Side"));
  EXPECT_THAT(server_.job(1), Contains(Pair("cardLaminate", "Back")));
}

TEST_F(CardprintQueueTest, AJobTakesFourRequestsOnOneConnection) {
  server_.saveOptions("card/visitors", "cardLaminate=Back");
  for (const std::string queue : {"card", "card/visitors"}) {
    server_.traffic();
    EXPECT_EQ(cardprint("-d " + queue + " -o PageSize=CR80 " + picture_).status, 0);
    const auto [connections, requests] = server_.traffic();
    EXPECT_EQ(connections, 1) << queue;
    EXPECT_THAT(requests, testing::ElementsAre("Get-Printer-Attributes", "GET /printers/card.ppd",
                                               "Create-Job", "Send-Document"))
        << queue;
    server_.setDefaults("card", "-o media-default=CR79");
  }
  EXPECT_THAT(server_.job(2), Contains(Pair("media", "CR80")));
}

TEST_F(CardprintQueueTest, AQueueThatChangesBeforeThereIsAnythingToPrintIsReadAgain) {
  const std::string pipe = (folder_.path() / "pipe").string();
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::thread writer([&] {
    std::this_thread::sleep_for(std::chrono::seconds(6));
    server_.addQueue("card", test::testPPD({test::laminateOption()}));
    std::ofstream(pipe) << "Ada Lovelace\n";
  });
  const auto finished = cardprint("-d card " + pipe);
  writer.join();
  EXPECT_EQ(finished.status, 2);
  EXPECT_THAT(finished.errors, HasSubstr("have changed meanwhile. Nothing was printed."));
  EXPECT_EQ(server_.jobCount(), 0);
}

TEST_F(CardprintQueueTest, WithoutFilesItOnlyTellsTheOptions) {
  EXPECT_THAT(cardprint("-d card -o cardLaminate=Front").output,
              EndsWith("\n-o cardLaminate=Front\n"));
  EXPECT_EQ(server_.jobCount(), 0);
}

TEST_F(CardprintQueueTest, NamesAQueueThatIsNotThere) {
  const auto finished = cardprint("-d nowhere " + picture_);
  EXPECT_EQ(finished.status, 2);
  EXPECT_THAT(finished.errors, HasSubstr("nowhere"));
}

TEST_F(CardprintQueueTest, SendsWhatAPersonChoosesInTheDialog) {
  const auto finished =
      test::runCommand("/usr/bin/python3 -B " CARDPANELS_SOURCE_DIR
                       "/tests/apps/cardprint/choose_laminate.py " CARDPANELS_BUILD_DIR
                       "/bin/cardprint 'Both Sides' -d card " +
                       picture_);
  EXPECT_EQ(finished.status, 0) << finished.output << finished.errors;
  EXPECT_THAT(finished.output, EndsWith("\nrequest id is card-1 (1 file(s))\n"));
  EXPECT_THAT(server_.job(1), Contains(Pair("cardLaminate", "Both")));
  EXPECT_THAT(server_.job(1), Not(Contains(Key("frontPO"))));
}

TEST_F(CardprintQueueTest, TellsInTheDialogThatAJobCannotBeSentAndStays) {
  const auto finished = test::runCommand("/usr/bin/python3 -B " CARDPANELS_SOURCE_DIR
                                         "/tests/apps/cardprint/lose_file.py " CARDPANELS_BUILD_DIR
                                         "/bin/cardprint card " +
                                         picture_);
  EXPECT_EQ(finished.status, 1) << finished.output << finished.errors;
  EXPECT_THAT(finished.output, HasSubstr(picture_));
  EXPECT_THAT(finished.errors, HasSubstr("cardprint: " + picture_));
  EXPECT_EQ(server_.jobCount(), 0);
}

}  // namespace
}  // namespace cardpanels
