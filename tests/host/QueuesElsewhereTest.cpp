#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>

#include "host/FetchedQueue.h"
#include "host/JobOptions.h"
#include "host/Queue.h"
#include "host/RemoteQueue.h"
#include "host/Submission.h"
#include "tests/host/ErrorOf.h"
#include "tests/support/OddServer.h"
#include "tests/support/PrivatePrintServer.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::host {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Pair;

std::string remotePPD() {
  return test::testPPD({test::laminateOption()}, test::testAreaOption("frontResinInclude1"));
}

constexpr const char* kDriverless =
    "*cupsFilter2: \"application/vnd.cups-pdf application/pdf 10 -\"\n";

std::string paperPPD() { return test::testPPD({test::testOption("Staple", "Staple", 2)}); }

/// The print server of this machine, and another one with the queue `card`.
class QueuesElsewhere : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    port = test::PrivatePrintServer::freePort();
    there = std::make_unique<test::PrivatePrintServer>(port);
    there->addQueue("card", remotePPD());
    there->enable("card");
    there->addQueue("paper", paperPPD());
    here = std::make_unique<test::PrivatePrintServer>();
  }
  static void TearDownTestSuite() {
    here.reset();
    there.reset();
  }

  static std::string uriOf(const std::string& path) {
    return "ipp://127.0.0.1:" + std::to_string(port) + path;
  }

  /// What `lpadmin` takes for the PPD `text`.
  std::string model(const std::string& text) const { return "-P " + folder.write("own.ppd", text); }

  static int port;
  static std::unique_ptr<test::PrivatePrintServer> there;
  static std::unique_ptr<test::PrivatePrintServer> here;
  test::TemporaryFolder folder;
  std::string file = folder.write("badge.txt", "a badge\n");
};

int QueuesElsewhere::port = 0;
std::unique_ptr<test::PrivatePrintServer> QueuesElsewhere::there;
std::unique_ptr<test::PrivatePrintServer> QueuesElsewhere::here;

TEST_F(QueuesElsewhere, HaveTheOptionsOfTheirServer) {
  int number = 0;
  for (const std::string& model :
       {std::string("-m raw"), std::string("-m everywhere"), model(paperPPD() + kDriverless)}) {
    const std::string name = "client" + std::to_string(++number);
    here->addRemoteQueue(name, uriOf("/printers/card"), model);
    const Queue queue = openQueue({name, ""});
    EXPECT_NE(ppdFindOption(queue.ppd.get(), "cardLaminate"), nullptr) << model;
    EXPECT_TRUE(queue.isElsewhere) << model;
    EXPECT_TRUE(hasCardOptionsElsewhere(name, {})) << model;
    const std::vector<Option> options = {{"cardLaminate", "Both"},
                                         {"frontResinInclude1", "Custom.1in 1.25in 2in 2in"}};
    const int before = there->jobCount();
    const int id = submitJob({queue.name, "Badges", {file}, options, queue.ppdText});
    EXPECT_EQ(here->endedJob(id), "completed") << model;
    ASSERT_EQ(there->jobCount(), before + 1) << model;
    const auto job = there->job(before + 1);
    for (const Option& each : options) EXPECT_THAT(job, Contains(Pair(each.key, each.value)));
  }
}

TEST_F(QueuesElsewhere, MayBeClasses) {
  there->addClass("all", {"card"});
  here->addRemoteQueue("clientOfClass", uriOf("/classes/all"), "-m raw");
  const Queue queue = openQueue({"clientOfClass", ""});
  EXPECT_NE(ppdFindOption(queue.ppd.get(), "cardLaminate"), nullptr);
}

TEST_F(QueuesElsewhere, KeepTheirOwnPPDWhereTheServersKnowsNoCardsEither) {
  here->addRemoteQueue("sheets", uriOf("/printers/paper"),
                       model(test::testPPD({test::testOption("Punch", "Punch", 2)}) + kDriverless));
  const Queue queue = openQueue({"sheets", ""});
  EXPECT_NE(ppdFindOption(queue.ppd.get(), "Punch"), nullptr);
  EXPECT_EQ(ppdFindOption(queue.ppd.get(), "Staple"), nullptr);
  EXPECT_FALSE(queue.isElsewhere);
  EXPECT_FALSE(hasCardOptionsElsewhere("sheets", {}));
}

TEST_F(QueuesElsewhere, KeepTheirOwnPPDWhereOptionsDoNotGetThrough) {
  int number = 0;
  for (const char* filter :
       {"", "*cupsFilter: \"application/vnd.cups-raster 0 rastertolabel\"\n"}) {
    const std::string name = "driver" + std::to_string(++number);
    here->addRemoteQueue(name, uriOf("/printers/card"), model(paperPPD() + filter));
    const Queue queue = openQueue({name, ""});
    EXPECT_EQ(ppdFindOption(queue.ppd.get(), "cardLaminate"), nullptr);
    EXPECT_FALSE(queue.isElsewhere);
    EXPECT_FALSE(hasCardOptionsElsewhere(name, {}));
    const int before = there->jobCount();
    const int id = submitJob({queue.name, "Badges", {file}, {{"cardLaminate", "Both"}}});
    EXPECT_EQ(here->endedJob(id), "completed");
    ASSERT_EQ(there->jobCount(), before + 1);
    EXPECT_FALSE(there->job(before + 1).contains("cardLaminate"));
  }
}

