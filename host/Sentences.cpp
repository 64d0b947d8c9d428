#include "host/Sentences.h"

#include <set>

#include "host/Conflicts.h"
#include "host/PPDRecords.h"
#include "platform/Messages.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::filled;

std::string markedValue(const Marks& marks, const ppd_option_t& option) {
  return marks.value(option).value_or(kNothingMarked);
}

/// The title of what is marked; all sentences are made while an `OwnNames` lives.
std::string markTitle(const Marks& marks, const ppd_option_t& option) {
  return titleOf(option, markedValue(marks, option));
}

std::string condition(const ppd_option_t& option, const std::string& choice) {
  return filled(_("“{option}” is “{choice}”"),
                {{"option", titleOf(option)}, {"choice", titleOf(option, choice)}});
}

std::string cannotBe(const ppd_option_t& option, const std::string& choice,
                     const std::string& conditions) {
  return filled(_("“{option}” cannot be “{choice}” while {conditions}."),
                {{"option", titleOf(option)},
                 {"choice", titleOf(option, choice)},
                 {"conditions", conditions}});
}

bool areSame(const ppd_option_t& a, const ppd_option_t& b) {
  return &a == &b || (isPageSize(a) && isPageSize(b));
}

}  // namespace

std::string refusal(const Marks& marks, const ppd_option_t& option,
                    const std::vector<ppd_option_t*>& partners) {
  const Marks::OwnNames names(marks);
  std::string conditions;
  for (const auto* partner : partners) {
    if (!conditions.empty()) conditions += _(" and ");
    conditions += condition(*partner, markedValue(marks, *partner));
  }
  return cannotBe(option, markedValue(marks, option), conditions);
}

std::string exclusion(const ppd_option_t& option, const Mark& mark, const ppd_option_t& other,
                      const Mark& otherMark) {
  return cannotBe(option, valueOf(mark), condition(other, valueOf(otherMark)));
}

std::string loss(const Marks& marks, const ppd_option_t& option,
                 const std::vector<MarkChange>& changes) {
  const Marks::OwnNames names(marks);
  std::string losses;
  for (const MarkChange& each : changes) {
    if (!each.losesValue || areSame(*each.option, option)) continue;
    if (!losses.empty()) losses += _(" and ");
    losses += filled(_("“{choice}” of “{option}”"), {{"choice", titleOf(*each.option, *each.from)},
                                                     {"option", titleOf(*each.option)}});
  }
  if (losses.empty()) return losses;
  return filled(
      _("“{option}” was not changed to “{choice}”, because that would remove {losses}."),
      {{"option", titleOf(option)}, {"choice", markTitle(marks, option)}, {"losses", losses}});
}

std::string explanation(const Marks& marks, const ppd_option_t& option,
                        const std::vector<MarkChange>& changes) {
  const Marks::OwnNames names(marks);
  std::string sentences;
  for (const MarkChange& each : changes) {
    if (each.option == &option || !each.from || !each.to) continue;
    if (!sentences.empty()) sentences += ' ';
    sentences +=
        filled(_("“{other}” was changed from “{old}” to “{new}”, because “{option}” is now "
                 "“{choice}”."),
               {{"other", titleOf(*each.option)},
                {"old", titleOf(*each.option, *each.from)},
                {"new", titleOf(*each.option, *each.to)},
                {"option", titleOf(option)},
                {"choice", markTitle(marks, option)}});
  }
  return sentences;
}

std::vector<std::string> allConflicts(const Marks& marks) {
  const Marks::OwnNames names(marks);
  std::vector<std::string> sentences;
  std::set<const ppd_option_t*> told;
  for (const auto* option : conflictedOptions(marks)) {
    const auto partners = conflictsWith(marks, *option);
    if (partners.empty() || told.contains(option)) continue;
    told.insert(partners.begin(), partners.end());
    sentences.push_back(refusal(marks, *option, partners));
  }
  return sentences;
}

}  // namespace cardpanels::host
