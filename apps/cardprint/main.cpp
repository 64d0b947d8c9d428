#include <iostream>
#include <memory>
#include <string>
#include <utility>

#include "apps/cardprint/Arguments.h"
#include "apps/cardprint/CardJob.h"
#include "apps/cardprint/TerminalWaiter.h"
#include "apps/cardprint/Windows.h"
#include "host/Error.h"
#include "host/Program.h"
#include "host/Submission.h"
#include "platform/Log.h"
#include "platform/Messages.h"

namespace {

using namespace cardpanels;

using host::tellError;
using platform::_;

constexpr int kCancelled = 1;
constexpr int kPrintedUntold = 3;

/// A script must not take a job that went out for one that did not, and print it again.
int tellOutput(const std::string& output, bool wasPrinted) {
  std::cout << output;
  try {
    host::flushOutput();
    return 0;
  } catch (const host::Error& error) {
    if (!wasPrinted) throw;
    tellError(std::string(error.what()) + " " + _("The job was printed."));
    return kPrintedUntold;
  }
}

int printWithDialog(cardprint::CardJob& job, cardprint::Windows& windows, const std::string& told) {
  const auto choice = windows.choose(job, told);
  if (!choice.error.empty()) tellError(choice.error);
  return choice.output ? tellOutput(*choice.output, job.hasFiles()) : kCancelled;
}

void tell(const cardprint::CardJob& job) {
  for (const std::string& each : job.leftOut()) tellError(each);
  if (!job.notice().empty()) tellError(job.notice());
}

/// Shows the dialog anew as often as the queue gets another PPD meanwhile.
int printWithDialogs(const cardprint::Arguments& arguments) {
  const auto windows = cardprint::openWindows();
  auto job = std::make_unique<cardprint::CardJob>(arguments, *windows);
  for (std::string told;;) {
    tell(*job);
    try {
      return printWithDialog(*job, *windows, told);
    } catch (const host::PPDChanged& changed) {
      told = changed.what();
    }
    tellError(told);
    job = std::make_unique<cardprint::CardJob>(arguments, *job);
  }
}

int printAtOnce(const cardprint::Arguments& arguments) {
  cardprint::TerminalWaiter waiter;
  cardprint::CardJob job(arguments, waiter);
  tell(job);
  const auto warnings = job.judged();
  for (const std::string& each : warnings) tellError(each);
  if (arguments.strict && !warnings.empty()) return host::kFailed;
  return tellOutput(job.send(), job.hasFiles());
}

int print(const cardprint::Arguments& arguments) {
  platform::setTraceToStandardError(arguments.trace);
  try {
    return arguments.dialog ? printWithDialogs(arguments) : printAtOnce(arguments);
  } catch (const cardprint::Cancelled&) {
    return kCancelled;
  }
}

int run(int argc, char** argv) {
  const auto arguments = cardprint::parseArguments(argc, argv);
  if (arguments.help) {
    std::cout << cardprint::help();
  } else if (arguments.version) {
    std::cout << "cardprint " CARDPANELS_VERSION "\n";
  } else {
    return print(arguments);
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  return host::runProgram([&] { return run(argc, argv); });
}
