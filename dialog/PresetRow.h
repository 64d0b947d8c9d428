#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace cardpanels::dialog {

/// What the row above a page's sections shows: the presets of the queue in a pop-up, and what can
/// be done with the one that is chosen.
struct PresetRow {
  struct Entry {
    std::string title;
    bool isLocked = false;  // shown with a lock
    bool operator==(const Entry&) const = default;
  };

  std::vector<Entry> entries;  // none when there is no row
  std::size_t chosen = 0;
  std::string state = {};  // that the job differs from the chosen one; "" when it does not
  bool canSave = false;
  bool canDelete = false;
  bool operator==(const PresetRow&) const = default;
};

/// The name of the lock's icon.
inline constexpr const char* kLockIcon = "changes-prevent-symbolic";

/// What becomes of a name that the user types for a preset; nothing is told of none.
struct NameVerdict {
  bool isGood = false;
  std::string told;  // why not, or what else there is to know; "" for nothing
};

}  // namespace cardpanels::dialog
