#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Text.h"

namespace cardpanels::drive {

/// A command that cannot be carried out; the text tells why.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// `line` without the blanks around it and without its comment, which a `#` at the start of a word
/// begins.
std::string withoutComment(std::string_view line);

/// The words of `text`, separated by blanks. Double quotes keep blanks in a word; inside them a
/// backslash escapes `"`, `\`, `n` (newline) and `t` (tab). Throws `CommandError` for a quote that
/// does not end and for another escape.
std::vector<platform::Text> words(std::string_view text);

}  // namespace cardpanels::drive
