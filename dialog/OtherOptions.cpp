#include "dialog/OtherOptions.h"

#include "host/Error.h"
#include "host/PPDRecords.h"

namespace cardpanels::dialog {

OptionRow optionRow(const host::JobOptions& job, const std::string& key) {
  const platform::Text marked = job.marked(key);
  const ppd_option_t& option = *host::findOption(job.ppd(), key);
  const ppd_choice_t* const custom =
      host::parameterCount(job.ppd(), option) > 0 ? host::customChoice(option) : nullptr;
  OptionRow row{.key = option.keyword, .title = host::titleOf(option), .items = {}, .chosen = {}};
  for (const ppd_choice_t& each : host::choicesOf(option)) {
    if (&each == custom) continue;
    if (marked == each.choice) row.chosen = row.items.size();
    row.items.push_back({each.choice, job.choiceTitle(key, each.choice)});
  }
  if (marked && !row.chosen) {
    row.chosen = row.items.size();
    row.items.push_back({*marked, job.choiceTitle(key, *marked)});
  }
  return row;
}

std::vector<OptionRow> otherOptions(const host::JobOptions& job,
                                    const std::set<std::string>& claimed) {
  std::vector<OptionRow> rows;
  for (const ppd_option_t* option : host::allOptions(job.ppd())) {
    if (claimed.contains(option->keyword) || host::isPageSize(*option)) continue;
    OptionRow row = optionRow(job, option->keyword);
    if (row.items.size() > 1) rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace cardpanels::dialog
