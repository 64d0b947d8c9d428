#include "host/JobOptions.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <span>
#include <utility>

#include "host/Conflicts.h"
#include "host/CustomValue.h"
#include "host/Error.h"
#include "host/PPDRecords.h"
#include "platform/ASCII.h"
#include "platform/CustomPrefix.h"
#include "platform/Messages.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::equalIgnoringCase;
using platform::filled;
using platform::kCustomPrefix;
using platform::startsIgnoringCase;

using platform::Text;

constexpr const char* kCustom = "Custom";
constexpr const char* kNothingMarked = "Default";

void rename(ppd_choice_t& record, const std::string& name) {
  if (name.size() < sizeof(record.choice)) {
    std::memcpy(record.choice, name.c_str(), name.size() + 1);
  }
}

bool isCustomRecord(const ppd_choice_t& choice) {
  return equalIgnoringCase(choice.choice, kCustom);
}

bool isCustomText(std::string_view text) {
  return startsIgnoringCase(text, kCustomPrefix) || text.substr(0, 1) == "{";
}

}  // namespace

/// Gives the records of custom choices the name `Custom` while libcups looks at them, and the
/// values back at the end, when the marks may be others.
class JobOptions::OwnNames {
 public:
  explicit OwnNames(const JobOptions& job) : job_(job) {
    for (const auto& [option, mark] : job.custom_) rename(*mark.choice, kCustom);
  }
  ~OwnNames() {
    for (const auto& [option, mark] : job_.custom_) rename(*mark.choice, mark.custom);
  }
  OwnNames(const OwnNames&) = delete;
  OwnNames& operator=(const OwnNames&) = delete;

 private:
  const JobOptions& job_;
};

struct JobOptions::Marks {
  std::vector<ppd_choice_t*> choices;
  std::vector<int> sizes;  // the page sizes' marks
  std::map<const ppd_option_t*, Mark> custom;
  std::set<const ppd_option_t*> set;
  std::map<const ppd_option_t*, Text> values;
};

JobOptions::JobOptions(PPDFile ppd) : ppd_(std::move(ppd)) {
  ppdMarkDefaults(ppd_.get());
  const OwnNames names(*this);
  for (auto* option : allOptions(ppd_.get())) {
    const Mark mark = defaultMark(*option);
    if (!mark.custom.empty()) set(*option, mark);
  }
}

ChangeResult JobOptions::request(const Text& key, const Text& choice, Losing losing) {
  const OwnNames names(*this);
  try {
    ppd_option_t& option = found(key.value_or(std::string()));
    if (!choice) {
      throw Error(filled(_("No choice was given for “{option}”."), {{"option", titleOf(option)}}));
    }
    // Panels save all areas that they have, changed or not, on many an occasion.
    if (hasValue(option, *choice)) return {.granted = true};
    const Mark wanted = markFor(option, *choice);
    ChangeResult result =
        isMarked(option, wanted) ? ChangeResult{.granted = true} : change(option, wanted, losing);
    // That includes their empty areas, which must not fill the job's list.
    if (result.granted && !isNoValue(option, *choice)) set_.insert(&option);
    return result;
  } catch (const Error& error) {
    return {.message = error.what()};
  }
}

/// Marks `wanted` and resolves what conflicts with it. When that cannot be, all stays as it was.
ChangeResult JobOptions::change(ppd_option_t& option, const Mark& wanted, Losing losing) {
  const Marks before = marks();
  set(option, wanted);
  const auto partners = conflictsWith(ppd_.get(), option);
  std::string refused = refusal(option, value(option).value_or(kNothingMarked), partners);
  if (!partners.empty() && !resolve(option, partners)) {
    restore(before);
    return {.message = std::move(refused)};
  }
  if (losing == Losing::refused) {
    std::string loss = lossSince(before, option);
    if (!loss.empty()) {
      restore(before);
      return {.message = std::move(loss), .losesValues = true};
    }
  }
  ChangeResult result{.granted = true, .changes = changesSince(before, option)};
  result.message = explanation(option, result.changes, before);
  for (const Option& each : result.changes) set_.insert(findOption(ppd_.get(), each.key));
  return result;
}

void JobOptions::mark(const std::string& key, const std::string& choice) {
  const OwnNames names(*this);
  ppd_option_t& option = found(key);
  set(option, markFor(option, choice));
  set_.insert(&option);
}

