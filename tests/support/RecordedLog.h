#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/Log.h"

namespace cardpanels::test {

/// Takes the log's lines while it lives.
class RecordedLog {
 public:
  RecordedLog() : before_(platform::setLogSink(sink_)) {}
  ~RecordedLog() { platform::setLogSink(before_); }
  RecordedLog(const RecordedLog&) = delete;
  RecordedLog& operator=(const RecordedLog&) = delete;

  /// The lines since the last call.
  std::vector<std::string> lines() { return std::exchange(sink_->lines, {}); }

 private:
  struct Sink final : platform::LogSink {
    void writeLine(std::string_view line) override { lines.emplace_back(line); }
    std::vector<std::string> lines;
  };
  std::shared_ptr<Sink> sink_ = std::make_shared<Sink>();
  std::shared_ptr<platform::LogSink> before_;
};

}  // namespace cardpanels::test
