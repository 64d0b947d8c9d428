#include "host/JobOptions.h"

#include <algorithm>
#include <utility>

#include "host/CustomValue.h"
#include "host/Error.h"
#include "host/MediaOption.h"
#include "host/PPDRecords.h"
#include "host/Sentences.h"
#include "platform/ASCII.h"
#include "platform/Messages.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::equalIgnoringCase;
using platform::filled;
using platform::Text;

/// Whether `text` asks for no area, or no other value, of an option that takes one.
bool isNoValue(ppd_file_t* ppd, const ppd_option_t& option, const std::string& text) {
  const bool saysNone =
      text.empty() || equalIgnoringCase(text, "Default") || text == "0in 0in 0in 0in";
  return saysNone && parameterCount(ppd, option) == 1;
}

/// What `text` asks to be marked. Throws `Error` when that is nothing of the option's.
Mark markFor(const Marks& marks, const ppd_option_t& option, const std::string& text) {
  ppd_choice_t* const listed = listedChoice(option, text);
  ppd_choice_t* const custom = customChoice(option);
  const int parameters = custom == nullptr ? 0 : parameterCount(marks.ppd(), option);
  if (listed != nullptr && (listed != custom || parameters == 0)) return {listed};
  if (isNoValue(marks.ppd(), option, text)) return marks.defaultMark(option);
  if (listed != nullptr) {
    Mark present = marks.mark(option);
    if (!present.custom.empty()) return present;
    throw Error(filled(_("“{option}” needs a value: Custom. and the value."),
                       {{"option", titleOf(option)}}));
  }
  if (parameters > 0 && (parameters == 1 || isCustomText(text))) {
    return {custom, checkedCustomValue(marks.ppd(), option, text)};
  }
  throw Error(filled(
      _("“{option}” has no choice {choice}."),
      {{"option", titleOf(option)}, {"choice", platform::inQuotes(platform::onOneLine(text))}}));
}

}  // namespace

JobOptions::JobOptions(PPDFile ppd) : marks_(std::move(ppd)) {}

ChangeResult JobOptions::request(const Text& key, const Text& choice, Losing losing) {
  try {
    const ppd_option_t& option = key ? found(*key) : found("");
    if (!choice) {
      throw Error(filled(_("No choice was given for “{option}”."), {{"option", titleOf(option)}}));
    }
    // Panels save all areas that they have, changed or not, on many an occasion.
    if (marks_.hasCustomValue(option, *choice)) return {.granted = true};
    const Marks::OwnNames names(marks_);
    const Mark wanted = markFor(marks_, option, *choice);
    ChangeResult result = marks_.isMarked(option, wanted) ? ChangeResult{.granted = true}
                                                          : change({{&option, wanted}}, losing);
    // That includes their empty areas, which must not fill the job's list.
    if (result.granted && !isNoValue(ppd(), option, *choice)) set_.insert(&option);
    return result;
  } catch (const Error& error) {
    return {.message = error.what()};
  }
}

ChangeResult JobOptions::requestAll(const std::vector<Option>& options) {
  try {
    const Marks::OwnNames names(marks_);
    const std::vector<Choice> wanted = choices(options);
    ChangeResult result = change(wanted, Losing::refused);
    if (!result.granted) return result;
    for (const Choice& each : wanted) set_.insert(each.option);
    return result;
  } catch (const Error& error) {
    return {.message = error.what()};
  }
}

void JobOptions::check(const Option& option) const {
  const Marks::OwnNames names(marks_);
  choices({option});
}

Choice JobOptions::choice(const Option& option) const {
  const ppd_option_t& record = found(option.key);
  return {&record, markFor(marks_, record, option.value)};
}

