#pragma once

#include <string>
#include <vector>

#include "host/Error.h"
#include "host/JobOptions.h"
#include "host/Queue.h"

namespace cardpanels::cardprint {

/// A command line that cannot be understood; empty for nothing more to tell than how to get help.
class UsageError : public host::Error {
 public:
  using Error::Error;
};

/// What the command line asks for.
struct Arguments {
  std::string ppd;        // empty to print through a queue
  host::QueueName queue;  // empty for the default queue
  std::vector<host::Option> options;
  std::vector<std::string> files;
  bool dialog = true;
  bool strict = false;
  bool trace = false;
  bool help = false;
  bool version = false;
};

/// Reads the command line; files that cannot be read are refused here. Throws `UsageError`, and
/// `host::Error` for a file or an option's argument.
Arguments parseArguments(int argc, char** argv);

/// What `--help` prints.
extern const char* const kHelp;

}  // namespace cardpanels::cardprint
