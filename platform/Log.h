#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/Format.h"

namespace cardpanels::platform {

/// Writes `arguments` in the places of `format` (see `formatted`) to the log, as one line whatever
/// the texts hold. Called on the dialog's thread.
void NSLogv(std::string_view format, std::span<const Argument> arguments);

/// Where log lines go.
class LogSink {
 public:
  LogSink() = default;
  LogSink(const LogSink&) = delete;
  LogSink& operator=(const LogSink&) = delete;
  virtual ~LogSink();

  /// Takes one line, free of control characters and without a line end.
  virtual void writeLine(std::string_view line) = 0;
};

/// Sends all later lines to `sink` alone and answers the sink that it replaces. An empty one stands
/// for the system log, which is where lines go at first.
std::shared_ptr<LogSink> setLogSink(std::shared_ptr<LogSink> sink);

/// Whether lines also go to standard error while the system log is the sink. Off at first.
void setTraceToStandardError(bool on);

/// A sink that prefixes each line with the local time, the program's name and process number,
/// `2026-11-21 05:08:21.070 cardprint[8491] …`, and writes it to `descriptor` with one `write`. The
/// descriptor stays the caller's.
std::shared_ptr<LogSink> fileDescriptorSink(int descriptor);

/// The systemd journal when this machine runs one, else syslog.
std::shared_ptr<LogSink> systemLogSink();

}  // namespace cardpanels::platform
