#pragma once

#include <string>
#include <vector>

#include "host/JobOption.h"

namespace cardpanels::cardprint {

/// Reads the argument of `-o`: a `KEY=VALUE`, `KEY` for true or `noKEY` for false, or several with
/// spaces between them, as `lp` takes them. Words that begin with a number belong to the value
/// before them, so an area needs no quotes of its own; in single or double quotes or in braces a
/// value may hold anything. A backslash keeps the character behind it. Throws `host::Error` with
/// the text that is no option.
std::vector<host::Option> parseOptionArgument(const std::string& argument);

/// Reads one such option, whose value is all that stands behind the first `=`. Throws the same.
host::Option parseOption(const std::string& word);

}  // namespace cardpanels::cardprint
