#include "dialog/OtherOptions.h"

#include <algorithm>
#include <utility>

#include "host/CustomValue.h"
#include "host/Error.h"
#include "host/PPDRecords.h"
#include "platform/ASCII.h"
#include "platform/Messages.h"

namespace cardpanels::dialog {
namespace {

using platform::_;

constexpr const char* kOwnChoice = "Custom";

/// The PPD's words for a value of one's own; libcups puts its own where that has none.
std::string ownTitle(const ppd_choice_t& choice) {
  return choice.text[0] == '\0' || std::string_view(choice.text) == kOwnChoice ? _("Custom…")
                                                                               : choice.text;
}

bool isSecret(const ppd_cparam_t& parameter) {
  return parameter.type == PPD_CUSTOM_PASSCODE || parameter.type == PPD_CUSTOM_PASSWORD;
}

std::vector<ValueField> fieldsOf(ppd_file_t* ppd, const ppd_option_t& option,
                                 const platform::Text& marked) {
  const auto parameters = host::parametersOf(ppd, option);
  const auto values = marked ? host::parameterValues(ppd, option, *marked)
                             : std::vector<std::string>(parameters.size());
  std::vector<ValueField> fields;
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    const std::string title = parameters[i]->text;
    fields.push_back({.title = title,
                      .name = std::string(host::titleOf(option)) + ": " + title,
                      .isSecret = isSecret(*parameters[i]),
                      .text = values[i]});
  }
  return fields;
}

}  // namespace

OptionRow optionRow(const host::JobOptions& job, const std::string& key) {
  const platform::Text marked = job.marked(key);
  const ppd_option_t& option = *host::findOption(job.ppd(), key);
  const bool takesOwn = host::parameterCount(job.ppd(), option) > 0;
  OptionRow row{.key = option.keyword, .title = host::titleOf(option), .items = {}, .chosen = {}};
  std::string ownItem;
  for (const ppd_choice_t& each : host::choicesOf(option)) {
    const bool isOwn =
        takesOwn && (platform::equalIgnoringCase(each.choice, kOwnChoice) ||
                     host::isCustomText(each.choice));  // the record of a value that is marked
    if (isOwn) {
      ownItem = ownTitle(each);
      continue;
    }
    if (marked == each.choice) row.chosen = row.items.size();
    row.items.push_back({each.choice, job.choiceTitle(key, each.choice)});
  }
  const bool isOwnMarked = marked && !row.chosen;
  if (takesOwn && !host::isPageSize(option)) {
    row.own = row.items.size();
    row.items.push_back({kOwnChoice, ownItem});
    row.fields = fieldsOf(job.ppd(), option, isOwnMarked ? marked : std::nullopt);
    if (isOwnMarked) row.chosen = row.own;
  } else if (isOwnMarked) {
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

OtherOption::OtherOption(const host::JobOptions& job, std::string key,
                         std::function<void(const std::string&)> change)
    : job_(job), key_(std::move(key)), change_(std::move(change)) {}

OptionRow OtherOption::row() const {
  OptionRow row = optionRow(job_, key_);
  if (!typed_) return row;
  row.chosen = row.own;
  for (std::size_t i = 0; i < row.fields.size(); ++i) {
    row.fields[i].text = typed_->texts[i];
    row.fields[i].fault = typed_->faults[i];
  }
  return row;
}

void OtherOption::choose(const std::string& choice) {
  forget();
  if (choice == kOwnChoice && optionRow(job_, key_).own) {
    typed();
  } else {
    change_(choice);
  }
}

void OtherOption::type(std::size_t field, const std::string& text) {
  typed().texts[field] = text;
  typed().faults[field].clear();
}

/// Begins with what is marked.
OtherOption::Typed& OtherOption::typed() {
  if (typed_) return *typed_;
  typed_.emplace();
  for (const ValueField& each : optionRow(job_, key_).fields) {
    typed_->texts.push_back(each.text);
    typed_->faults.emplace_back();
  }
  return *typed_;
}

std::optional<std::size_t> OtherOption::store(bool isDone) {
  if (!typed_) return std::nullopt;
  ppd_file_t* const ppd = job_.ppd();
  const ppd_option_t& option = *host::findOption(ppd, key_);
  const auto parameters = host::parametersOf(ppd, option);
  const auto& texts = typed_->texts;
  std::optional<std::size_t> wrong;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const std::string fault = host::parameterFault(ppd, option, *parameters[i], texts[i]);
    const bool isTold = isDone || !texts[i].empty();
    typed_->faults[i] = isTold ? fault : "";
    if (!fault.empty() && !wrong) wrong = i;
  }
  if (wrong) return wrong;
  const bool isEmpty =
      std::all_of(texts.begin(), texts.end(), [](const std::string& each) { return each.empty(); });
  if (isEmpty && !isDone) return std::nullopt;
  const OptionRow before = optionRow(job_, key_);
  const bool isNothing = isEmpty && before.chosen != before.own;
  const std::string value =
      isEmpty && texts.size() == 1 ? "" : host::customValueOf(ppd, option, texts);
  forget();  // also when a rule refuses it, which the user is told of
  if (!isNothing) change_(value);
  return std::nullopt;
}

}  // namespace cardpanels::dialog
