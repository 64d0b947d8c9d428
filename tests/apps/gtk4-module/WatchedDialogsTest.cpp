#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "apps/gtk-module/WatchedDialogs.h"

namespace cardpanels::gtkmodule {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// What the program's log is told.
class LogOfTheProgram : public testing::Test {
 protected:
  LogOfTheProgram()
      : before_(g_log_set_default_handler(
            [](const char*, GLogLevelFlags, const char* message, gpointer lines) {
              static_cast<std::vector<std::string>*>(lines)->emplace_back(message);
            },
            &lines_)) {}
  ~LogOfTheProgram() override { g_log_set_default_handler(before_, nullptr); }

  std::vector<std::string> lines_;

 private:
  GLogFunc before_;
};

TEST_F(LogOfTheProgram, HasTheErrorsOfWhatThePageDoesOnALine) {
  shielded([] { throw host::Error("card.ppd:3: one\ntwo"); });
  shielded([] { throw std::runtime_error("three"); });
  shielded([] {});
  EXPECT_THAT(lines_, ElementsAre("cardpanels: card.ppd:3: one\\ntwo", "cardpanels: three"));
}

/// What becomes of an exception in a handler of the program's.
void handle(const std::exception_ptr& thrown) {
  try {
    std::rethrow_exception(thrown);
  } catch (...) {
    handlerThrew();
  }
}

TEST_F(LogOfTheProgram, HasOurErrorsOfHandlersAndLeavesTheOthersToTheProgram) {
  EXPECT_THROW(handle(std::make_exception_ptr(std::runtime_error("the program's"))),
               std::runtime_error);
  EXPECT_THAT(lines_, IsEmpty());
  handle(std::make_exception_ptr(host::Error("ours")));
  EXPECT_THAT(lines_, ElementsAre("cardpanels: ours"));
}

}  // namespace
}  // namespace cardpanels::gtkmodule
