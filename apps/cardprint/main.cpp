#include <gtkmm/main.h>

#include <clocale>
#include <iostream>

#include "apps/cardprint/Arguments.h"
#include "apps/cardprint/CardDialog.h"
#include "apps/cardprint/CardJob.h"
#include "host/Error.h"
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

int printWithDialog(cardprint::CardJob& job) {
  cardprint::CardDialog dialog(job);
  const auto output = dialog.choose();
  if (!dialog.error().empty()) tellError(dialog.error());
  if (!output) return kCancelled;
  std::cout << *output;
  return 0;
}

int run(const cardprint::Arguments& arguments) {
  platform::setTraceToStandardError(arguments.trace);
  if (arguments.dialog) initializeToolkit();
  cardprint::CardJob job(arguments);
  for (const std::string& notice : job.notices()) tellError(notice);
  if (arguments.dialog) return printWithDialog(job);
  std::cout << job.send();
  return 0;
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
