#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>
#include <new>
#include <sstream>

#include "host/Program.h"

namespace cardpanels::host {
namespace {

using testing::EndsWith;

/// Standard error of `runProgram`, and its status.
struct Ended {
  explicit Ended(const std::function<int()>& work) {
    std::ostringstream text;
    std::streambuf* const before = std::cerr.rdbuf(text.rdbuf());
    status = runProgram(work);
    std::cerr.rdbuf(before);
    errors = text.str();
  }
  int status;
  std::string errors;
};

TEST(RunProgram, AnswersTheStatusOfTheWork) {
  for (const int status : {0, 1, 2, 3}) {
    const Ended run([&] { return status; });
    EXPECT_EQ(run.status, status);
    EXPECT_EQ(run.errors, "");
  }
}

TEST(RunProgram, TellsWhateverIsThrownOnOneLine) {
  const Ended error([]() -> int { throw Error("a\x1b[31m\nb"); });
  EXPECT_EQ(error.status, 2);
  EXPECT_THAT(error.errors, EndsWith(": a\\x1b[31m\\nb\n"));
  const Ended other([]() -> int { throw std::runtime_error("\xFF\n"); });
  EXPECT_EQ(other.status, 2);
  EXPECT_THAT(other.errors, EndsWith(": \\xff\\n\n"));
  EXPECT_EQ(Ended([]() -> int { throw std::bad_alloc(); }).status, 2);
}

TEST(RunProgram, TellsHowToGetHelpAfterAUsageError) {
  const Ended run([]() -> int { throw UsageError("no"); });
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.errors, EndsWith(": no\nTry 'host-test --help'.\n"));
}

}  // namespace
}  // namespace cardpanels::host
