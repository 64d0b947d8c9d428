#pragma once

#include <string>

#include "host/Destination.h"
#include "host/PPDFile.h"

namespace cardpanels::host {

/// The PPD of a queue as the print server has it at this moment.
class FetchedPPD {
 public:
  /// Throws `Error` when there is none, or none can be had. A class has that of one of its queues.
  FetchedPPD(Talk& talk, const Destination& destination);

  /// Byte by byte.
  const std::string& text() const { return text_; }

  /// Throws `Error` as `openPPD` does.
  PPDFile open() const;

 private:
  std::string queue_;
  std::string text_;
};

}  // namespace cardpanels::host
