#pragma once

#include <stdexcept>
#include <string>
#include <utility>

#include "platform/Text.h"

namespace cardpanels::host {

/// Something that the user must be told of: the text names the file and line, the option, or the
/// queue that it is about, and needs nothing in front but the program's name. It is one line of
/// UTF-8 whatever stood in that file: a terminal would obey control characters.
class Error : public std::runtime_error {
 public:
  explicit Error(std::string text) : runtime_error(platform::onOneLine(std::move(text))) {}

  /// What is wrong in `line`, counted from 1, of the file `name`.
  static Error inLine(const std::string& name, int line, const std::string& reason) {
    return Error(name + ":" + std::to_string(line) + ": " + reason);
  }
};

}  // namespace cardpanels::host
