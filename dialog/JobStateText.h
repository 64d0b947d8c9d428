#pragma once

#include <string>

#include "host/JobStates.h"

namespace cardpanels::dialog {

/// What became of a job that has not been printed, and why, in one line, such as `Job cancelled ·
/// By its owner`. Empty for a job that was printed.
std::string lossLine(const host::JobState& state);

/// How far a job is, and why no farther, in one line, such as `Waiting · Printer stopped`.
std::string jobLine(const host::JobState& state);

}  // namespace cardpanels::dialog
