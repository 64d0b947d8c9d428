#pragma once

#include <string>
#include <vector>

#include "host/JobOption.h"

namespace cardpanels::cardprint {

/// One of several jobs.
struct JobLine {
  int number = 0;  // of its line
  std::string file;
  std::vector<host::Option> options;
  std::vector<std::string> faults;  // why it cannot be printed, a sentence each
};

/// Reads a list of jobs: on each line a file and, behind it, options, with blanks between them.
/// Quotes and backslashes are the shell's, and each word behind the file is one option. Blank lines
/// and those that begin with `#` are skipped. What cannot be read stands in its line's faults.
std::vector<JobLine> parseJobList(const std::string& text);

}  // namespace cardpanels::cardprint
