#pragma once

#include <getopt.h>

#include <functional>
#include <string>

#include "host/Error.h"

/// What programs have in common from their start to their end.
namespace cardpanels::host {

/// The exit status after an error.
inline constexpr int kFailed = 2;

/// A command line that cannot be understood.
class UsageError : public Error {
 public:
  using Error::Error;
};

/// Does `work` in the user's language, and answers the exit status: what `work` answers; `kFailed`,
/// with a message, for whatever it throws, and where standard output did not take what a `work`
/// wrote that has not failed by itself. Standard streams that are closed stay so: no file that
/// `work` opens gets their number.
int runProgram(const std::function<int()>& work);

/// Writes `message` to standard error, on one line after the program's name.
void tellError(const std::string& message);

/// Throws `Error` unless standard output took all that was written.
void flushOutput();

/// The command line's next option, as `getopt_long` answers it; -1 after the last. Throws
/// `UsageError` for what is no option, and for a value that is missing or too much.
int nextOption(int argc, char** argv, const char* letters, const option* names);

}  // namespace cardpanels::host
