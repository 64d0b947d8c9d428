#pragma once

#include <string>
#include <vector>

#include "host/Terms.h"

namespace cardpanels::host {

class Talk;

/// What the print server says about a queue at one time.
struct PrinterState {
  bool isStopped = false;
  bool isAccepting = true;                // jobs
  std::vector<std::string> reasons = {};  // IPP's keywords, such as `media-empty-error`
  std::string message = {};               // the server's or the printer's, in any language
  bool operator==(const PrinterState&) const = default;
};

/// Asks the print server for the state of `queue`, and waits for that as long as `terms` say.
/// Throws `Error`.
PrinterState printerState(const std::string& queue, const Terms& terms = {});

/// The same as a part of `talk`.
PrinterState printerState(Talk& talk, const std::string& queue);

}  // namespace cardpanels::host
