#include "platform/StringTable.h"

#include <fstream>
#include <string_view>

#include "platform/ASCII.h"
#include "platform/Messages.h"

namespace cardpanels::platform {

StringTable::StringTable(const std::string& bundle) {
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
  return _(entry->second.c_str());
}

}  // namespace cardpanels::platform
