#include <glibmm/exception.h>
#include <gtkmm/main.h>

#include <iostream>
#include <memory>
#include <string>
#include <utility>

#include "apps/cardprint/Arguments.h"
#include "apps/cardprint/CardDialog.h"
#include "apps/cardprint/CardJob.h"
#include "apps/cardprint/JobWait.h"
#include "apps/cardprint/Jobs.h"
#include "apps/cardprint/Output.h"
#include "apps/cardprint/TerminalWaiter.h"
#include "apps/cardprint/WindowWaiter.h"
#include "host/Error.h"
#include "host/PrintServer.h"
#include "host/Program.h"
#include "host/Submission.h"
#include "platform/Log.h"
#include "platform/Messages.h"

namespace {

using namespace cardpanels;

using host::tellError;
using platform::_;

constexpr int kCancelled = 1;

void initializeToolkit() {
  if (gtk_init_check(nullptr, nullptr) == FALSE) {
    throw host::Error(_("There is no display to show the dialog on; --no-dialog needs none."));
  }
  Gtk::Main::init_gtkmm_internals();
}

/// Answers the exit status of `job`, which was sent with `status`, once nothing comes of it any
/// more.
int waitedFor(const cardprint::Arguments& arguments, cardprint::CardJob& job,
              cardprint::Waiter& waiter, int status) {
  if (!arguments.wait || job.id() == 0) return status;
  const bool isPrinted =
      cardprint::waitForJobs(job.queue().queue, {job.id()}, job.panels().job().ppd(), waiter);
  return isPrinted ? status : cardprint::kNotPrinted;
}

int printWithDialog(cardprint::CardJob& job, cardprint::WindowWaiter& waiter,
                    const std::string& told) {
  cardprint::CardDialog dialog(job, waiter, told);
  const auto output = dialog.choose();
  if (!dialog.error().empty()) tellError(dialog.error());
  return output ? cardprint::tellOutput(*output, job.hasFiles()) : kCancelled;
}

void tell(const cardprint::CardJob& job) {
  for (const std::string& each : job.leftOut()) tellError(each);
  if (!job.notice().empty()) tellError(job.notice());
}

/// Shows the dialog anew as often as the queue gets another PPD meanwhile.
int printWithDialogs(const cardprint::Arguments& arguments) {
  initializeToolkit();
  cardprint::WindowWaiter waiter;
  auto job = std::make_unique<cardprint::CardJob>(arguments, waiter);
  for (std::string told;;) {
    tell(*job);
    try {
      return waitedFor(arguments, *job, waiter, printWithDialog(*job, waiter, told));
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
  try {
    const auto arguments = cardprint::parseArguments(argc, argv);
    if (arguments.help) {
      std::cout << cardprint::help();
    } else if (arguments.version) {
      std::cout << "cardprint " CARDPANELS_VERSION "\n";
    } else {
      return print(arguments);
    }
    return 0;
  } catch (const Glib::Exception& error) {  // which is no std::exception
    throw host::Error(error.what());
  }
}

}  // namespace

int main(int argc, char** argv) {
  return host::runProgram([&] { return run(argc, argv); });
}
