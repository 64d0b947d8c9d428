#include <gtkmm/main.h>

#include <clocale>
#include <iostream>
#include <memory>
#include <string>
#include <utility>

#include "apps/cardprint/Arguments.h"
#include "apps/cardprint/CardDialog.h"
#include "apps/cardprint/CardJob.h"
#include "host/Error.h"
#include "host/Submission.h"
#include "platform/Log.h"

namespace {

using namespace cardpanels;

constexpr int kCancelled = 1;
constexpr int kFailed = 2;

void tellError(const std::string& message) { std::cerr << "cardprint: " << message << '\n'; }

void initializeToolkit() {
  if (gtk_init_check(nullptr, nullptr) == FALSE) {
    throw host::Error("there is no display to show the dialog on; --no-dialog needs none");
  }
  Gtk::Main::init_gtkmm_internals();
}

int printWithDialog(cardprint::CardJob& job, const std::string& told) {
  cardprint::CardDialog dialog(job, told);
  const auto output = dialog.choose();
  if (!dialog.error().empty()) tellError(dialog.error());
  if (!output) return kCancelled;
  std::cout << *output;
  return 0;
}

void tell(const cardprint::CardJob& job) {
  for (const std::string& each : job.leftOut()) tellError(each);
  if (!job.notice().empty()) tellError(job.notice());
}

/// Shows the dialog anew as often as the queue gets another PPD meanwhile.
int printWithDialogs(const cardprint::Arguments& arguments,
                     std::unique_ptr<cardprint::CardJob> job) {
  for (std::string told;;) {
    try {
      return printWithDialog(*job, told);
    } catch (const host::PPDChanged& changed) {
      told = changed.what();
    }
    tellError(told);
    job = std::make_unique<cardprint::CardJob>(arguments, *job);
    tell(*job);
  }
}

int printAtOnce(cardprint::CardJob& job, bool strict) {
  const auto warnings = job.judged();
  for (const std::string& each : warnings) tellError(each);
  if (strict && !warnings.empty()) return kFailed;
  std::cout << job.send();
  return 0;
}

int run(const cardprint::Arguments& arguments) {
  platform::setTraceToStandardError(arguments.trace);
  if (arguments.dialog) initializeToolkit();
  auto job = std::make_unique<cardprint::CardJob>(arguments);
  tell(*job);
  return arguments.dialog ? printWithDialogs(arguments, std::move(job))
                          : printAtOnce(*job, arguments.strict);
}

}  // namespace

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  try {
    const auto arguments = cardprint::parseArguments(argc, argv);
    if (arguments.help) {
      std::cout << cardprint::kHelp;
    } else if (arguments.version) {
      std::cout << "cardprint " CARDPANELS_VERSION "\n";
    } else {
      return run(arguments);
    }
    return 0;
  } catch (const cardprint::UsageError& error) {
    if (*error.what() != '\0') tellError(error.what());
    std::cerr << "Try 'cardprint --help'.\n";
  } catch (const host::Error& error) {
    tellError(error.what());
  }
  return kFailed;
}