std::vector<std::string> JobOptions::markSaved(const std::vector<Option>& options) {
  std::vector<std::string> leftOut;
  for (const Option& each : options) {
    try {
      mark(each.key, each.value);
    } catch (const Error& error) {
      leftOut.push_back(filled(_("The saved option {option} was left out: {reason}"),
                               {{"option", platform::onOneLine(each.key + "=" + each.value)},
                                {"reason", error.what()}}));
    }
  }
  return leftOut;
}

void JobOptions::unmark(const std::string& key) {
  const OwnNames names(*this);
  ppd_option_t& option = found(key);
  set(option, Mark());
  set_.erase(&option);
  ppdConflicts(ppd_.get());
}

Text JobOptions::marked(const std::string& key) const {
  const OwnNames names(*this);
  return value(found(key));
}

std::vector<Option> JobOptions::longValues() const {
  std::vector<Option> values;
  for (const auto& [option, mark] : custom_) {
    if (mark.custom.size() >= sizeof(mark.choice->choice)) {
      values.push_back({option->keyword, mark.custom});
    }
  }
  return values;
}

std::vector<Option> JobOptions::options() const {
  const OwnNames names(*this);
  std::vector<Option> all;
  for (auto* option : allOptions(ppd_.get())) {
    const Text now = value(*option);
    if (!now) continue;
    const Mark standard = defaultMark(*option);
    const bool isDefault =
        standard.choice != nullptr &&
        *now == (standard.custom.empty() ? standard.choice->choice : standard.custom);
    if (!isDefault || set_.contains(option)) all.push_back({option->keyword, *now});
  }
  return all;
}

std::string JobOptions::conflicts() const {
  const OwnNames names(*this);
  std::string sentences;
  std::set<const ppd_option_t*> told;
  for (auto* option : conflictedOptions(ppd_.get())) {
    const auto partners = conflictsWith(ppd_.get(), *option);
    if (partners.empty() || told.contains(option)) continue;
    told.insert(partners.begin(), partners.end());
    if (!sentences.empty()) sentences += ' ';
    sentences += refusal(*option, value(*option).value_or(kNothingMarked), partners);
  }
  return sentences;
}

bool JobOptions::hasOption(const std::string& key) const {
  return findOption(ppd_.get(), key) != nullptr;
}

std::string JobOptions::optionTitle(const std::string& key) const {
  const ppd_option_t* const option = findOption(ppd_.get(), key);
  return option == nullptr ? key : titleOf(*option);
}

std::string JobOptions::choiceTitle(const std::string& key, const std::string& choice) const {
  const OwnNames names(*this);
  const ppd_option_t* const option = findOption(ppd_.get(), key);
  return option == nullptr ? choice : titleOf(*option, choice);
}

ppd_option_t& JobOptions::found(const std::string& key) const {
  ppd_option_t* const option = findOption(ppd_.get(), key);
  if (option != nullptr) return *option;
  throw Error(filled(_("This printer has no option {option}."),
                     {{"option", platform::quoted(platform::onOneLine(key))}}));
}

/// Whether `text` asks for no area, or no other value, of an option that takes one.
bool JobOptions::isNoValue(ppd_option_t& option, const std::string& text) const {
  const bool saysNone =
      text.empty() || equalIgnoringCase(text, "Default") || text == "0in 0in 0in 0in";
  return saysNone && parameterCount(ppd_.get(), option) == 1;
}

JobOptions::Mark JobOptions::markFor(ppd_option_t& option, const std::string& text) const {
  ppd_choice_t* const listed = listedChoice(option, text);
  ppd_choice_t* const custom = customChoice(option);
  const int parameters = custom == nullptr ? 0 : parameterCount(ppd_.get(), option);
  if (listed != nullptr && (listed != custom || parameters == 0)) return {listed, ""};
  if (isNoValue(option, text)) return defaultMark(option);
  if (listed != nullptr) {
    const auto present = custom_.find(&option);
    if (present != custom_.end()) return present->second;
    throw Error(filled(_("“{option}” needs a value: Custom. and the value."),
                       {{"option", titleOf(option)}}));
  }
  if (parameters > 0 && (parameters == 1 || isCustomText(text))) {
    return {custom, checkedCustomValue(ppd_.get(), option, text)};
  }
  throw Error(filled(
      _("“{option}” has no choice {choice}."),
      {{"option", titleOf(option)}, {"choice", platform::quoted(platform::onOneLine(text))}}));
}

