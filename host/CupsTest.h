#pragma once

#include <optional>
#include <string>
#include <vector>

namespace cardpanels::host {

/// Something that `cupstestppd` says of a PPD, in English.
struct CupsRemark {
  bool isError = false;  // else advice, which printers' files rarely follow
  std::string text;
};

/// What `cupstestppd` says of the PPD at `path`; nothing when it is not installed. Throws
/// `std::system_error` when no program can be started.
std::optional<std::vector<CupsRemark>> testedByCups(const std::string& path);

}  // namespace cardpanels::host
