#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "host/Destination.h"
#include "host/Error.h"
#include "host/JobOptions.h"
#include "host/LpArguments.h"
#include "host/Question.h"
#include "host/Queue.h"
#include "host/SavedOptions.h"
#include "host/Submission.h"
#include "tests/host/ErrorOf.h"
#include "tests/support/PrivatePrintServer.h"
#include "tests/support/Process.h"
#include "tests/support/ScopedVariable.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::host {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Key;
using testing::Not;
using testing::Pair;
using Options = std::vector<Option>;

std::string cardPPD() {
  return test::testPPD({test::laminateOption()},
                       test::testAreaOption("area") +
                           "*OpenUI *Mark/Watermark: PickOne\n*DefaultMark: None\n"
                           "*Mark None/None: \"\"\n*CloseUI: *Mark\n"
                           "*CustomMark True/Other: \"pop pop\"\n"
                           "*ParamCustomMark Text/Text: 1 string 0 20\n"
                           "*ParamCustomMark Size/Size: 2 int 1 9\n");
}

/// A server with the queue `card`, shared by the tests, and a file to print.
class AtAServer : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    server = std::make_unique<test::PrivatePrintServer>();
    server->addQueue("card", cardPPD());
  }
  static void TearDownTestSuite() { server.reset(); }

  std::map<std::string, std::string> submitted(const Options& options) const {
    return server->job(submitJob({{"card", ""}, "Badges", {file}, options}));
  }

  static std::unique_ptr<test::PrivatePrintServer> server;
  test::TemporaryFolder folder;
  std::string file = folder.write("badge.txt", "a badge\n");
};

std::unique_ptr<test::PrivatePrintServer> AtAServer::server;

TEST(QueueNames, ATextIsReadAsQueueAndInstance) {
  EXPECT_EQ(QueueName::parse("card"), (QueueName{"card", ""}));
  EXPECT_EQ(QueueName::parse("card/gold"), (QueueName{"card", "gold"}));
  EXPECT_EQ(QueueName::parse("card/gold").text(), "card/gold");
  EXPECT_EQ(QueueName::parse("").text(), "");
}

TEST_F(AtAServer, AQueueGivesItsPPD) {
  const Queue queue = openQueue({"card", ""});
  EXPECT_EQ(queue.name, (QueueName{"card", ""}));
  EXPECT_NE(ppdFindOption(queue.ppd.get(), "cardLaminate"), nullptr);
  EXPECT_THAT(queue.savedOptions, IsEmpty());
}

TEST_F(AtAServer, ThePPDsTemporaryFileIsRemoved) {
  setenv("TMPDIR", folder.path().c_str(), 1);
  const Queue queue = openQueue({"card", ""});
  unsetenv("TMPDIR");
  for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
    EXPECT_EQ(entry.path(), file);
  }
}

TEST_F(AtAServer, WithoutANameTheDefaultQueueIsMeant) {
  server->setDefault("card");
  EXPECT_EQ(openQueue({}).name, (QueueName{"card", ""}));
}

TEST_F(AtAServer, TheUsersDefaultQueueWinsOverTheServers) {
  server->addQueue("other", cardPPD());
  server->setDefault("other");
  const std::string lpoptions = server->home() + "/.cups/lpoptions";
  std::filesystem::create_directories(server->home() + "/.cups");
  const std::string before =
      std::filesystem::exists(lpoptions) ? test::fileContent(lpoptions) : std::string();
  std::ofstream(lpoptions) << before + "Default card cardLaminate=Front\n";
  EXPECT_EQ(openQueue({}).name, (QueueName{"card", ""}));
  setenv("PRINTER", "other", 1);
  EXPECT_EQ(openQueue({}).name, (QueueName{"other", ""}));
  setenv("LPDEST", "card", 1);
  EXPECT_EQ(openQueue({}).name, (QueueName{"card", ""}));
  setenv("LPDEST", "cord", 1);
  EXPECT_THAT(errorOf([] { openQueue({}); }), HasSubstr("has no queue cord."));
  unsetenv("LPDEST");
  unsetenv("PRINTER");
  std::ofstream(lpoptions) << before;
}

