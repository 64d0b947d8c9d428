#include "host/JobOptions.h"

#include <utility>

#include "host/Conflicts.h"
#include "host/CustomValue.h"
#include "host/Error.h"
#include "host/PPDRecords.h"
#include "host/Resolution.h"
#include "host/Sentences.h"
#include "platform/ASCII.h"
#include "platform/CustomPrefix.h"
#include "platform/Messages.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::equalIgnoringCase;
using platform::filled;
using platform::Text;

bool isCustomText(std::string_view text) {
  return platform::startsIgnoringCase(text, platform::kCustomPrefix) || text.substr(0, 1) == "{";
}

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
      {{"option", titleOf(option)}, {"choice", platform::quoted(platform::onOneLine(text))}}));
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
                                                          : change(option, wanted, losing);
    // That includes their empty areas, which must not fill the job's list.
    if (result.granted && !isNoValue(ppd(), option, *choice)) set_.insert(&option);
    return result;
  } catch (const Error& error) {
    return {.message = error.what()};
  }
}

/// Marks `wanted` and resolves what conflicts with it. When that cannot be, all stays as it was.
ChangeResult JobOptions::change(const ppd_option_t& option, const Mark& wanted, Losing losing) {
  const Marks::Snapshot before = marks_.snapshot();
  marks_.set(option, wanted);
  const auto partners = conflictsWith(marks_, option);
  if (!partners.empty()) {
    std::string refused = refusal(marks_, option, partners);
    if (!resolve(marks_, option, partners)) {
      marks_.restore(before);
      return {.message = std::move(refused)};
    }
  }
  const std::vector<MarkChange> changes = marks_.changesSince(before);
  if (losing == Losing::refused) {
    std::string lost = loss(marks_, option, changes);
    if (!lost.empty()) {
      marks_.restore(before);
      return {.message = std::move(lost), .losesValues = true};
    }
  }
  ChangeResult result{.granted = true, .message = explanation(marks_, option, changes)};
  for (const MarkChange& each : changes) {
    set_.insert(each.option);
    const auto place = each.option == &option ? result.changes.begin() : result.changes.end();
    result.changes.insert(place, {each.option->keyword, each.to.value_or(kNothingMarked)});
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
    if (!now) continue;
    const Mark standard = marks_.defaultMark(*option);
    const bool isDefault =
        standard.choice != nullptr &&
        *now == (standard.custom.empty() ? standard.choice->choice : standard.custom);
    if (!isDefault || set_.contains(option)) all.push_back({option->keyword, *now});
  }
  return all;
}

std::string JobOptions::conflicts() const { return allConflicts(marks_); }

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
                     {{"option", platform::quoted(platform::onOneLine(key))}}));
}

}  // namespace cardpanels::host
