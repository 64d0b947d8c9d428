#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/Dictionary.h"

namespace cardpanels::dialog {

/// What one panel tells of its options.
struct SummaryGroup {
  std::string name;
  std::shared_ptr<const platform::Dictionary> entries;  // never an empty pointer
};

/// What is chosen, a group a panel, in the panels' order.
using Summary = std::vector<SummaryGroup>;

}  // namespace cardpanels::dialog