TEST_F(AtAServer, AClassHasThePPDOfItsQueueThatHasOne) {
  server->addQueue("nothing", "");
  server->addClass("all", {"nothing", "card"});
  const Queue queue = openQueue({"all", ""});
  EXPECT_EQ(queue.name, (QueueName{"all", ""}));
  EXPECT_NE(ppdFindOption(queue.ppd.get(), "cardLaminate"), nullptr);
  EXPECT_GT(submitJob({{"all", ""}, "Badges", {file}, {}}), 0);
}

TEST_F(AtAServer, AnUnknownQueueIsTold) {
  EXPECT_EQ(errorOf([] {
              openQueue({"cord", ""});
            }),
            "The print server " + server->address() + " has no queue cord.");
}

TEST_F(AtAServer, AnUnknownInstanceIsTold) {
  EXPECT_EQ(errorOf([] {
              openQueue({"card", "silver"});
            }),
            "The queue card has no instance silver.");
}

TEST_F(AtAServer, AQueueWithoutPPDIsTold) {
  server->addQueue("raw", "");
  EXPECT_EQ(errorOf([] { openQueue({"raw", ""}); }), "The queue raw has no PPD.");
}

TEST_F(AtAServer, SavedOptionsOfTheUserComeWithTheQueue) {
  server->addQueue("saved", cardPPD());
  server->saveOptions("saved", "cardLaminate=Front copies=2 area=\"Custom.1in 1in 2in 2in\"");
  EXPECT_EQ(openQueue({"saved", ""}).savedOptions,
            (Options{{"area", "Custom.1in 1in 2in 2in"}, {"cardLaminate", "Front"}}));
}

TEST_F(AtAServer, ASavedMediaComesWithTheQueue) {
  server->addQueue("media", cardPPD());
  server->saveOptions("media", "media=CR79");
  EXPECT_EQ(openQueue({"media", ""}).savedOptions, (Options{{"media", "CR79"}}));
}

TEST_F(AtAServer, SavedOptionsOfAnInstanceAreItsOwn) {
  server->addQueue("many", cardPPD());
  saveOptions({"many", "gold"}, {{"cardLaminate", "Both"}});
  EXPECT_EQ(openQueue({"many", "gold"}).savedOptions, (Options{{"cardLaminate", "Both"}}));
  EXPECT_THAT(openQueue({"many", ""}).savedOptions, IsEmpty());
}

TEST_F(AtAServer, SavingLeavesOtherSavedOptionsAlone) {
  server->addQueue("kept", cardPPD());
  server->saveOptions("kept", "copies=3 cardLaminate=Front");
  saveOptions({"kept", "gold"}, {{"cardLaminate", "Both"}});
  saveOptions({"kept", ""}, {{"cardLaminate", "Back"}});
  EXPECT_EQ(openQueue({"kept", ""}).savedOptions, (Options{{"cardLaminate", "Back"}}));
  EXPECT_EQ(openQueue({"kept", "gold"}).savedOptions, (Options{{"cardLaminate", "Both"}}));
  EXPECT_THAT(test::runCommand("lpoptions -p kept").output, HasSubstr("copies=3"));
}

TEST_F(AtAServer, AnySavedValueComesBackExactly) {
  server->addQueue("exact", cardPPD());
  const std::string area = "Custom.1\" 2\" '3\\ $HOME #4";
  saveOptions({"exact", ""}, {{"area", area}, {"Mark", "{Text=\"a \\\"b\\\"\" Size=3}"}});
  EXPECT_EQ(openQueue({"exact", ""}).savedOptions,
            (Options{{"area", area}, {"Mark", "{Text=\"a \\\"b\\\"\" Size=3}"}}));
}

TEST_F(AtAServer, LpReadsWhatIsSaved) {
  server->addQueue("shared", cardPPD());
  saveOptions({"shared", "gold"}, {{"area", "Custom.1\" '2'\\ #3"}, {"copies", "2"}});
  const auto lp = test::runCommand("lp -d shared/gold " + file);
  ASSERT_EQ(lp.status, 0) << lp.errors;
  const auto job = server->job(std::stoi(lp.output.substr(lp.output.find('-') + 1)));
  EXPECT_THAT(job, Contains(Pair("area", "Custom.1\" '2'\\ #3")));
  EXPECT_THAT(job, Contains(Pair("copies", "2")));
}

