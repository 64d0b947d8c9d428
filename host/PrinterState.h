#pragma once

#include <atomic>
#include <string>
#include <vector>

namespace cardpanels::host {

/// What the print server says about a queue at one time.
struct PrinterState {
  bool isStopped = false;
  bool isAccepting = true;                // jobs
  std::vector<std::string> reasons = {};  // IPP's keywords, such as `media-empty-error`
  std::string message = {};               // the server's or the printer's, in any language
  bool operator==(const PrinterState&) const = default;
};

/// Asks the print server for the state of `queue`. Blocks meanwhile; gives up after `seconds` of
/// waiting in all, and soon after `abandoned` has become true. Throws `Error`.
PrinterState printerState(const std::string& queue, int seconds,
                          const std::atomic<bool>& abandoned);

}  // namespace cardpanels::host
