#include "platform/StringTable.h"

#include <libintl.h>

#include <fstream>
#include <string_view>

namespace cardpanels::platform {
namespace {

std::string trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(" \t\r") - first + 1));
}

}  // namespace

StringTable::StringTable(const std::string& bundle) {
  bindtextdomain(kDomain, (bundle + "/resources/locale").c_str());
  bind_textdomain_codeset(kDomain, "UTF-8");
  std::ifstream file(bundle + "/resources/cardpanels.strings");
  for (std::string line; std::getline(file, line);) {
    const auto equals = line.find('=');
    if (line.starts_with('#') || equals == std::string::npos) continue;
    english_[trimmed(line.substr(0, equals))] = trimmed(line.substr(equals + 1));
  }
}

Text StringTable::text(const std::string& key) const {
  const auto entry = english_.find(key);
  if (entry == english_.end()) return std::nullopt;
  return std::string(dgettext(kDomain, entry->second.c_str()));
}

}  // namespace cardpanels::platform