TEST_F(AtAServer, AJobCarriesItsTitleAndOptions) {
  const auto job = submitted({{"cardLaminate", "Front"}, {"area", "Custom.1in 1in 2in 2in"}});
  EXPECT_THAT(job, Contains(Pair("job-name", "Badges")));
  EXPECT_THAT(job, Contains(Pair("cardLaminate", "Front")));
  EXPECT_THAT(job, Contains(Pair("area", "Custom.1in 1in 2in 2in")));
}

TEST_F(AtAServer, AJobCarriesHostileValuesExactly) {
  for (const std::string value :
       {"Custom.1\" 1\" 2\" 2\"", "Custom.a'b\\c, d=$(x) {y}", "Custom.größer, ¼in", "Custom."}) {
    EXPECT_THAT(submitted({{"area", value}}), Contains(Pair("area", value)));
  }
}

TEST_F(AtAServer, AJobCarriesSeveralParametersInBracesExactly) {
  const std::string value = "{Text=\"a \\\"b'\\\" \\\\c\" Size=3}";
  EXPECT_THAT(submitted({{"Mark", value}}), Contains(Pair("Mark", value)));
}

TEST_F(AtAServer, FiltersReadEveryValueBackExactly) {
  server->addQueue("filtered", cardPPD());
  server->enable("filtered");
  const Options options = {{"Mark", "{Text=\"a \\\"b'\\\" \\\\c\" Size=3}"},
                           {"area", "Custom.1\" 1\" 2\" '2'\\ $(HOME), größer"}};
  const int id = submitJob({{"filtered", ""}, "Badges", {file}, options});
  const OptionList received = OptionList::parsed(server->filterOptions(id));
  for (const Option& each : options) EXPECT_EQ(received.value(each.key), each.value);
}

TEST_F(AtAServer, ADefaultThatTheJobNamesWinsOverTheSavedOption) {
  server->addQueue("own", cardPPD());
  server->saveOptions("own", "cardLaminate=Front copies=2");
  JobOptions options(openQueue({"own", ""}).ppd);
  options.markSaved(openQueue({"own", ""}).savedOptions);
  options.request("cardLaminate", "None");
  const auto job = server->job(submitJob({{"own", ""}, "Badges", {file}, options.options()}));
  EXPECT_THAT(job, Contains(Pair("cardLaminate", "None")));
  EXPECT_THAT(job, Contains(Pair("copies", "2")));
}

/// What the server has of a job with the saved options alone.
std::map<std::string, std::string> sent(const test::PrivatePrintServer& server,
                                        const std::string& queue, const std::string& file) {
  JobOptions options(openQueue({queue, ""}).ppd);
  options.markSaved(openQueue({queue, ""}).savedOptions);
  return server.job(submitJob({{queue, ""}, "Badges", {file}, options.options()}));
}

TEST_F(AtAServer, ASavedOptionThatThePPDDoesNotKnowIsNotInTheJob) {
  server->addQueue("old", cardPPD());
  server->saveOptions("old", "cardLaminate=Gold copies=2");
  const auto job = sent(*server, "old", file);
  EXPECT_THAT(job, Contains(Pair("cardLaminate", "None")));
  EXPECT_THAT(job, Contains(Pair("copies", "2")));
}

TEST_F(AtAServer, ADefaultOfTheServerThatThePPDDoesNotKnowIsNotInTheJob) {
  server->addQueue("admin", cardPPD());
  server->setDefaults("admin", "-o cardLaminate-default=Gold");
  EXPECT_EQ(openQueue({"admin", ""}).savedOptions, (Options{{"cardLaminate", "Gold"}}));
  EXPECT_THAT(sent(*server, "admin", file), Contains(Pair("cardLaminate", "None")));
}

