#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/JobOptions.h"

namespace cardpanels::dialog {

/// An option of the PPD as a pop-up shows it.
struct OptionRow {
  struct Item {
    std::string choice;
    std::string title;
  };

  std::string key;
  std::string title;
  std::vector<Item> items;
  std::optional<std::size_t> chosen;  // nothing when no choice is marked
};

/// The row of `key`: its choices, and in place of `Custom` the value that is marked, if one is.
/// Throws `host::Error` when the PPD has no such option.
OptionRow optionRow(const host::JobOptions& job, const std::string& key);

/// The rows of what the PPD has beyond the options `claimed` and the card's size, in its order;
/// without those that leave no choice.
std::vector<OptionRow> otherOptions(const host::JobOptions& job,
                                    const std::set<std::string>& claimed);

}  // namespace cardpanels::dialog
