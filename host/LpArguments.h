#pragma once

#include <string>
#include <vector>

#include "host/JobOption.h"

namespace cardpanels::host {

/// `options` as arguments of `lp`, quoted for the shell and, inside that, for CUPS: for example
/// `-o cardLaminate=Front -o 'frontResinInclude1="Custom.1in 1in 2in 2in"'`.
std::string lpArguments(const std::vector<Option>& options);

}  // namespace cardpanels::host
