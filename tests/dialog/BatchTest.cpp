// Many jobs on their way to a real print server, and what becomes of them there.
#include <cups/cups.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <set>

#include "dialog/Batch.h"
#include "dialog/JobWatch.h"
#include "dialog/PrinterList.h"
#include "host/Queue.h"
#include "tests/support/MainLoop.h"
#include "tests/support/PrivatePrintServer.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::dialog {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using State = BatchJob::State;

class AtAServer : public testing::Test {
 protected:
  AtAServer() { server_.addQueue("card", test::testPPD({test::laminateOption()})); }

  host::Submission submission(const std::string& file) const {
    return {.queue = {"card", ""}, .title = file, .files = {file}, .options = {}};
  }

  test::PrivatePrintServer server_;
  test::TemporaryFolder folder_;
  test::MainLoop loop_;
  std::string ada_ = folder_.write("ada.txt", "Ada\n");
  std::string bea_ = (folder_.path() / "bea.txt").string();  // not there
  std::string cora_ = folder_.write("cora.txt", "Cora\n");
};

class ABatch : public AtAServer {
 protected:
  /// Sends until that has ended.
  void send(bool stopsAtFailure = false) {
    batch_.start(stopsAtFailure, std::nullopt);
    EXPECT_TRUE(batch_.isSending());
    EXPECT_TRUE(loop_.runUntil([this] { return !batch_.isSending(); }));
  }

  std::vector<State> states() const {
    std::vector<State> all;
    for (const BatchJob& each : batch_.jobs()) all.push_back(each.state);
    return all;
  }

  std::string ppdText_ = host::openQueue({"card", ""}).ppdText;
  Batch batch_{{submission(ada_), submission(bea_), submission(cora_)},
               ppdText_,
               loop_.post(),
               [](std::optional<std::size_t>) {}};
};

TEST_F(ABatch, LeavesAFileThatFailsAndTriesItAgainAlone) {
  send();
  EXPECT_THAT(states(), ElementsAre(State::sent, State::failed, State::sent));
  EXPECT_THAT(batch_.jobs()[1].reason, HasSubstr("bea.txt: No such file"));
  EXPECT_EQ(progressLine(batch_), "2 of 3 sent · 1 failed");
  EXPECT_THAT(batch_.unsentFiles(), ElementsAre(bea_));
  folder_.write("bea.txt", "Bea\n");
  send();
  EXPECT_THAT(batch_.sentIds(), ElementsAre(1, 3, 2));
  EXPECT_EQ(progressLine(batch_), "3 of 3 sent");
  EXPECT_EQ(server_.jobCount(), 3);
  send();
  EXPECT_EQ(server_.jobCount(), 3);
}

TEST_F(ABatch, StopsAtTheFirstFailureWhereThatIsWanted) {
  send(true);
  EXPECT_THAT(states(), ElementsAre(State::sent, State::failed, State::waiting));
  EXPECT_EQ(server_.jobCount(), 1);
}

TEST_F(ABatch, AsksTheServerTwiceForAJob) {
  folder_.write("bea.txt", "Bea\n");
  server_.traffic();
  send();
  const auto requests = server_.traffic().requests;
  EXPECT_EQ(std::count(requests.begin(), requests.end(), "Create-Job"), 3);
  EXPECT_LE(requests.size(), 2 * 3 + 2U);
}

TEST_F(ABatch, IsCancelledWhileTheServerStandsStill) {
  folder_.write("bea.txt", "Bea\n");
  server_.suspend();
  batch_.start(false, std::nullopt);
  EXPECT_TRUE(loop_.runUntil([this] { return batch_.count(State::sending) == 1; }));
  batch_.cancel();
  EXPECT_TRUE(batch_.isSending());
  EXPECT_TRUE(loop_.runUntil([this] { return !batch_.isSending(); }, std::chrono::seconds(3)));
  EXPECT_THAT(states(), ElementsAre(State::waiting, State::waiting, State::waiting));
  server_.resume();
  send();
  EXPECT_THAT(states(), ElementsAre(State::sent, State::sent, State::sent));
}

TEST_F(ABatch, OnAnotherPPDIsNotSent) {
  server_.addQueue("card", test::testPPD({test::testOption("frontUV", "UV", 2)}));
  send();
  EXPECT_TRUE(batch_.ppdChanged());
  EXPECT_THAT(states(), ElementsAre(State::waiting, State::waiting, State::waiting));
  EXPECT_EQ(server_.jobCount(), 0);
}

TEST_F(AtAServer, AJobThatWasLeftCountsAsSentWhenTheServerHasAllOfIt) {
  const host::Submission job = submission(ada_);
  const int id = host::submitJob(job);
  EXPECT_TRUE(host::isWholeElseCancelled(job, id));
  EXPECT_EQ(server_.job(id)["job-state"], "pending");
}

TEST_F(AtAServer, AJobThatWasLeftWithoutItsDocumentIsCancelled) {
  const int id = cupsCreateJob(CUPS_HTTP_DEFAULT, "card", "left", 0, nullptr);
  ASSERT_GT(id, 0);
  EXPECT_FALSE(host::isWholeElseCancelled(submission(ada_), id));
  EXPECT_EQ(server_.job(id)["job-state"], "canceled");
  EXPECT_FALSE(host::isWholeElseCancelled(submission(ada_), id));
  EXPECT_FALSE(host::isWholeElseCancelled(submission(ada_), 999));
}

TEST_F(AtAServer, JobsAreFollowedUntilTheyHaveEnded) {
  server_.stop("card", "Cleaning");
  const int ada = host::submitJob(submission(ada_));
  const int cora = host::submitJob(submission(cora_));
  JobsRead last;
  const JobWatch watch(
      "card", {ada, cora, 999}, loop_.post(), [&last](const JobsRead& read) { last = read; },
      std::chrono::milliseconds(50));
  EXPECT_TRUE(loop_.runUntil([&] { return last.printer.isStopped; }));
  EXPECT_EQ(last.jobs.at(ada)->state, IPP_JSTATE_PENDING);
  EXPECT_EQ(last.jobs.at(999), std::nullopt);
  EXPECT_FALSE(last.haveAllEnded());
  cupsCancelJob("card", cora);
  server_.enable("card");
  EXPECT_TRUE(loop_.runUntil([&] { return last.haveAllEnded(); }));
  EXPECT_EQ(last.jobs.at(ada)->state, IPP_JSTATE_COMPLETED);
  EXPECT_EQ(last.jobs.at(cora)->state, IPP_JSTATE_CANCELED);
}

TEST_F(AtAServer, ItsQueuesTellWhichAreForCards) {
  server_.addQueue("office", "");
  server_.addQueue("paper", test::testPPD({test::testOption("frontUVs", "UVs", 2)}));
  server_.setDefault("office");
  server_.stop("card", "Cleaning");
  const auto queues = readPrinters({});
  ASSERT_EQ(queues.size(), 3U);
  EXPECT_EQ(queues[0].name, "card");
  EXPECT_TRUE(queues[0].hasOptions);
  EXPECT_TRUE(queues[0].state.isStopped);
  EXPECT_THAT(queues[0].formats, testing::Contains("text/plain"));
  EXPECT_FALSE(queues[0].isDefault);
  EXPECT_TRUE(queues[1].isDefault);
  EXPECT_FALSE(queues[1].hasOptions);
  EXPECT_FALSE(queues[2].hasOptions);
}

}  // namespace
}  // namespace cardpanels::dialog
