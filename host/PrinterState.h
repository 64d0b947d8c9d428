#pragma once

#include <cups/ipp.h>

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

/// Puts what `attribute` tells of a printer's state into `state`; others leave it as it is.
void takeState(PrinterState& state, ipp_attribute_t* attribute);

/// Asks the print server for the state of `queue`, and waits for that as long as `terms` say.
/// Throws `Error`.
PrinterState printerState(const std::string& queue, const Terms& terms = {});

/// The same as a part of `talk`.
PrinterState printerState(Talk& talk, const std::string& queue);

}  // namespace cardpanels::host
