#pragma once

#include <string>
#include <vector>

namespace cardpanels::host {

/// A PPD text with its name for people.
struct NamedPPD {
  std::string name;
  std::string text;
};

/// What several printers have in common.
struct CommonPPD {
  std::string text;                  // a PPD
  std::vector<std::string> leftOut;  // titles of the options, and of the choices, that some lack
};

/// The options that all of `ppds`, of which there is one at least, have: with the choices that all
/// have, custom values where all take the same, and the constraints of each. What else a PPD says
/// is the first one's. Throws `Error` with the name and line of a text that is no PPD.
CommonPPD commonPPD(const std::vector<NamedPPD>& ppds);

}  // namespace cardpanels::host
