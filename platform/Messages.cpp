#include "platform/Messages.h"

#include <libintl.h>

#include <algorithm>

namespace cardpanels::platform {

void useCatalogues(const std::string& bundle) {
  bindtextdomain(kTextDomain, (bundle + "/resources/locale").c_str());
  bind_textdomain_codeset(kTextDomain, "UTF-8");
}

const char* _(const char* text) { return dgettext(kTextDomain, text); }

std::string filled(std::string_view pattern,
                   std::initializer_list<std::pair<std::string_view, std::string_view>> values) {
  std::string text;
  while (!pattern.empty()) {
    const std::size_t open = pattern.find('{');
    text += pattern.substr(0, open);
    if (open == std::string_view::npos) break;
    const std::size_t close = pattern.find('}', open);
    const std::string_view name = pattern.substr(open + 1, close - open - 1);
    const auto* const value = std::find_if(values.begin(), values.end(),
                                           [&](const auto& each) { return each.first == name; });
    if (close == std::string_view::npos || value == values.end()) {
      text += '{';
      pattern.remove_prefix(open + 1);
    } else {
      text += value->second;
      pattern.remove_prefix(close + 1);
    }
  }
  return text;
}

}  // namespace cardpanels::platform
