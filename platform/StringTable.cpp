#include "platform/StringTable.h"

#include <libintl.h>

#include <fstream>
#include <string_view>

#include "platform/ASCII.h"
#include "platform/Messages.h"

namespace cardpanels::platform {

StringTable::StringTable(const std::string& bundle) {
  bindtextdomain(kTextDomain, (bundle + "/resources/locale").c_str());
  bind_textdomain_codeset(kTextDomain, "UTF-8");
  std::ifstream file(bundle + "/resources/cardpanels.strings");
  for (std::string line; std::getline(file, line);) {
    const auto equals = line.find('=');
    if (line.starts_with('#') || equals == std::string::npos) continue;
    const std::string_view entry = line;
    english_[std::string(trimmed(entry.substr(0, equals)))] = trimmed(entry.substr(equals + 1));
  }
}

Text StringTable::text(const std::string& key) const {
  const auto entry = english_.find(key);
  if (entry == english_.end()) return std::nullopt;
  return std::string(dgettext(kTextDomain, entry->second.c_str()));
}

}  // namespace cardpanels::platform