TEST_F(AtAServer, TheSizeOfASavedMediaGoesOutOnceAsThePageSize) {
  server->addQueue("size", cardPPD());
  server->saveOptions("size", "media=CR79");
  const auto job = sent(*server, "size", file);
  EXPECT_THAT(job, Contains(Pair("PageSize", "CR79")));
  EXPECT_THAT(job, Not(Contains(Key("media"))));
}

TEST_F(AtAServer, ASizeThatWasChosenIsNotJoinedByTheServersMedia) {
  server->addQueue("kiosk", cardPPD());
  server->setDefaults("kiosk", "-o media-default=CR79");
  JobOptions options(openQueue({"kiosk", ""}).ppd);
  options.markSaved(openQueue({"kiosk", ""}).savedOptions);
  EXPECT_EQ(options.options(), (Options{{"PageSize", "CR79"}}));
  options.request("PageSize", "CR80");
  const auto job = server->job(submitJob({{"kiosk", ""}, "Badges", {file}, options.options()}));
  EXPECT_THAT(job, Contains(Pair("PageSize", "CR80")));
  EXPECT_THAT(job, Contains(Pair("media", "CR80")));
}

TEST_F(AtAServer, AllFilesMakeOneJob) {
  const int before = server->jobCount();
  const auto second = folder.write("back.txt", "the back\n");
  const auto job = server->job(submitJob({{"card", ""}, "Badges", {file, second}, {}}));
  EXPECT_THAT(job, Contains(Pair("number-of-documents", "2")));
  EXPECT_EQ(server->jobCount(), before + 1);
}

TEST_F(AtAServer, AFileThatCannotBeReadIsToldAndNothingIsPrinted) {
  const int before = server->jobCount();
  const std::string none = (folder.path() / "none").string();
  const std::string directory = folder.path().string();
  EXPECT_EQ(errorOf([&] {
              submitJob({{"card", ""}, "Badges", {file, none}, {}});
            }),
            none + ": No such file or directory");
  EXPECT_EQ(errorOf([&] {
              submitJob({{"card", ""}, "Badges", {directory}, {}});
            }),
            directory + ": Is a directory");
  EXPECT_EQ(errorOf([&] {
              submitJob({{"card", ""}, "Badges", {}, {}});
            }),
            "There is no file to print.");
  EXPECT_EQ(server->jobCount(), before);
}

TEST_F(AtAServer, AJobChosenOnAnotherPPDThanTheQueueHasIsNotSent) {
  server->addQueue("swap", cardPPD());
  const Queue queue = openQueue({"swap", ""});
  const int before = server->jobCount();
  submitJob({queue.name, "Badges", {file}, {}, queue.ppdText});
  EXPECT_EQ(server->jobCount(), before + 1);
  server->addQueue("swap", cardPPD() + "*% another one\n");
  EXPECT_THROW(submitJob({queue.name, "Badges", {file}, {}, queue.ppdText}), PPDChanged);
  EXPECT_EQ(server->jobCount(), before + 1);
}

TEST_F(AtAServer, AJobForAnUnknownQueueIsTold) {
  EXPECT_THAT(errorOf([&] {
                submitJob({{"cord", ""}, "Badges", {file}, {}});
              }),
              HasSubstr("has no queue cord."));
}

TEST_F(AtAServer, LpArgumentsPrintTheSameOptions) {
  const Options options = {{"area", "Custom.1\" 1\" 2\" '2'\\ $HOME"}, {"cardLaminate", "Back"}};
  const auto lp = test::runCommand("lp -d card " + lpArguments(options) + " " + file);
  ASSERT_EQ(lp.status, 0) << lp.errors;
  const auto job = server->job(std::stoi(lp.output.substr(lp.output.find('-') + 1)));
  for (const Option& each : options) EXPECT_THAT(job, Contains(Pair(each.key, each.value)));
}

class WithoutAServer : public testing::Test {
 protected:
  void SetUp() override { cupsSetServer(address.c_str()); }
  void TearDown() override { cupsSetServer(nullptr); }

  test::TemporaryFolder folder;
  std::string address = (folder.path() / "cups.sock").string();
};