/// What the PPD names as default, which may be a value or nothing that it lists.
JobOptions::Mark JobOptions::defaultMark(ppd_option_t& option) const {
  const std::string_view name = option.defchoice;
  if (!startsIgnoringCase(name, kCustomPrefix)) return {listedChoice(option, name), ""};
  ppd_choice_t* const custom = customChoice(option);
  return {custom, custom == nullptr ? "" : std::string(name)};
}

Text JobOptions::value(const ppd_option_t& option) const {
  const auto custom = custom_.find(&option);
  if (custom != custom_.end()) return custom->second.custom;
  const ppd_choice_t* const choice = ppdFindMarkedChoice(ppd_.get(), option.keyword);
  if (choice == nullptr) return std::nullopt;
  return choice->choice;
}

/// Whether `value`, bare or not, is what the option is marked with.
bool JobOptions::hasValue(const ppd_option_t& option, std::string_view value) const {
  const auto custom = custom_.find(&option);
  return custom != custom_.end() &&
         (custom->second.custom == value ||
          (startsIgnoringCase(custom->second.custom, kCustomPrefix) &&
           std::string_view(custom->second.custom).substr(kCustomPrefix.size()) == value));
}

bool JobOptions::isMarked(const ppd_option_t& option, const Mark& mark) const {
  if (mark.choice == nullptr || mark.choice->marked == 0) return false;
  const auto custom = custom_.find(&option);
  return mark.custom == (custom == custom_.end() ? std::string() : custom->second.custom);
}

void JobOptions::set(ppd_option_t& option, const Mark& mark) {
  clearMark(ppd_.get(), option);
  custom_.erase(&option);
  if (mark.choice == nullptr) return;
  const char* const text = mark.custom.empty() ? mark.choice->choice : mark.custom.c_str();
  ppdMarkOption(ppd_.get(), option.keyword, text);
  if (!mark.custom.empty()) custom_[&option] = mark;
  // Marking one option takes the mark of another away: InputSlot and ManualFeed, page size and
  // page region.
  std::erase_if(custom_, [](const auto& each) { return each.second.choice->marked == 0; });
}

JobOptions::Marks JobOptions::marks() const {
  Marks all;
  for (auto* option : allOptions(ppd_.get())) {
    for (auto& choice : choicesOf(*option)) {
      if (choice.marked != 0) all.choices.push_back(&choice);
    }
    all.values[option] = value(*option);
  }
  for (const auto& size : std::span(ppd_->sizes, static_cast<std::size_t>(ppd_->num_sizes))) {
    all.sizes.push_back(size.marked);
  }
  all.custom = custom_;
  all.set = set_;
  return all;
}

void JobOptions::restore(const Marks& marks) {
  for (const auto& [option, mark] : marks.custom) {
    ppdMarkOption(ppd_.get(), option->keyword, mark.custom.c_str());
  }
  for (auto* option : allOptions(ppd_.get())) clearMark(ppd_.get(), *option);
  for (auto* choice : marks.choices) {
    choice->marked = 1;
    cupsArrayAdd(ppd_->marked, choice);
  }
  for (std::size_t i = 0; i < marks.sizes.size(); ++i) ppd_->sizes[i].marked = marks.sizes[i];
  custom_ = marks.custom;
  set_ = marks.set;
  ppdConflicts(ppd_.get());
}

std::vector<Option> JobOptions::changesSince(const Marks& marks, const ppd_option_t& first) const {
  std::vector<Option> changes;
  for (const auto* option : allOptions(ppd_.get())) {
    const Text now = value(*option);
    if (now == marks.values.at(option)) continue;
    const auto place = option == &first ? changes.begin() : changes.end();
    changes.insert(place, {option->keyword, now.value_or(kNothingMarked)});
  }
  return changes;
}

/// Changes other options until `option` is in no conflict. Conflicts that it has no part in are
/// hidden meanwhile, so that they neither get in the way nor are "resolved" unasked.
bool JobOptions::resolve(ppd_option_t& option, const std::vector<ppd_option_t*>& partners) {
  const int others = ppdConflicts(ppd_.get()) - conflictCount(ppd_.get(), option);
  std::vector<std::pair<ppd_option_t*, Mark>> unrelated;
  for (auto* each : conflictedOptions(ppd_.get())) {
    const bool related =
        each == &option || std::find(partners.begin(), partners.end(), each) != partners.end();
    if (related || isPageSize(*each)) continue;
    ppd_choice_t* const choice = ppdFindMarkedChoice(ppd_.get(), each->keyword);
    unrelated.emplace_back(each, Mark{choice, custom_.contains(each) ? custom_[each].custom : ""});
    set(*each, Mark());
  }
  const bool applied = applyResolution(option);
  for (const auto& [each, mark] : unrelated) {
    if (ppdFindMarkedChoice(ppd_.get(), each->keyword) == nullptr) set(*each, mark);
  }
  if (!applied) return false;
  const bool atPeace = conflictCount(ppd_.get(), option) == 0 || resolveCollate(option);
  return atPeace && ppdConflicts(ppd_.get()) <= others;
}

