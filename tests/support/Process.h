#pragma once

#include <string>

namespace cardpanels::test {

/// What a finished command left.
struct Finished {
  int status;  // exit status, -1 when a signal ended it
  std::string output;
  std::string errors;
};

/// Runs `command` in a shell with `input` as its standard input, and waits for it.
Finished runCommand(const std::string& command, const std::string& input = {});

}  // namespace cardpanels::test
