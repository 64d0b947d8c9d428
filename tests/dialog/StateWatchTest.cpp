#include <cups/cups.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>

#include "dialog/PrinterStateText.h"
#include "dialog/StateWatch.h"
#include "host/Submission.h"
#include "tests/support/MainLoop.h"
#include "tests/support/PrivatePrintServer.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::dialog {
namespace {

using testing::HasSubstr;

using test::MainLoop;

/// Watches the queue `card` and keeps the line last told.
class Watching {
 public:
  explicit Watching(MainLoop& loop)
      : loop_(loop),
        watch_(
            "card", loop.post(),
            [this](const StateRead& read) {
              line = stateLine(read, nullptr);
              ++count;
            },
            std::chrono::milliseconds(50)) {}

  bool tells(const std::string& text) {
    return loop_.runUntil([&] { return count > 0 && line == text; });
  }

  std::string line;
  int count = 0;

 private:
  MainLoop& loop_;
  StateWatch watch_;
};

TEST(StateWatch, TellsWhatBecomesOfTheQueue) {
  test::PrivatePrintServer server;
  server.addQueue("card", test::testPPD({test::laminateOption()}));
  server.enable("card");
  MainLoop loop;
  Watching watching(loop);
  EXPECT_TRUE(watching.tells("")) << watching.line;
  server.reject("card");
  EXPECT_TRUE(watching.tells("Printer takes no jobs")) << watching.line;
  server.stop("card", "Being cleaned");
  EXPECT_TRUE(watching.tells("Printer stopped: Being cleaned · Printer takes no jobs"))
      << watching.line;
  server.enable("card");
  EXPECT_TRUE(watching.tells("Printer takes no jobs")) << watching.line;
}

TEST(StateWatch, TellsNothingTwice) {
  const test::PrivatePrintServer server;
  MainLoop loop;
  Watching watching(loop);
  ASSERT_TRUE(loop.runUntil([&] { return watching.count == 1; }));
  EXPECT_FALSE(loop.runUntil([&] { return watching.count > 1; }, std::chrono::milliseconds(500)));
}

TEST(StateWatch, TellsWhatThePrinterReportsDuringAJob) {
  test::PrivatePrintServer server;
  const test::TemporaryFolder folder;
  // A printer tells its state through the programs that print, on their standard error.
  const std::string filter =
      folder.write("filter",
                   "#!/bin/sh\ncat >/dev/null\n"
                   "echo 'STATE: +media-empty-error,marker-supply-low-warning' >&2\n");
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
  std::filesystem::permissions(filter, std::filesystem::perms(0755));
  server.addQueue("card", test::testPPD({test::laminateOption()},
                                        "*cupsFilter: \"text/plain 0 " + filter + "\"\n"));
  server.enable("card");
  MainLoop loop;
  Watching watching(loop);
  EXPECT_TRUE(watching.tells("")) << watching.line;
  const std::string file = folder.write("badge.txt", "a badge\n");
  const int id = host::submitJob({{"card", ""}, "Badge", {file}, {}});
  EXPECT_EQ(server.endedJob(id), "completed");
  EXPECT_TRUE(watching.tells("No cards · Ribbon low")) << watching.line;
}

TEST(StateWatch, TellsThatAQueueIsNotThere) {
  const test::PrivatePrintServer server;
  MainLoop loop;
  Watching watching(loop);
  ASSERT_TRUE(loop.runUntil([&] { return watching.count > 0; }));
  EXPECT_THAT(watching.line, HasSubstr("has no queue card."));
}

TEST(StateWatch, CallsNobodyAfterItsEnd) {
  const test::PrivatePrintServer server;
  MainLoop loop;
  int count = 0;
  auto watch = std::make_unique<StateWatch>(
      "card", loop.post(), [&](const StateRead&) { ++count; }, std::chrono::milliseconds(10));
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  watch.reset();
  EXPECT_FALSE(loop.runUntil([&] { return count > 0; }, std::chrono::milliseconds(200)));
}

TEST(StateWatch, MayBeEndedByWhatItTells) {
  const test::PrivatePrintServer server;
  MainLoop loop;
  std::unique_ptr<StateWatch> watch;
  watch = std::make_unique<StateWatch>(
      "card", loop.post(), [&](const StateRead&) { watch.reset(); }, std::chrono::milliseconds(10));
  EXPECT_TRUE(loop.runUntil([&] { return watch == nullptr; }));
}

TEST(StateWatch, EndsWithoutWaitingForASilentServer) {
  const test::TemporaryFolder folder;
  const std::string address = (folder.path() / "cups.sock").string();
  const int silent = socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un name{};
  name.sun_family = AF_UNIX;
  std::strncpy(name.sun_path, address.c_str(), sizeof(name.sun_path) - 1);
  ASSERT_EQ(bind(silent, reinterpret_cast<const sockaddr*>(&name), sizeof(name)), 0);
  ASSERT_EQ(listen(silent, 8), 0);
  cupsSetServer(address.c_str());
  MainLoop loop;
  const auto start = std::chrono::steady_clock::now();
  {
    const StateWatch watch("card", loop.post(), [](const StateRead&) { ADD_FAILURE(); });
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
  EXPECT_FALSE(loop.runUntil([] { return false; }, std::chrono::milliseconds(500)));
  cupsSetServer(nullptr);
  close(silent);
}

}  // namespace
}  // namespace cardpanels::dialog
