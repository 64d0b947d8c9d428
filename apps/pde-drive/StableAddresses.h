#pragma once

#include <map>
#include <string>
#include <string_view>

namespace cardpanels::drive {

/// Gives addresses names that are the same in every run: `0x1`, `0x2`, … in the order in which they
/// first appear.
class StableAddresses {
 public:
  /// `line` with each address in it renamed; `0x0` stays.
  std::string renamed(std::string_view line);

 private:
  std::map<std::string, std::string, std::less<>> names_;
};

}  // namespace cardpanels::drive
