#pragma once

#include <cups/ppd.h>

#include <vector>

namespace cardpanels::host {

/// The marks that stand in a PPD's records: on choices, and on the page sizes that go with them.
/// The records stay the PPD's.
struct RecordMarks {
  std::vector<ppd_choice_t*> choices;
  std::vector<ppd_size_t*> sizes;

  /// Adds the marks of `option`.
  void collect(ppd_file_t* ppd, const ppd_option_t& option);

  /// Sets these marks, beside those that are there.
  void putBack(ppd_file_t* ppd) const;
};

/// Takes an option's marks away.
void clearMarks(ppd_file_t* ppd, const ppd_option_t& option);

}  // namespace cardpanels::host
