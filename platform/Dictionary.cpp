#include "platform/Dictionary.h"

#include <algorithm>

namespace cardpanels::platform {

Dictionary::Dictionary(std::size_t capacity) { entries_.reserve(capacity); }

void Dictionary::setValueForKey(const std::string& value, const std::string& key) {
  const auto entry = std::find_if(entries_.begin(), entries_.end(),
                                  [&](const Entry& each) { return each.first == key; });
  if (entry == entries_.end()) {
    entries_.emplace_back(key, value);
  } else {
    entry->second = value;
  }
}

Text Dictionary::valueForKey(const std::string& key) const {
  for (const auto& [each, value] : entries_) {
    if (each == key) return value;
  }
  return std::nullopt;
}

void Dictionary::appendDescription(std::string& out) const {
  out += '{';
  for (const auto& [key, value] : entries_) {
    appendQuotedUnlessPlain(out, key);
    out += " = ";
    appendQuotedUnlessPlain(out, value);
    out += "; ";
  }
  out += '}';
}

}  // namespace cardpanels::platform
