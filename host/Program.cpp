#include "host/Program.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <clocale>
#include <cstdio>
#include <exception>
#include <iostream>
#include <system_error>

#include "host/PlugInLibrary.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::filled;

/// Opens each closed stream in the direction that it is not used in, so that its use still fails.
void fillClosedStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) != -1) continue;
    if (open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) != stream) return;
  }
}

}  // namespace

int runProgram(const std::function<int()>& work) {
  try {
    fillClosedStreams();
    std::setlocale(LC_ALL, "");
    platform::useCatalogues(defaultBundlePath());
    const int status = work();
    if (status < kFailed) flushOutput();
    return status;
  } catch (const UsageError& error) {
    tellError(error.what());
    std::cerr << filled(_("Try '{program} --help'."), {{"program", program_invocation_short_name}})
              << '\n';
  } catch (const std::exception& error) {
    tellError(error.what());
  }
  return kFailed;
}

void tellError(const std::string& message) {
  std::cerr << platform::onOneLine(std::string(program_invocation_short_name) + ": " + message)
            << '\n';
}

void flushOutput() {
  errno = 0;
  if (std::fflush(stdout) == 0 && std::cout) return;  // std::cout has no buffer of its own
  const std::string reason = std::generic_category().message(errno != 0 ? errno : EIO);
  throw Error(filled(_("Standard output cannot be written: {reason}"), {{"reason", reason}}));
}

int nextOption(int argc, char** argv, const char* letters, const option* names) {
  opterr = 0;  // its own messages let control characters through
  const int option = getopt_long(argc, argv, (std::string(":") + letters).c_str(), names, nullptr);
  if (option != '?' && option != ':') return option;
  const bool isLetter = option == '?' && optopt != 0 && optopt < 256;
  const std::string given =
      isLetter ? std::string("-") + static_cast<char>(optopt) : argv[optind - 1];
  const char* const message = option == ':'   ? _("The option {option} needs a value.")
                              : optopt >= 256 ? _("The option {option} takes no value.")
                                              : _("There is no option {option}.");
  throw UsageError(filled(message, {{"option", given}}));
}

}  // namespace cardpanels::host
