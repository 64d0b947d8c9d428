#pragma once

#include <string>
#include <vector>

namespace cardpanels::cardprint {

/// Writes to standard output what is found in the PPDs at `paths`, by file and line, and answers
/// the exit status: 0 when nothing is wrong, 1 for warnings, 2 for errors. A file that cannot be
/// used is told on standard error.
int checkPPDs(const std::vector<std::string>& paths);

}  // namespace cardpanels::cardprint