bool JobOptions::applyResolution(ppd_option_t& option) {
  const std::string wanted = value(option).value_or("");
  // A value in braces is a custom one, which libcups sees by the prefix only.
  const std::string choice =
      wanted.substr(0, 1) == "{" ? std::string(kCustomPrefix) + wanted : wanted;
  OptionList resolved;
  if (cupsResolveConflicts(ppd_.get(), option.keyword, choice.c_str(), &resolved.count,
                           &resolved.list) == 0) {
    return false;
  }
  for (const Option& each : resolved.options()) {
    ppd_option_t* const other = findOption(ppd_.get(), each.key);
    if (other == &option) continue;
    // The card lies in the printer: its size is nothing to change unasked.
    if (other == nullptr || isPageSize(*other)) return false;
    ppd_choice_t* const listed = listedChoice(*other, each.value);
    if (listed == nullptr) return false;
    set(*other, {listed, ""});
  }
  return true;
}

/// libcups leaves Collate out of every resolution.
bool JobOptions::resolveCollate(ppd_option_t& option) {
  ppd_option_t* const collate = findOption(ppd_.get(), "Collate");
  if (collate == nullptr || collate == &option) return false;
  for (auto& choice : choicesOf(*collate)) {
    if (isCustomRecord(choice)) continue;
    set(*collate, {&choice, ""});
    if (conflictCount(ppd_.get(), option) == 0) return true;
  }
  return false;
}

std::string JobOptions::refusal(const ppd_option_t& option, const std::string& choice,
                                const std::vector<ppd_option_t*>& partners) const {
  std::string conditions;
  for (const auto* partner : partners) {
    if (!conditions.empty()) conditions += _(" and ");
    conditions += filled(_("“{option}” is “{choice}”"),
                         {{"option", titleOf(*partner)},
                          {"choice", titleOf(*partner, value(*partner).value_or(kNothingMarked))}});
  }
  return filled(_("“{option}” cannot be “{choice}” while {conditions}."),
                {{"option", titleOf(option)},
                 {"choice", titleOf(option, choice)},
                 {"conditions", conditions}});
}

/// What the user would lose by `option`'s mark of now; empty for nothing.
std::string JobOptions::lossSince(const Marks& marks, const ppd_option_t& option) const {
  std::string losses;
  for (const auto& [other, mark] : marks.custom) {
    const bool isTheSame = other == &option || (isPageSize(*other) && isPageSize(option));
    if (isTheSame || custom_.contains(other)) continue;
    if (!losses.empty()) losses += _(" and ");
    losses += filled(_("“{choice}” of “{option}”"),
                     {{"choice", titleOf(*other, mark.custom)}, {"option", titleOf(*other)}});
  }
  if (losses.empty()) return losses;
  return filled(_("“{option}” was not changed to “{choice}”, because that would remove {losses}."),
                {{"option", titleOf(option)},
                 {"choice", titleOf(option, value(option).value_or(kNothingMarked))},
                 {"losses", losses}});
}

std::string JobOptions::explanation(const ppd_option_t& option, const std::vector<Option>& changes,
                                    const Marks& before) const {
  std::string sentences;
  for (const Option& each : changes) {
    const ppd_option_t* const other = findOption(ppd_.get(), each.key);
    const Text old = before.values.at(other);
    if (other == &option || !old || !value(*other)) continue;
    if (!sentences.empty()) sentences += ' ';
    sentences +=
        filled(_("“{other}” was changed from “{old}” to “{new}”, because “{option}” is now "
                 "“{choice}”."),
               {{"other", titleOf(*other)},
                {"old", titleOf(*other, *old)},
                {"new", titleOf(*other, each.value)},
                {"option", titleOf(option)},
                {"choice", titleOf(option, value(option).value_or(kNothingMarked))}});
  }
  return sentences;
}

}  // namespace cardpanels::host
