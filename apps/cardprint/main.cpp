#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "apps/cardprint/Arguments.h"
#include "apps/cardprint/CardJob.h"
#include "apps/cardprint/Check.h"
#include "apps/cardprint/Follower.h"
#include "apps/cardprint/JobWait.h"
#include "apps/cardprint/Jobs.h"
#include "apps/cardprint/Output.h"
#include "apps/cardprint/TerminalWaiter.h"
#include "apps/cardprint/Windows.h"
#include "dialog/PrinterList.h"
#include "host/Error.h"
#include "host/PrintServer.h"
#include "host/Program.h"
#include "host/Submission.h"
#include "platform/Log.h"
#include "platform/Messages.h"

namespace {

using namespace cardpanels;

using host::tellError;

constexpr int kCancelled = 1;

/// Answers the exit status of `job`, which was sent with `status`, once nothing comes of it any
/// more. What was not sent counts for more than what was not printed.
int waitedFor(cardprint::CardJob& job, cardprint::Waiter& waiter, int status) {
  const bool isPrinted =
      cardprint::waitForJobs(job.queue().queue, job.ids(), job.panels().job().ppd(), waiter);
  return isPrinted || status == host::kFailed ? status : cardprint::kNotPrinted;
}

void tell(const cardprint::CardJob& job) {
  for (const std::string& each : job.leftOut()) tellError(each);
  if (!job.notice().empty()) tellError(job.notice());
}

/// The jobs of a program with windows, one after the other as the user changes the printer, or the
/// queue its PPD.
class DialogJobs {
 public:
  explicit DialogJobs(cardprint::Arguments arguments) : arguments_(std::move(arguments)) {}

  int print() {
    begin();
    for (;;) {
      try {
        const auto choice = windows_->choose(*job_, std::exchange(told_, ""));
        if (choice.printer.empty()) return ended(choice);
        change(choice.printer);
      } catch (const host::PPDChanged& changed) {
        told_ = changed.what();
        tellError(told_);
        // With the preset that is chosen by now.
        if (arguments_.ppd.empty()) arguments_.queue = job_->queue();
        replace(std::make_unique<cardprint::CardJob>(arguments_, *job_));
      }
    }
  }

 private:
  /// Where the command line names neither queue nor options, there is a window if there is any
  /// queue.
  void begin() {
    const bool isOpen = arguments_.ppd.empty() && arguments_.queue.queue.empty();
    try {
      replace(std::make_unique<cardprint::CardJob>(arguments_, *windows_));
      return;
    } catch (const cardprint::Cancelled&) {
      throw;
    } catch (const host::Error& error) {
      if (!isOpen || !arguments_.options.empty()) throw;
      arguments_.queue = {firstPrinter(), ""};
      if (arguments_.queue.queue.empty()) throw;
      told_ = error.what();
    }
    replace(std::make_unique<cardprint::CardJob>(arguments_, *windows_));
  }

  std::string firstPrinter() {
    return dialog::firstPrinter(cardprint::waitedFor<std::vector<host::ListedQueue>>(
        windows_->waiter(), platform::_("Reading the printers…"), dialog::readPrinters));
  }

  /// The job stays where the other queue cannot be had.
  void change(const std::string& printer) {
    cardprint::Arguments changed = arguments_;
    changed.queue = host::QueueName::parse(printer);
    try {
      replace(std::make_unique<cardprint::CardJob>(changed, *job_));
      arguments_ = std::move(changed);
    } catch (const cardprint::Cancelled&) {
      return;
    } catch (const host::Error& error) {
      told_ = error.what();
      tellError(told_);
    }
  }

  void replace(std::unique_ptr<cardprint::CardJob> job) {
    if (job_ && !arguments_.wait) follow(*job_);
    std::erase_if(before_, [](const auto& each) { return each->ids().empty(); });
    if (job_) before_.push_back(std::move(job_));
    job_ = std::move(job);
    tell(*job_);
  }

  void follow(const cardprint::CardJob& job) const {
    if (!job.ids().empty())
      cardprint::startFollower(arguments_.server, job.queue().queue, job.ids());
  }

  int ended(const cardprint::Choice& choice) {
    if (!choice.error.empty()) tellError(choice.error);
    if (!choice.output) return kCancelled;
    before_.push_back(std::move(job_));
    const bool isAnySent = std::any_of(before_.begin(), before_.end(),
                                       [](const auto& each) { return !each->ids().empty(); });
    const int told = cardprint::tellOutput(*choice.output, isAnySent);
    const int status = choice.error.empty() ? told : host::kFailed;
    if (arguments_.wait) return waitedForAll(status);
    follow(*before_.back());
    return status;
  }

  int waitedForAll(int status) {
    try {
      for (const auto& each : before_) status = waitedFor(*each, windows_->waiter(), status);
      return status;
    } catch (const cardprint::Cancelled&) {  // the user waits no longer, and the jobs stay
      return status == host::kFailed ? status : cardprint::kNotPrinted;
    }
  }

  cardprint::Arguments arguments_;
  std::string told_;
  // Those of which something was sent, and the dialog's until that has the next one.
  std::vector<std::unique_ptr<cardprint::CardJob>> before_;
  std::unique_ptr<cardprint::CardJob> job_;
  const std::unique_ptr<cardprint::Windows> windows_ = cardprint::openWindows();
};

/// Only tells what becomes of jobs.
int follow(const cardprint::Arguments& arguments) {
  cardprint::openWindows()->follow(arguments.queue.queue, arguments.follow);
  return 0;
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
  return arguments.wait && !job.ids().empty() ? waitedFor(job, waiter, status) : status;
}

int print(const cardprint::Arguments& arguments) {
  platform::setTraceToStandardError(arguments.trace);
  host::useServer(arguments.server);
  try {
    if (!arguments.follow.empty()) return follow(arguments);
    return arguments.dialog ? DialogJobs(arguments).print() : printAtOnce(arguments);
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

/// Whether nobody reads standard error, and the user waits for a window.
bool waitsForWindow(int argc, char** argv) {
  const auto isSet = [](const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr && *value != '\0';
  };
  const auto isAt = [](int stream) { return isatty(stream) != 0; };
  const auto isForWindows = [](std::string_view each) {
    return each != "--no-dialog" && each != std::string("--") + cardprint::kFollow;
  };
  return (isSet("DISPLAY") || isSet("WAYLAND_DISPLAY")) && !isAt(STDIN_FILENO) &&
         !isAt(STDOUT_FILENO) && !isAt(STDERR_FILENO) &&
         std::all_of(argv, argv + argc, isForWindows);
}

void tellInWindow(const std::string& message) {
  try {
    cardprint::openWindows()->tellError(message);
  } catch (const host::Error&) {
    // Then standard error alone has it.
  }
}

/// The same, with a window for an error that ends it.
int runInWindows(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    if (waitsForWindow(argc, argv)) tellInWindow(error.what());
    throw;
  }
}

}  // namespace

int main(int argc, char** argv) {
  return host::runProgram([&] { return runInWindows(argc, argv); });
}
