#pragma once

#include <string>

namespace cardpanels::cardprint {

/// The exit status when all was sent, but standard output could not be written.
inline constexpr int kPrintedUntold = 3;

/// The exit status when what was sent has not been printed, or nobody knows.
inline constexpr int kNotPrinted = 4;

/// Writes `output` to standard output, and answers the exit status. A script must not take a job
/// that went out for one that did not, and print it again: `wasPrinted` tells. Throws `host::Error`
/// where it was not.
int tellOutput(const std::string& output, bool wasPrinted);

}  // namespace cardpanels::cardprint
