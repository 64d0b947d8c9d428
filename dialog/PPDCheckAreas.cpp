#include <algorithm>
#include <array>

#include "dialog/CardAreas.h"
#include "dialog/PPDCheckRules.h"
#include "host/PPDRecords.h"
#include "platform/ASCII.h"
#include "platform/Messages.h"

namespace cardpanels::dialog {
namespace {

using platform::_;
using platform::equalIgnoringCase;
using platform::filled;

/// Four measurements of 20 characters each, and the spaces between them.
constexpr int kLongestArea = 83;

void checkArea(CheckedPPD& ppd, const std::string& key) {
  const ppd_option_t& option = *ppd.option(key);
  const auto parameters = host::parametersOf(ppd.ppd(), option);
  if (host::customChoice(option) == nullptr || parameters.size() != 1) {
    ppd.tell(ppd.lineOf(key), Gravity::error,
             filled(_("{option} takes no area: it needs “*Custom{option} True/Area: \"pop\"”, and "
                      "one parameter, “*ParamCustom{option} Area/Area: 1 string 0 {length}”."),
                    {{"option", key}, {"length", std::to_string(kLongestArea)}}));
    return;
  }
  const auto* const statement = ppd.statement("ParamCustom" + key, parameters.front()->name);
  const int line = statement != nullptr ? statement->line : ppd.lineOf(key);
  const ppd_cparam_t& parameter = *parameters.front();
  if (parameter.type != PPD_CUSTOM_STRING) {
    ppd.tell(line, Gravity::error,
             filled(_("The parameter of {option} is no string, so it takes no area."),
                    {{"option", key}}));
  } else if (parameter.maximum.custom_string < kLongestArea) {
    ppd.tell(line, Gravity::warning,
             filled(_("The parameter of {option} has room for {room} characters; an area can have "
                      "{length}."),
                    {{"option", key},
                     {"room", std::to_string(parameter.maximum.custom_string)},
                     {"length", std::to_string(kLongestArea)}}));
  }
}

/// What libcups takes for off where a constraint names no choice.
bool isOff(std::string_view choice) {
  return std::ranges::any_of(std::array{"None", "Off", "False"},
                             [&](const char* off) { return equalIgnoringCase(choice, off); });
}

/// `key` stands in the constraint without a choice.
void checkNamedAlone(CheckedPPD& ppd, int line, const std::string& key) {
  const auto* const option = ppd.option(key);
  if (option == nullptr || isOff(option->defchoice) ||
      host::listedChoice(*option, option->defchoice) == nullptr) {
    return;
  }
  const std::string choice = host::titleOf(*option, option->defchoice);
  const auto areas = allAreaKeys();
  const bool isArea = std::count(areas.begin(), areas.end(), option->keyword) > 0;
  ppd.tell(line, Gravity::warning,
           filled(isArea ? _("The constraint names {option} without a choice, so “{choice}” counts "
                             "as on, too: write “*{option} Custom”.")
                         : _("The constraint names {option} without a choice, so its default "
                             "“{choice}” counts as on, too: name the choices."),
                  {{"option", option->keyword}, {"choice", choice}}));
}

void checkConstraint(CheckedPPD& ppd, const host::PPDStatement& statement) {
  const auto all = words(withoutQuotes(statement.value));
  for (std::size_t i = 0; i < all.size(); ++i) {
    const bool isAlone = i + 1 == all.size() || all[i + 1].starts_with('*');
    if (all[i].starts_with('*') && isAlone)
      checkNamedAlone(ppd, statement.line, std::string(all[i].substr(1)));
  }
}

}  // namespace

void checkAreas(CheckedPPD& ppd) {
  for (const std::string& key : ppd.divided(allAreaKeys()).first) checkArea(ppd, key);
}

void checkConstraints(CheckedPPD& ppd) {
  for (const host::PPDStatement& each : ppd.statements()) {
    if (each.keyword == "UIConstraints" || each.keyword == "NonUIConstraints" ||
        each.keyword == "cupsUIConstraints") {
      checkConstraint(ppd, each);
    }
  }
}

}  // namespace cardpanels::dialog
