#pragma once

#include <string>
#include <vector>

#include "host/JobOption.h"
#include "host/PrintServer.h"
#include "host/Queue.h"

namespace cardpanels::cardprint {

/// What the command line asks for.
struct Arguments {
  host::ServerChoice server;
  std::string ppd;        // empty to print through a queue
  host::QueueName queue;  // empty for the default queue
  std::vector<host::Option> options;
  std::vector<std::string> files;  // or only `kStandardInput`
  std::string list;                // of jobs, a file or `kStandardInput`; empty for none
  std::vector<int> follow;         // only tell what becomes of these jobs
  bool each = false;               // file is a job of its own
  bool stop = false;               // at the first job that cannot be sent
  bool wait = false;
  bool check = false;  // files are PPDs to check
  bool dialog = true;
  bool silent = false;
  bool strict = false;
  bool trace = false;
  bool help = false;
  bool version = false;
};

/// Reads the command line; files that cannot be read are refused here. Throws `host::UsageError`,
/// and `host::Error` for a file or an option's argument.
Arguments parseArguments(int argc, char** argv);

/// Throws `host::Error` for a file that cannot be read, without opening it.
void checkReadable(const std::string& path);

/// What `--help` prints, in the user's language.
std::string help();

}  // namespace cardpanels::cardprint
