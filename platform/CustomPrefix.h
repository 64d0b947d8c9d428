#pragma once

#include <string_view>

namespace cardpanels::platform {

/// What stands before the user's own value where an option's choice is named, in a job and in the
/// marks: `Custom.1in 1in 2in 2in` (CUPS PPD extensions).
inline constexpr std::string_view kCustomPrefix = "Custom.";

}  // namespace cardpanels::platform
