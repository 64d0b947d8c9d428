#pragma once

#include <map>
#include <string>

#include "platform/Text.h"

namespace cardpanels::platform {

/// A bundle's default string table: `resources/cardpanels.strings` gives each key its English text
/// (`key = text` a line, `#` starts a comment), which the catalogues have in other languages.
class StringTable {
 public:
  /// The table of the bundle in folder `bundle`; without the file, an empty one.
  explicit StringTable(const std::string& bundle);

  /// The text of `key` in the user's language, nothing when the table lacks it.
  Text text(const std::string& key) const;

 private:
  std::map<std::string, std::string> english_;
};

}  // namespace cardpanels::platform
