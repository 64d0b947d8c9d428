#pragma once

#include <string>
#include <vector>

namespace cardpanels::dialog {

/// One line of a summary.
struct SummaryEntry {
  std::string title = {};
  std::string value = {};
  bool differs = false;     // from the printer's default
  std::string remark = {};  // what else there is to know, such as that a rule changed it
};

/// What one panel tells of its options, or what concerns the whole job.
struct SummaryGroup {
  std::string name;
  std::vector<SummaryEntry> entries;
};

/// What is chosen, a group a panel, in the panels' order, and around them what concerns the job.
using Summary = std::vector<SummaryGroup>;

}  // namespace cardpanels::dialog