TEST_F(QueuesElsewhere, AreAskedForWithOneRequestWhereThereIsNone) {
  here->addQueue("local", remotePPD());
  here->traffic();
  EXPECT_FALSE(hasCardOptionsElsewhere("local", {}));
  EXPECT_THAT(here->traffic().requests, testing::ElementsAre("Get-Printer-Attributes"));
  EXPECT_FALSE(hasCardOptionsElsewhere("nobody", {}));
}

TEST_F(QueuesElsewhere, ThatAreGoneThereAreTold) {
  here->addRemoteQueue("gone", uriOf("/printers/nobody"), "-m raw");
  EXPECT_EQ(errorOf([] { openQueue({"gone", ""}); }), "The queue gone has no PPD.");
}

TEST_F(QueuesElsewhere, WhoseServerDoesNotAnswerAreTold) {
  const int nobodys = test::PrivatePrintServer::freePort();
  here->addRemoteQueue("dead", "ipp://127.0.0.1:" + std::to_string(nobodys) + "/printers/card",
                       "-m raw");
  const std::string error = errorOf([] { openQueue({"dead", ""}, {.seconds = 1}); });
  EXPECT_THAT(error, HasSubstr("The PPD of the queue dead cannot be had: The print server "
                               "127.0.0.1:" +
                               std::to_string(nobodys) + " cannot be asked: "));
  EXPECT_EQ(openQueue({"client1", ""}).name.queue, "client1") << "the settings are as before";
}

TEST_F(QueuesElsewhere, WhoseServerIsSilentAreNotWaitedForInTheDialog) {
  here->addRemoteQueue("silent", uriOf("/printers/card"), "-m raw");
  there->suspend();
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(hasCardOptionsElsewhere("silent", {.seconds = 4}));
  there->resume();
  const auto taken = std::chrono::steady_clock::now() - start;
  EXPECT_GT(taken, std::chrono::milliseconds(500));
  EXPECT_LT(taken, std::chrono::seconds(5));
}

TEST_F(QueuesElsewhere, WhoseServerIsSilentAreGivenUp) {
  there->suspend();
  const auto start = std::chrono::steady_clock::now();
  EXPECT_THAT(errorOf([] {
                openQueue({"client1", ""}, {.seconds = 1});
              }),
              HasSubstr("127.0.0.1:" + std::to_string(port)));
  there->resume();
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST_F(QueuesElsewhere, AreNotPrintedWhenTheServersPPDHasChanged) {
  there->addQueue("swap", remotePPD());
  here->addRemoteQueue("clientOfSwap", uriOf("/printers/swap"), "-m raw");
  const Queue queue = openQueue({"clientOfSwap", ""});
  there->addQueue("swap", remotePPD() + "*% another one\n");
  EXPECT_THROW(submitJob({queue.name, "Badges", {file}, {}, queue.ppdText}), PPDChanged);
}

TEST_F(QueuesElsewhere, AClassHasWhatItsQueuesHaveInCommon) {
  auto other = test::laminateOption();
  other.choices.pop_back();
  here->addQueue("one", remotePPD());
  here->addQueue("two", test::testPPD({other}, test::testAreaOption("frontResinInclude1")));
  here->addClass("both", {"one", "two"});
  const Queue queue = openQueue({"both", ""});
  const ppd_option_t* const laminate = ppdFindOption(queue.ppd.get(), "cardLaminate");
  ASSERT_NE(laminate, nullptr);
  EXPECT_EQ(laminate->num_choices, 3);
  EXPECT_EQ(queue.differences,
            "Not all printers of the class both have these, which are left out: "
            "Card Laminate: Both Sides");
  EXPECT_EQ(openQueue({"one", ""}).differences, "");
}

TEST_F(QueuesElsewhere, AClassMayHaveQueuesOfAnotherServer) {
  here->addQueue("near", remotePPD());
  here->addRemoteQueue("far", uriOf("/printers/card"), "-m raw");
  here->addClass("nearAndFar", {"near", "far"});
  const Queue queue = openQueue({"nearAndFar", ""});
  EXPECT_NE(ppdFindOption(queue.ppd.get(), "cardLaminate"), nullptr);
  EXPECT_EQ(queue.differences, "");
}

TEST(DeviceURIs, OfCUPSQueuesNameServerAndPath) {
  const auto queue = remoteQueueOf("ipps://print.example:1631/printers/card?waitjob=false");
  ASSERT_TRUE(queue);
  EXPECT_EQ(queue->server.server, "print.example:1631");
  EXPECT_TRUE(queue->server.isEncrypted);
  EXPECT_EQ(queue->path, "/printers/card");
  EXPECT_EQ(remoteQueueOf("ipp://[2001:db8::1]/classes/all")->server.server, "[2001:db8::1]:631");
  EXPECT_FALSE(remoteQueueOf("ipp://[2001:db8::1]/classes/all")->server.isEncrypted);
  for (const char* each :
       {"", "usb://Cards/1", "ipp://printer/ipp/print", "ipp://printer/printers/",
        "ipp://printer/printers/card/1", "socket://printer:9100", "file:///printers/card",
        "lpd://printer/printers/card"}) {
    EXPECT_FALSE(remoteQueueOf(each)) << each;
  }
}

}  // namespace
}  // namespace cardpanels::host
