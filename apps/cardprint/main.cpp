#include <iostream>
#include <memory>
#include <string>
#include <utility>

#include "apps/cardprint/Arguments.h"
#include "apps/cardprint/CardJob.h"
#include "apps/cardprint/Check.h"
#include "apps/cardprint/JobWait.h"
#include "apps/cardprint/Jobs.h"
#include "apps/cardprint/Output.h"
#include "apps/cardprint/TerminalWaiter.h"
#include "apps/cardprint/Windows.h"
#include "host/Error.h"
#include "host/PrintServer.h"
#include "host/Program.h"
#include "host/Submission.h"
#include "platform/Log.h"

namespace {

using namespace cardpanels;

using host::tellError;

constexpr int kCancelled = 1;

/// Answers the exit status of `job`, which was sent with `status`, once nothing comes of it any
/// more.
int waitedFor(const cardprint::Arguments& arguments, cardprint::CardJob& job,
              cardprint::Waiter& waiter, int status) {
  if (!arguments.wait || job.id() == 0) return status;
  const bool isPrinted =
      cardprint::waitForJobs(job.queue().queue, {job.id()}, job.panels().job().ppd(), waiter);
  return isPrinted ? status : cardprint::kNotPrinted;
}

int printWithDialog(cardprint::CardJob& job, cardprint::Windows& windows, const std::string& told) {
  const auto choice = windows.choose(job, told);
  if (!choice.error.empty()) tellError(choice.error);
  return choice.output ? cardprint::tellOutput(*choice.output, job.hasFiles()) : kCancelled;
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
      const int status = printWithDialog(*job, *windows, told);
      return waitedFor(arguments, *job, windows->waiter(), status);
    } catch (const host::PPDChanged& changed) {
      told = changed.what();
    }
    tellError(told);
    job = std::make_unique<cardprint::CardJob>(arguments, *job);
  }
}

int printAtOnce(const cardprint::Arguments& arguments) {
  cardprint::TerminalWaiter waiter;
  if (arguments.each || !arguments.list.empty()) return cardprint::printJobs(arguments, waiter);
  cardprint::CardJob job(arguments, waiter);
  tell(job);
  const auto warnings = job.judged();
  for (const std::string& each : warnings) tellError(each);
  if (arguments.strict && !warnings.empty()) return host::kFailed;
  const int status = cardprint::tellOutput(job.send(), job.hasFiles());
  return waitedFor(arguments, job, waiter, status);
}

int print(const cardprint::Arguments& arguments) {
  platform::setTraceToStandardError(arguments.trace);
  host::useServer(arguments.server);
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
  } else if (arguments.check) {
    return cardprint::checkPPDs(arguments.files);
  } else {
    return print(arguments);
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  return host::runProgram([&] { return run(argc, argv); });
}
