#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>
#include <span>

#include "dialog/CardAreas.h"
#include "dialog/PPDCheckRules.h"
#include "host/CardKeys.h"
#include "host/PPDRecords.h"
#include "platform/ASCII.h"
#include "platform/CustomPrefix.h"
#include "platform/Messages.h"

namespace cardpanels::dialog {
namespace {

using platform::_;
using platform::filled;

/// A panel's name, and how many of `kCardKeys` are its.
struct PanelKeys {
  const char* name;
  std::size_t count;
};

/// The panels in their order, which is that of `kCardKeys`.
constexpr std::array<PanelKeys, 5> kPanels{{{"Ribbon and Resin", 4},
                                            {"Ultraviolet", 4},
                                            {"Peel-Off", 2},
                                            {"Thermal Laminate", 1},
                                            {"Card Handling", 4}}};
static_assert(std::accumulate(kPanels.begin(), kPanels.end(), std::size_t{0},
                              [](std::size_t sum, const auto& each) { return sum + each.count; }) ==
              std::size(host::kCardKeys));

/// How many letters must be typed, dropped, or replaced to make `b` of `a`, whatever the case.
std::size_t distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), 0);
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < b.size(); ++j) {
      const bool same = platform::lowered(a[i]) == platform::lowered(b[j]);
      const std::size_t replaced = diagonal + (same ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, diagonal + 1, row[j] + 1});
    }
  }
  return row[b.size()];
}

/// Areas of peel-off start with `Custom`, others do not: that is easily taken for something else.
std::string_view withoutCustom(std::string_view key) {
  constexpr std::string_view kCustom = platform::kCustomPrefix.substr(0, 6);
  return platform::startsIgnoringCase(key, kCustom) ? key.substr(kCustom.size()) : key;
}

bool isNearly(std::string_view keyword, std::string_view known) {
  const std::size_t allowed = known.size() < 9 ? 1 : 2;
  return platform::equalIgnoringCase(withoutCustom(keyword), withoutCustom(known)) ||
         distance(keyword, known) <= allowed;
}

std::string placeText(int index) { return std::to_string(index + 1); }

/// A choice by its place in the PPD.
struct Place {
  const ppd_option_t& option;
  int index;

  bool exists() const { return index < option.num_choices; }
  std::string title() const {
    return host::choicesOf(option)[static_cast<std::size_t>(index)].text;
  }
};

/// The line of a choice.
int lineOf(const CheckedPPD& ppd, const Place& place) {
  const auto& choice = host::choicesOf(place.option)[static_cast<std::size_t>(place.index)];
  const auto* const statement = ppd.statement(place.option.keyword, choice.choice);
  return statement != nullptr ? statement->line : ppd.lineOf(place.option.keyword);
}

void tellNeverShown(CheckedPPD& ppd, const std::vector<std::string>& keys, const char* needed) {
  if (keys.empty()) return;
  ppd.tell(ppd.lineOf(keys.front()), Gravity::warning,
           filled(_("No panel ever shows {options}: there is no {needed}."),
                  {{"options", listed(keys)}, {"needed", needed}}));
}

void checkResinOf(CheckedPPD& ppd, const AreaSide& side) {
  const auto* const resin = ppd.option(side.definedAreas.option);
  const auto* const ribbon = ppd.option(side.ribbon.option);
  if (resin == nullptr) return;
  if (ribbon == nullptr) return tellNeverShown(ppd, {resin->keyword}, side.ribbon.option);
  const Place place{*ribbon, side.ribbon.index};
  if (place.exists()) {
    ppd.tell(lineOf(ppd, place), Gravity::fact,
             filled(_("Choice {place} of {option} is “{choice}”: with it the panel shows {shown}."),
                    {{"place", placeText(place.index)},
                     {"option", ribbon->keyword},
                     {"choice", place.title()},
                     {"shown", resin->keyword}}));
    return;
  }
  ppd.tell(ppd.lineOf(ribbon->keyword), Gravity::warning,
           filled(_("{option} has {count} choices, and the panel shows {shown} only with choice "
                    "{place}: it never does."),
                  {{"option", ribbon->keyword},
                   {"count", std::to_string(ribbon->num_choices)},
                   {"shown", resin->keyword},
                   {"place", placeText(place.index)}}));
}

bool soundsLikeAreas(const ppd_choice_t& choice) {
  std::string name = choice.choice;
  std::transform(name.begin(), name.end(), name.begin(), platform::lowered);
  return name.find("area") != std::string::npos;
}