TEST_F(WithoutAServer, AServerThatIsNotThereIsTold) {
  EXPECT_THAT(errorOf([] {
                openQueue({"card", ""}, {.seconds = 1});
              }),
              HasSubstr("The print server " + address + " cannot be asked: "));
}

TEST_F(WithoutAServer, ThereIsNoDefaultQueueOnAServerWithoutQueues) {
  const test::PrivatePrintServer empty;
  EXPECT_EQ(errorOf([] { openQueue({}); }), "There is no default queue; name one.");
}

TEST_F(WithoutAServer, TheAdministratorsOptionsAreReadUnderTheUsersOwn) {
  const test::ScopedVariable root("CUPS_SERVERROOT", folder.path().string());
  const test::ScopedVariable home("HOME", (folder.path() / "home").string());
  folder.write("lpoptions", "Default card cardLaminate=Back copies=3\n");
  folder.write("home/.cups/lpoptions", "Dest card copies=2\n");
  EXPECT_EQ(userDefault(), (QueueName{"card", ""}));
  const auto saved = savedUnder({"card", ""});
  ASSERT_TRUE(saved);
  EXPECT_EQ(saved->value("cardLaminate"), "Back");
  EXPECT_EQ(saved->value("copies"), "2");
}

TEST_F(WithoutAServer, AValueThatTheFileCannotHoldIsNotSaved) {
  const test::ScopedVariable home("HOME", folder.path().string());
  EXPECT_THROW(saveUnder({"card", ""}, {{"job-name", "two\nlines"}}), std::system_error);
  EXPECT_EQ(savedUnder({"card", ""}), std::nullopt);
}

TEST_F(WithoutAServer, TheOptionsThatAJobStartsFromAreThoseOfLp) {
  // cupsd tells a default that one queue has of all queues from then on.
  test::PrivatePrintServer server;
  server.addQueue("same", cardPPD());
  server.setDefaults("same",
                     "-o copies-default=2 -o cardLaminate-default=Back "
                     "-o media-default=CR79 -o area-default='Custom.1in 1in 2in 2in'");
  server.saveOptions("same", "cardLaminate=Front number-up=2");
  const OptionList lps = OptionList::parsed(test::runCommand("lpoptions -p same").output);
  ASSERT_GT(lps.count, 0);
  const OptionList ours = answerOfServer<Destination>({}, [](Talk& talk) {
                            return destinationOf(talk, {"same", ""});
                          }).options;
  for (const Option& each : ours.options()) {
    EXPECT_EQ(lps.value(each.key), each.value) << each.key;
  }
  for (const Option& each : lps.options()) {
    // What else libcups keeps there tells of the printer, not of a job.
    if (each.key.substr(0, 8) == "printer-" || each.key.substr(0, 7) == "marker-" ||
        each.key == "device-uri")
      continue;
    EXPECT_EQ(ours.value(each.key), each.value) << each.key;
  }
}

TEST_F(WithoutAServer, AServerThatAcceptsAndSaysNothingIsGivenUp) {
  const int silent = socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un name{};
  name.sun_family = AF_UNIX;
  std::strncpy(name.sun_path, address.c_str(), sizeof(name.sun_path) - 1);
  ASSERT_EQ(bind(silent, reinterpret_cast<const sockaddr*>(&name), sizeof(name)), 0);
  ASSERT_EQ(listen(silent, 8), 0);
  EXPECT_THAT(errorOf([] {
                openQueue({"card", ""}, {.seconds = 1});
              }),
              HasSubstr("cannot be asked: "));
  EXPECT_THAT(errorOf([] { openQueue({}, {.seconds = 1}); }), HasSubstr("cannot be asked: "));
  constexpr int kLongerThanATest = 3600;
  const std::atomic<bool> abandoned = true;
  EXPECT_THAT(errorOf([&] {
                openQueue({"card", ""}, {.seconds = kLongerThanATest, .abandoned = &abandoned});
              }),
              HasSubstr("cannot be asked: "));
  close(silent);
}

}  // namespace
}  // namespace cardpanels::host
