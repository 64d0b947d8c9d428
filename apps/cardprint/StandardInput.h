#pragma once

#include <string>

namespace cardpanels::cardprint {

/// What stands for standard input on the command line.
inline constexpr const char* kStandardInput = "-";

/// What people read for it, as `lp` names such a job.
inline constexpr const char* kStandardInputName = "(stdin)";

/// Reads all of standard input. Throws `host::Error`.
std::string readStandardInput();

}  // namespace cardpanels::cardprint
