#include "platform/Log.h"

#include <sys/uio.h>
#include <syslog.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <utility>

#include "platform/ReusedText.h"

namespace cardpanels::platform {
namespace {

/// A job writes a hundred lines and more: of use when something looks wrong.
constexpr int kPriority = LOG_DEBUG;

class SyslogSink final : public LogSink {
 public:
  void writeLine(std::string_view line) override {
    syslog(LOG_USER | kPriority, "%.*s", static_cast<int>(line.size()), line.data());
  }
};

class JournalSink final : public LogSink {
 public:
  void writeLine(std::string_view line) override {
    field_.assign("MESSAGE=").append(line);
    std::array<iovec, 3> fields{entry(field_), entry(priority_), entry(identifier_)};
    sd_journal_sendv(fields.data(), static_cast<int>(fields.size()));
  }

 private:
  static iovec entry(std::string& text) { return {text.data(), text.size()}; }

  std::string field_;
  std::string priority_ = "PRIORITY=" + std::to_string(kPriority);
  std::string identifier_ = std::string("SYSLOG_IDENTIFIER=") + program_invocation_short_name;
};

class FileDescriptorSink final : public LogSink {
  using Clock = std::chrono::system_clock;

 public:
  explicit FileDescriptorSink(int descriptor)
      : descriptor_(descriptor),
        process_(std::string(" ") + program_invocation_short_name + "[" + std::to_string(getpid()) +
                 "] ") {}

  void writeLine(std::string_view line) override {
    const auto now = std::chrono::floor<std::chrono::milliseconds>(Clock::now());
    const auto second = std::chrono::floor<std::chrono::seconds>(now);
    startLine(Clock::to_time_t(second), static_cast<int>((now - second).count()));
    line_.append(line).append(1, '\n');
    writeAll(line_);
  }

 private:
  /// Makes the line its prefix, which but for the milliseconds is worked out once a second.
  void startLine(std::time_t second, int milliseconds) {
    if (second != second_ || prefix_.empty()) {
      std::tm local{};
      localtime_r(&second, &local);
      std::array<char, sizeof "2026-11-21 05:08:21.000+margin"> text{};
      fraction_ = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S.", &local);
      prefix_.assign(text.data(), fraction_).append("000").append(process_);
      second_ = second;
    }
    line_ = prefix_;
    line_[fraction_] = static_cast<char>('0' + milliseconds / 100);
    line_[fraction_ + 1] = static_cast<char>('0' + milliseconds / 10 % 10);
    line_[fraction_ + 2] = static_cast<char>('0' + milliseconds % 10);
  }

  void writeAll(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      if (written <= 0) return;  // a log that cannot be written stops nothing
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }

  int descriptor_;
  std::string process_;
  std::time_t second_ = 0;
  std::size_t fraction_ = 0;  // where the milliseconds stand in the prefix
  std::string prefix_;
  std::string line_;
};

struct Log {
  std::shared_ptr<LogSink> installed;  // empty: the system log
  std::shared_ptr<LogSink> system;
  std::shared_ptr<LogSink> standardError;

  void writeLine(std::string_view line) {
    if (installed) {
      const auto sink = installed;  // it may replace itself
      sink->writeLine(line);
      return;
    }
    if (!system) system = systemLogSink();
    system->writeLine(line);
    if (standardError) standardError->writeLine(line);
  }
};

Log& theLog() {
  // Never destroyed: a panel that dies with the process may still log.
  static Log& log = *new Log;
  return log;
}

}  // namespace

LogSink::~LogSink() = default;

void NSLogv(std::string_view format, std::span<const Argument> arguments) {
  const ReusedText line;
  appendFormatted(*line, format, arguments);
  *line = onOneLine(std::move(*line));
  theLog().writeLine(*line);
}

std::shared_ptr<LogSink> setLogSink(std::shared_ptr<LogSink> sink) {
  return std::exchange(theLog().installed, std::move(sink));
}

void setTraceToStandardError(bool on) {
  theLog().standardError = on ? fileDescriptorSink(STDERR_FILENO) : nullptr;
}

std::shared_ptr<LogSink> fileDescriptorSink(int descriptor) {
  return std::make_shared<FileDescriptorSink>(descriptor);
}

std::shared_ptr<LogSink> systemLogSink() {
  if (access("/run/systemd/journal/socket", W_OK) == 0) return std::make_shared<JournalSink>();
  return std::make_shared<SyslogSink>();
}

}  // namespace cardpanels::platform
