#pragma once

namespace cardpanels::bench {

/// A file without a name for the trace, in the folder for temporary files: TMPDIR chooses the disk,
/// or memory.
class LogFile {
 public:
  LogFile();
  ~LogFile();
  LogFile(const LogFile&) = delete;
  LogFile& operator=(const LogFile&) = delete;

  int descriptor() const { return descriptor_; }

  /// Makes it empty again, so that it does not grow large.
  void startOver() const;

 private:
  int descriptor_;
};

}  // namespace cardpanels::bench
