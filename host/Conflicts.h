#pragma once

#include <cups/ppd.h>

#include <vector>

namespace cardpanels::host {

/// Takes an option's marks away for its own life.
class HiddenMark {
 public:
  HiddenMark(ppd_file_t* ppd, ppd_option_t& option);
  ~HiddenMark();
  HiddenMark(const HiddenMark&) = delete;
  HiddenMark& operator=(const HiddenMark&) = delete;

 private:
  ppd_file_t* ppd_;
  std::vector<ppd_choice_t*> choices_;
  std::vector<ppd_size_t*> sizes_;
};

/// Takes an option's marks away.
void clearMark(ppd_file_t* ppd, ppd_option_t& option);

/// How many constraints that the marks violate now `option` takes part in.
int conflictCount(ppd_file_t* ppd, ppd_option_t& option);

/// The options that share a constraint with `option` which the marks violate now, in the PPD's
/// order. A conflict among other options does not count.
std::vector<ppd_option_t*> conflictsWith(ppd_file_t* ppd, ppd_option_t& option);

/// Every option that the marks bring into a conflict.
std::vector<ppd_option_t*> conflictedOptions(ppd_file_t* ppd);

}  // namespace cardpanels::host
