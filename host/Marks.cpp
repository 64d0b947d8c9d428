#include "host/Marks.h"

#include <cstring>
#include <utility>

#include "host/CustomValue.h"
#include "host/Error.h"
#include "host/PPDRecords.h"
#include "platform/ASCII.h"
#include "platform/CustomPrefix.h"

namespace cardpanels::host {
namespace {

using platform::kCustomPrefix;
using platform::startsIgnoringCase;
using platform::Text;

bool fits(const ppd_choice_t& record, std::string_view name) {
  return name.size() < sizeof(record.choice);
}

void rename(ppd_choice_t& record, const std::string& name) {
  if (fits(record, name)) std::memcpy(record.choice, name.c_str(), name.size() + 1);
}

}  // namespace

std::string valueOf(const Mark& mark) {
  if (!mark.custom.empty()) return mark.custom;
  return mark.choice == nullptr ? kNothingMarked : mark.choice->choice;
}

Marks::OwnNames::OwnNames(const Marks& marks)
    : marks_(marks), isOutermost_(!std::exchange(marks.namesAreOwn_, true)) {
  if (!isOutermost_) return;
  for (const auto& [option, mark] : marks_.custom_) rename(*mark.choice, "Custom");
}

Marks::OwnNames::~OwnNames() {
  if (!isOutermost_) return;
  for (const auto& [option, mark] : marks_.custom_) rename(*mark.choice, mark.custom);
  marks_.namesAreOwn_ = false;
}

Marks::Marks(PPDFile ppd) : ppd_(std::move(ppd)) {
  ppdMarkDefaults(ppd_.get());
  const OwnNames names(*this);
  for (const auto* option : allOptions(ppd_.get())) {
    // libcups marks a default value of the PPD's own even where the option does not take it.
    if (startsIgnoringCase(option->defchoice, kCustomPrefix)) set(*option, defaultMark(*option));
  }
}

Text Marks::value(const ppd_option_t& option) const {
  const auto custom = custom_.find(&option);
  if (custom != custom_.end()) return custom->second.custom;
  const ppd_choice_t* const choice = ppdFindMarkedChoice(ppd_.get(), option.keyword);
  if (choice == nullptr) return std::nullopt;
  return choice->choice;
}

bool Marks::hasCustomValue(const ppd_option_t& option, std::string_view text) const {
  const auto custom = custom_.find(&option);
  if (custom == custom_.end()) return false;
  const std::string_view value = custom->second.custom;
  if (value == text) return true;
  return startsIgnoringCase(value, kCustomPrefix) && value.substr(kCustomPrefix.size()) == text &&
         listedChoice(option, text) == nullptr;
}

Mark Marks::mark(const ppd_option_t& option) const {
  const auto custom = custom_.find(&option);
  if (custom != custom_.end()) return custom->second;
  return {ppdFindMarkedChoice(ppd_.get(), option.keyword)};
}

bool Marks::isMarked(const ppd_option_t& option, const Mark& mark) const {
  if (mark.choice == nullptr || mark.choice->marked == 0) return false;
  const auto custom = custom_.find(&option);
  return custom == custom_.end() ? mark.custom.empty() : mark.custom == custom->second.custom;
}

Mark Marks::defaultMark(const ppd_option_t& option) const {
  const OwnNames names(*this);
  const std::string_view name = option.defchoice;
  if (!startsIgnoringCase(name, kCustomPrefix)) return {listedChoice(option, name)};
  ppd_choice_t* const custom = customChoice(option);
  if (custom == nullptr) return {};
  try {
    return {custom, checkedCustomValue(ppd_.get(), option, name)};
  } catch (const Error&) {
    return {};  // a value that the option does not take: it may hold anything, line ends too
  }
}

void Marks::set(const ppd_option_t& option, const Mark& mark) {
  const OwnNames names(*this);
  clearMarks(ppd_.get(), option);
  custom_.erase(&option);
  if (mark.choice == nullptr) return;
  const char* const text = mark.custom.empty() ? mark.choice->choice : mark.custom.c_str();
  ppdMarkOption(ppd_.get(), option.keyword, text);
  if (!mark.custom.empty()) custom_[&option] = mark;
  // Marking one option takes the mark of another away: InputSlot and ManualFeed, page size and
  // page region.
  std::erase_if(custom_, [](const auto& each) { return each.second.choice->marked == 0; });
}

Marks::Snapshot Marks::snapshot() const {
  Snapshot all;
  for (const auto* option : allOptions(ppd_.get())) {
    all.records_.collect(ppd_.get(), *option);
    all.values_[option] = value(*option);
  }
  all.custom_ = custom_;
  return all;
}

void Marks::restore(const Snapshot& snapshot) {
  const OwnNames names(*this);
  // libcups keeps the parameters' values beside the marks.
  for (const auto& [option, mark] : snapshot.custom_) {
    ppdMarkOption(ppd_.get(), option->keyword, mark.custom.c_str());
  }
  for (const auto* option : allOptions(ppd_.get())) clearMarks(ppd_.get(), *option);
  snapshot.records_.putBack(ppd_.get());
  custom_ = snapshot.custom_;
  ppdConflicts(ppd_.get());
}

std::vector<MarkChange> Marks::changesSince(const Snapshot& snapshot) const {
  std::vector<MarkChange> changes;
  for (const auto* option : allOptions(ppd_.get())) {
    const Text& before = snapshot.values_.at(option);
    Text now = value(*option);
    if (now == before) continue;
    const bool loses = snapshot.custom_.contains(option) && !custom_.contains(option);
    changes.push_back({option, before, std::move(now), loses});
  }
  return changes;
}

std::vector<Option> Marks::longValues() const {
  std::vector<Option> values;
  for (const auto& [option, mark] : custom_) {
    if (!fits(*mark.choice, mark.custom)) values.push_back({option->keyword, mark.custom});
  }
  return values;
}

}  // namespace cardpanels::host
