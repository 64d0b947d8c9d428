#pragma once

#include <cups/cups.h>

#include <string>

#include "host/PPDFile.h"

namespace cardpanels::host {

/// The PPD of a queue as the print server has it at this moment, in a file that goes away with
/// this.
class FetchedPPD {
 public:
  /// Throws `Error` when there is none, or none can be had.
  FetchedPPD(http_t* http, const std::string& queue);
  ~FetchedPPD();
  FetchedPPD(const FetchedPPD&) = delete;
  FetchedPPD& operator=(const FetchedPPD&) = delete;

  /// Byte by byte.
  std::string text() const;

  /// Throws `Error` as `openPPD` does.
  PPDFile open() const;

 private:
  std::string queue_;
  std::string path_;
};

}  // namespace cardpanels::host
