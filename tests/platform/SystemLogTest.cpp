// What the system log is handed. A program of its own: it stands in for both ways there.
#include <gtest/gtest.h>
#include <sys/uio.h>
#include <syslog.h>
#include <systemd/sd-journal.h>

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <vector>

#include "platform/Log.h"

namespace {

/// What the last line came with: the journal's fields, or syslog's priority and text as such.
std::vector<std::string> fields;

}  // namespace

// Seen by the platform library, in place of those of the system.
#pragma GCC visibility push(default)

extern "C" int sd_journal_sendv_with_location(const char* /*file*/, const char* /*line*/,
                                              const char* /*func*/, const iovec* iov, int n) {
  fields.clear();
  for (int i = 0; i < n; ++i) {
    fields.emplace_back(static_cast<const char*>(iov[i].iov_base), iov[i].iov_len);
  }
  return 0;
}

extern "C" void syslog(int pri, const char* fmt, ...) {
  std::array<char, 256> text{};
  va_list arguments;
  va_start(arguments, fmt);
  std::vsnprintf(text.data(), text.size(), fmt, arguments);
  va_end(arguments);
  fields = {std::string("MESSAGE=") + text.data(), "PRIORITY=" + std::to_string(LOG_PRI(pri)),
            std::string("SYSLOG_IDENTIFIER=") + program_invocation_short_name};
}

#pragma GCC visibility pop

namespace cardpanels::platform {
namespace {

TEST(SystemLog, TakesALineForDebuggingUnderTheProgramsName) {
  const std::array<Argument, 1> arguments{"Front"};
  NSLogv("new choice is %s", arguments);
  EXPECT_EQ(fields, (std::vector<std::string>{"MESSAGE=new choice is Front", "PRIORITY=7",
                                              "SYSLOG_IDENTIFIER=system-log-test"}));
}

}  // namespace
}  // namespace cardpanels::platform