/// What `options` choose of each option. Throws `Error` for what is nothing of this printer's.
std::vector<Choice> JobOptions::choices(const std::vector<Option>& options) const {
  std::vector<Choice> all;
  std::vector<Choice> ofMedia;
  for (const Option& each : options) {
    if (isMedia(ppd(), each.key)) {
      ofMedia.clear();
      for (const Option& part : optionsOfMedia(ppd(), each.value)) ofMedia.push_back(choice(part));
      continue;
    }
    const Choice now = choice(each);
    std::erase_if(all, [&](const Choice& earlier) { return earlier.option == now.option; });
    all.push_back(now);
  }
  for (const Choice& each : ofMedia) {
    const auto named = std::find_if(
        all.begin(), all.end(), [&](const Choice& other) { return other.option == each.option; });
    if (named == all.end()) {
      all.push_back(each);
    } else if (valueOf(named->mark) != valueOf(each.mark)) {
      throw Error(filled(_("“{option}” cannot be both “{choice}” and “{other}”."),
                         {{"option", titleOf(*each.option)},
                          {"choice", titleOf(*each.option, valueOf(named->mark))},
                          {"other", titleOf(*each.option, valueOf(each.mark))}}));
    }
  }
  return all;
}

/// Marks `choices` and resolves what conflicts with them. When that cannot be, all stays as it was.
ChangeResult JobOptions::change(const std::vector<Choice>& choices, Losing losing) {
  const Marks::Snapshot before = marks_.snapshot();
  Causes causes;
  std::string refused = choose(marks_, choices, causes);
  if (!refused.empty()) {
    marks_.restore(before);
    return {.message = std::move(refused)};
  }
  std::map<const ppd_option_t*, std::vector<MarkChange>> effects;
  const std::vector<MarkChange> changes = marks_.changesSince(before);
  for (const MarkChange& each : changes) effects[causes[each.option]].push_back(each);
  for (const auto& [cause, ofCause] : effects) {
    std::string lost = losing == Losing::refused ? loss(marks_, *cause, ofCause) : "";
    if (lost.empty()) continue;
    marks_.restore(before);
    return {.message = std::move(lost), .losesValues = true};
  }
  ChangeResult result{.granted = true};
  for (const Choice& each : choices) {
    const std::vector<MarkChange>& own = effects[each.option];
    ruleChanges_.note(marks_, *each.option, own);
    const std::string told = explanation(marks_, *each.option, own);
    result.message += (result.message.empty() || told.empty() ? "" : " ") + told;
  }
  for (const MarkChange& each : changes) {
    set_.insert(each.option);
    const bool isChosen = std::any_of(choices.begin(), choices.end(), [&](const Choice& choice) {
      return choice.option == each.option;
    });
    result.changes.insert(isChosen ? result.changes.begin() : result.changes.end(),
                          {each.option->keyword, each.to.value_or(kNothingMarked)});
  }
  return result;
}

void JobOptions::mark(const std::string& key, const std::string& choice) {
  const ppd_option_t& option = found(key);
  const Marks::OwnNames names(marks_);
  marks_.set(option, markFor(marks_, option, choice));
  set_.insert(&option);
}

std::vector<std::string> JobOptions::markSaved(const std::vector<Option>& options) {
  return markEach(options, _("The saved option {option} was left out: {reason}"));
}

std::vector<std::string> JobOptions::markChosen(const std::vector<Option>& options) {
  return markEach(options, _("The chosen option {option} was left out: {reason}"));
}

/// Marks what can be, and answers `leftOut` of all else.
std::vector<std::string> JobOptions::markEach(const std::vector<Option>& options,
                                              const char* leftOut) {
  std::vector<std::string> sentences;
  for (const Option& each : options) {
    try {
      markOne(each, options);
    } catch (const Error& error) {
      const auto* const option = findOption(ppd(), isMedia(ppd(), each.key) ? kPageSize : each.key);
      if (option != nullptr) set_.insert(option);
      sentences.push_back(
          filled(leftOut, {{"option", platform::onOneLine(each.key + "=" + each.value)},
                           {"reason", error.what()}}));
    }
  }
  return sentences;
}

