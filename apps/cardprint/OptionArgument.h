#pragma once

#include <string>
#include <vector>

#include "host/JobOptions.h"

namespace cardpanels::cardprint {

/// Reads the argument of `-o`: one `KEY=VALUE`, or several with spaces between them, as `lp` takes
/// them. A value reaches to the next `KEY=`, so an area needs no quotes of its own; in single or
/// double quotes it may hold anything, with a backslash before a quote or a backslash. Throws
/// `host::Error` with the text that is no option.
std::vector<host::Option> parseOptionArgument(const std::string& argument);

}  // namespace cardpanels::cardprint