/// A choice that seems to be meant where another one stands.
void checkMisplaced(CheckedPPD& ppd, const Place& place) {
  const auto choices = host::choicesOf(place.option);
  const auto meant = std::find_if(choices.begin(), choices.end(), soundsLikeAreas);
  if (meant == choices.end() ||
      (place.exists() && soundsLikeAreas(choices[static_cast<std::size_t>(place.index)])))
    return;
  const Place found{place.option, static_cast<int>(meant - choices.begin())};
  ppd.tell(lineOf(ppd, found), Gravity::warning,
           filled(_("“{choice}” is choice {number} of {option}, but the panel shows the fields for "
                    "areas with choice {place}."),
                  {{"choice", found.title()},
                   {"number", placeText(found.index)},
                   {"option", place.option.keyword},
                   {"place", placeText(place.index)}}));
}

void checkFieldsOf(CheckedPPD& ppd, const AreaSide& side) {
  const auto [present, missing] = ppd.divided(areaKeys(side));
  const auto* const option = ppd.option(side.definedAreas.option);
  if (option == nullptr) return tellNeverShown(ppd, present, side.definedAreas.option);
  const Place place{*option, side.definedAreas.index};
  checkMisplaced(ppd, place);
  if (!place.exists()) {
    if (present.empty()) return;
    ppd.tell(ppd.lineOf(option->keyword), Gravity::warning,
             filled(_("{option} has {count} choices, and the panel shows the fields for areas only "
                      "with choice {place}: it never does."),
                    {{"option", option->keyword},
                     {"count", std::to_string(option->num_choices)},
                     {"place", placeText(place.index)}}));
    return;
  }
  const int line = lineOf(ppd, place);
  ppd.tell(line, Gravity::fact,
           filled(_("Choice {place} of {option} is “{choice}”: with it the panel shows the fields "
                    "for areas."),
                  {{"place", placeText(place.index)},
                   {"option", option->keyword},
                   {"choice", place.title()}}));
  if (missing.empty()) return;
  ppd.tell(line, Gravity::warning,
           filled(_("With “{choice}” the fields of all areas show, but the PPD lacks {options}: "
                    "what is typed there is refused."),
                  {{"choice", place.title()}, {"options", listed(missing)}}));
}

}  // namespace

void checkPanels(CheckedPPD& ppd) {
  std::span<const char* const> rest(host::kCardKeys);
  bool any = false;
  for (const PanelKeys& panel : kPanels) {
    const auto keys = rest.first(panel.count);
    rest = rest.subspan(panel.count);
    const auto [present, missing] = ppd.divided({keys.begin(), keys.end()});
    any = any || !present.empty();
    ppd.tell(
        0, Gravity::fact,
        filled(
            present.empty() ? _("The panel “{panel}” does not appear: there is none of {options}.")
                            : _("The panel “{panel}” appears, with {options}."),
            {{"panel", _(panel.name)}, {"options", listed(present.empty() ? missing : present)}}));
  }
  if (!any)
    ppd.tell(0, Gravity::error, _("No panel appears: no option is one that a panel shows."));
}

void checkKeywords(CheckedPPD& ppd) {
  std::vector<std::string> known = allAreaKeys();
  known.insert(known.end(), std::begin(host::kCardKeys), std::end(host::kCardKeys));
  for (const host::PPDStatement& each : ppd.statements()) {
    const std::string keyword = host::openedOption(each);
    if (keyword.empty() || std::count(known.begin(), known.end(), keyword) > 0) continue;
    // A keyword in other letters is found, but not by everything that asks for it.
    const auto meant = std::find_if(known.begin(), known.end(), [&](const std::string& key) {
      return platform::equalIgnoringCase(keyword, key) ||
             (ppd.option(key) == nullptr && isNearly(keyword, key));
    });
    if (meant == known.end()) continue;
    ppd.tell(each.line, Gravity::warning,
             filled(_("{option} is nearly {known}, but panels know only the latter, letter for "
                      "letter."),
                    {{"option", keyword}, {"known", *meant}}));
  }
}

void checkPositions(CheckedPPD& ppd) {
  for (const AreaSide& side : areaSides()) {
    if (side.ribbon.option != nullptr) checkResinOf(ppd, side);
    checkFieldsOf(ppd, side);
  }
}

}  // namespace cardpanels::dialog