void JobOptions::markOne(const Option& option, const std::vector<Option>& all) {
  if (!isMedia(ppd(), option.key)) return mark(option.key, option.value);
  const OptionList named(all);
  for (const Option& each : optionsOfMedia(ppd(), option.value)) {
    if (!named.value(each.key)) mark(each.key, each.value);
  }
}

void JobOptions::unmark(const std::string& key) {
  const ppd_option_t& option = found(key);
  const Marks::OwnNames names(marks_);
  marks_.set(option, Mark());
  set_.erase(&option);
  ppdConflicts(ppd());
}

Text JobOptions::marked(const std::string& key) const { return marks_.value(found(key)); }

std::vector<Option> JobOptions::options() const {
  const Marks::OwnNames names(marks_);
  std::vector<Option> all;
  for (const auto* option : allOptions(ppd())) {
    const Text now = marks_.value(*option);
    if (now && (!isDefault(*option) || set_.contains(option))) {
      all.push_back({option->keyword, *now});
    }
  }
  return all;
}

bool JobOptions::isDefault(const ppd_option_t& option) const {
  const Mark standard = marks_.defaultMark(option);
  return standard.choice != nullptr &&
         marks_.value(option) ==
             (standard.custom.empty() ? standard.choice->choice : standard.custom);
}

std::vector<std::string> JobOptions::differingKeys() const {
  const Marks::OwnNames names(marks_);
  std::vector<std::string> keys;
  for (const auto* option : allOptions(ppd())) {
    if (marks_.value(*option) && !isDefault(*option)) keys.emplace_back(option->keyword);
  }
  return keys;
}

std::vector<Option> JobOptions::reset(const std::set<std::string>& keys) {
  const Marks::OwnNames names(marks_);
  const Marks::Snapshot before = marks_.snapshot();
  for (const std::string& key : keys) {
    const ppd_option_t& option = found(key);
    ruleChanges_.close(option.keyword);
    if (isDefault(option)) continue;
    marks_.set(option, marks_.defaultMark(option));
    set_.insert(&option);
  }
  ppdConflicts(ppd());
  return changesSince(before);
}

JobOptions::Replaced JobOptions::replace(const std::set<std::string>& keys,
                                         const std::vector<Option>& options) {
  const Marks::OwnNames names(marks_);
  const Marks::Snapshot before = marks_.snapshot();
  reset(keys);
  Replaced replaced{.leftOut = markSaved(options)};
  for (const Option& each : options) ruleChanges_.close(each.key);
  ppdConflicts(ppd());
  replaced.changes = changesSince(before);
  return replaced;
}

std::vector<Option> JobOptions::changesSince(const Marks::Snapshot& before) const {
  std::vector<Option> changes;
  for (const MarkChange& each : marks_.changesSince(before)) {
    changes.push_back({each.option->keyword, each.to.value_or(kNothingMarked)});
  }
  return changes;
}

void JobOptions::restore(const State& state) {
  marks_.restore(state.marks);
  set_ = state.set;
  ruleChanges_ = state.ruleChanges;
}

std::vector<std::string> JobOptions::conflicts() const { return allConflicts(marks_); }

bool JobOptions::hasOption(const std::string& key) const {
  return findOption(ppd(), key) != nullptr;
}

std::string JobOptions::optionTitle(const std::string& key) const {
  const ppd_option_t* const option = findOption(ppd(), key);
  return option == nullptr ? key : titleOf(*option);
}

std::string JobOptions::choiceTitle(const std::string& key, const std::string& choice) const {
  const Marks::OwnNames names(marks_);
  const ppd_option_t* const option = findOption(ppd(), key);
  return option == nullptr ? choice : titleOf(*option, choice);
}

ppd_option_t& JobOptions::found(const std::string& key) const {
  ppd_option_t* const option = findOption(ppd(), key);
  if (option != nullptr) return *option;
  throw Error(filled(_("This printer has no option {option}."),
                     {{"option", platform::inQuotes(platform::onOneLine(key))}}));
}

}  // namespace cardpanels::host
