#pragma once

#include <string>
#include <vector>

#include "host/JobOption.h"

namespace cardpanels::cardprint {

/// The options of a job that `value` means behind the letter `-n`, `-t`, `-H`, `-q` or `-P` of
/// `lp`. Throws `host::UsageError` for a value that is none.
std::vector<host::Option> optionsOfLetter(char letter, const std::string& value);

}  // namespace cardpanels::cardprint
