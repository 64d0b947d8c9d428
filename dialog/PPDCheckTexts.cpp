#include <cups/ppd.h>

#include "dialog/PPDCheckRules.h"
#include "host/PPDRecords.h"
#include "platform/ASCII.h"
#include "platform/CustomPrefix.h"
#include "platform/Messages.h"

namespace cardpanels::dialog {
namespace {

using platform::_;
using platform::filled;

void checkDefault(CheckedPPD& ppd, const std::string& key) {
  const auto* const statement = ppd.statement("Default" + key, "");
  if (statement == nullptr) {
    ppd.tell(ppd.lineOf(key), Gravity::warning,
             filled(_("{option} has no default: a line “*Default{option}” is missing."),
                    {{"option", key}}));
    return;
  }
  const std::string_view value = withoutQuotes(statement->value);
  if (host::listedChoice(*ppd.option(key), value) != nullptr ||
      platform::startsIgnoringCase(value, platform::kCustomPrefix)) {
    return;
  }
  ppd.tell(statement->line, Gravity::error,
           filled(_("The default of {option}, “{choice}”, is none of its choices."),
                  {{"option", key}, {"choice", value}}));
}

/// `pt_BR` is found under `pt`, too.
bool hasText(const CheckedPPD& ppd, const std::string& language, const std::string& keyword,
             const std::string& name) {
  const auto in = [&](const std::string& each) {
    const auto* const statement = ppd.statement(each + "." + keyword, name);
    return statement != nullptr && !statement->text.empty();
  };
  return in(language) || in(language.substr(0, 2));
}

void checkTextsOf(CheckedPPD& ppd, const std::string& language, const std::string& key) {
  std::vector<std::string> missing;
  const auto need = [&](const std::string& keyword, const std::string& name) {
    if (!hasText(ppd, language, keyword, name))
      missing.push_back("*" + language + "." + keyword + " " + name);
  };
  need("Translation", key);
  for (const ppd_choice_t& each : host::choicesOf(*ppd.option(key))) {
    if (&each != host::customChoice(*ppd.option(key))) need(key, each.choice);
  }
  if (missing.empty()) return;
  ppd.tell(ppd.lineOf(key), Gravity::warning,
           filled(_("Texts of {option} are missing in the language “{language}”: {lines}"),
                  {{"option", key}, {"language", language}, {"lines", listed(missing)}}));
}

}  // namespace

void checkDefaults(CheckedPPD& ppd) {
  for (const std::string& key : ppd.cardKeys()) checkDefault(ppd, key);
}

void checkTranslations(CheckedPPD& ppd) {
  const auto* const statement = ppd.statement("cupsLanguages", "");
  if (statement == nullptr) {
    ppd.tell(0, Gravity::fact, _("There is no *cupsLanguages: texts are in one language."));
    return;
  }
  for (const std::string_view language : words(withoutQuotes(statement->value))) {
    if (language.substr(0, 2) == "en") continue;  // the PPD's own
    for (const std::string& key : ppd.cardKeys()) checkTextsOf(ppd, std::string(language), key);
  }
}

}  // namespace cardpanels::dialog
