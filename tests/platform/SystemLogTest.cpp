// What the system log is handed. A program of its own: it stands in for both ways there.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/uio.h>
#include <syslog.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Log.h"

namespace {

/// What the last line came with: the journal's fields, or syslog's priority and text as such.
std::vector<std::string> fields;
bool isJournal = false;  // where it came

/// Whether the machine is to have a journal.
bool hasJournal = false;

}  // namespace

// Seen by the platform library, in place of those of the system.
#pragma GCC visibility push(default)

extern "C" int sd_journal_sendv_with_location(const char* /*file*/, const char* /*line*/,
                                              const char* /*func*/, const iovec* iov, int n) {
  isJournal = true;
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
  isJournal = false;
  fields = {std::string("MESSAGE=") + text.data(), "PRIORITY=" + std::to_string(LOG_PRI(pri)),
            std::string("SYSLOG_IDENTIFIER=") + program_invocation_short_name};
}

extern "C" int access(const char* name, int type) noexcept {
  if (std::string_view(name) != "/run/systemd/journal/socket") {
    return faccessat(AT_FDCWD, name, type, 0);
  }
  return hasJournal ? 0 : -1;
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

TEST(SystemLog, IsTheJournalWhereThereIsOne) {
  for (const bool has : {false, true}) {
    hasJournal = has;
    systemLogSink()->writeLine(has ? "in the journal" : "in the log");
    EXPECT_EQ(fields,
              (std::vector<std::string>{has ? "MESSAGE=in the journal" : "MESSAGE=in the log",
                                        "PRIORITY=7", "SYSLOG_IDENTIFIER=system-log-test"}));
    EXPECT_EQ(isJournal, has);
  }
}

}  // namespace
}  // namespace cardpanels::platform
