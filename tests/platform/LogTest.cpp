#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <iomanip>
#include <regex>
#include <sstream>
#include <thread>

#include "platform/Log.h"
#include "tests/support/RecordedLog.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels::platform {
namespace {

TEST(Log, WritesOneLineACall) {
  test::RecordedLog log;
  const std::array<Argument, 1> arguments{"two\nlines"};
  NSLogv("said %s", arguments);
  EXPECT_EQ(log.lines(), std::vector<std::string>{"said two\\nlines"});
}

TEST(Log, GoesToTheLastSinkOnly) {
  test::RecordedLog outer;
  {
    test::RecordedLog inner;
    NSLogv("inside", {});
    EXPECT_EQ(inner.lines().size(), 1U);
  }
  NSLogv("outside", {});
  EXPECT_EQ(outer.lines(), std::vector<std::string>{"outside"});
}

/// What a sink writes into a file.
std::string written(const std::vector<std::string>& lines) {
  const test::TemporaryFolder folder;
  const std::string path = folder.write("log", "");
  FILE* file = std::fopen(path.c_str(), "w");
  const auto sink = fileDescriptorSink(fileno(file));
  for (const auto& line : lines) sink->writeLine(line);
  std::fclose(file);
  return test::fileContent(path);
}

TEST(Log, AFileDescriptorGetsTimeProgramAndProcessBeforeTheLine) {
  const std::regex shape("\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3} platform-test\\[" +
                         std::to_string(getpid()) + "\\] BEGIN something\n");
  EXPECT_TRUE(std::regex_match(written({"BEGIN something"}), shape));
}

TEST(Log, AFileDescriptorGetsTheLocalTimeOfEachLine) {
  using std::chrono::floor;
  using std::chrono::milliseconds;
  using Clock = std::chrono::system_clock;
  const test::TemporaryFolder folder;
  const std::string path = folder.write("log", "");
  FILE* file = std::fopen(path.c_str(), "w");
  const auto sink = fileDescriptorSink(fileno(file));
  std::vector<Clock::time_point> bounds{floor<milliseconds>(Clock::now())};
  for (int i = 0; i < 3; ++i) {
    sink->writeLine("line");
    bounds.emplace_back(floor<milliseconds>(Clock::now()));
    std::this_thread::sleep_for(milliseconds(37));
  }
  std::fclose(file);
  std::istringstream lines(test::fileContent(path));
  std::string line;
  for (std::size_t i = 0; i < 3; ++i) {
    ASSERT_TRUE(std::getline(lines, line));
    std::tm local{};
    std::istringstream(line) >> std::get_time(&local, "%Y-%m-%d %H:%M:%S");
    local.tm_isdst = -1;
    const auto time =
        Clock::from_time_t(std::mktime(&local)) + milliseconds(std::stoi(line.substr(20, 3)));
    EXPECT_LE(bounds[i], time) << line;
    EXPECT_LE(time, bounds[i + 1]) << line;
  }
}

TEST(Log, AFileDescriptorGetsEveryLine) {
  const std::string text = written({"first", "second"});
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2);
}

TEST(Log, ALogThatCannotBeWrittenStopsNothing) {
  FILE* const full = std::fopen("/dev/full", "w");
  ASSERT_NE(full, nullptr);
  const auto before = setLogSink(fileDescriptorSink(fileno(full)));
  NSLogv("lost", {});
  {
    test::RecordedLog log;
    NSLogv("kept", {});
    EXPECT_EQ(log.lines(), std::vector<std::string>{"kept"});
  }
  NSLogv("lost", {});
  setLogSink(before);
  std::fclose(full);
}

TEST(Log, GoesToStandardErrorOnRequest) {
  testing::internal::CaptureStderr();
  setTraceToStandardError(true);
  NSLogv("seen", {});
  setTraceToStandardError(false);
  NSLogv("unseen", {});
  const std::string text = testing::internal::GetCapturedStderr();
  EXPECT_NE(text.find("] seen\n"), std::string::npos) << text;
  EXPECT_EQ(text.find("unseen"), std::string::npos) << text;
}

TEST(Log, AnInstalledSinkKeepsLinesFromStandardError) {
  testing::internal::CaptureStderr();
  setTraceToStandardError(true);
  {
    const test::RecordedLog log;
    NSLogv("kept", {});
  }
  setTraceToStandardError(false);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace cardpanels::platform
