#include <getopt.h>

#include <iostream>
#include <string>

#include "apps/pde-drive/Driver.h"
#include "host/PlugInLibrary.h"
#include "host/Program.h"
#include "platform/Messages.h"

namespace {

using cardpanels::host::UsageError;

constexpr const char* kHelp =
    R"(Usage: pde-drive --ppd FILE [OPTION]... < SCRIPT
Drives the card panels without a dialog: carries out a script, a command a line,
and prints each command after "> ", the trace log after "| ", the result after
"= " or an error after "! ".

  --ppd FILE                the PPD of the job
  --bundle DIR              the bundle to load the panels from
  --no-constraint-handling  a host that marks no choices itself
  --stable                  print addresses as 0x1, 0x2, ... in order
  --help                    this text
  --version                 the program's version

Commands:
  panels [TYPE]             ask the plug-in for its panels
  PANEL OPERATION ARG...    call an operation or action of a panel: ribbon,
                            ultraviolet, peeloff, laminate or cardhandling
  PANEL pick OUTLET INDEX   select an item of a pop-up as a user does
  PANEL type OUTLET TEXT    type into a field
  PANEL state OUTLET        print what a control shows
  PANEL forgetView          let the host's reference to the view go
  PANEL destroy             end the panel
  mark KEY CHOICE, unmark KEY, marked KEY
                            work on the PPD behind the panels' backs
  refuse KEY..., grant KEY...
                            say no to changes of these options, or no longer
  requests                  print and forget what the panels asked for
  parseArea TEXT            split an area text into its four measurements
  formatArea X Y WIDTH HEIGHT
                            join four measurements to an area text

An argument with spaces stands in double quotes, with \" and \\ inside; a bare
nil is an absent argument; # starts a comment. Exit status: 0, 1 when a command
failed, 2 when nothing could be started.
)";

struct Arguments {
  cardpanels::drive::Settings settings;
  const char* text = nullptr;  // print this and end
};

Arguments parse(int argc, char** argv) {
  enum { ppd = 256, bundle, noConstraintHandling, stable, help, version };
  static constexpr option kOptions[] = {
      {"ppd", required_argument, nullptr, ppd},
      {"bundle", required_argument, nullptr, bundle},
      {"no-constraint-handling", no_argument, nullptr, noConstraintHandling},
      {"stable", no_argument, nullptr, stable},
      {"help", no_argument, nullptr, help},
      {"version", no_argument, nullptr, version},
      {}};
  Arguments arguments;
  for (int option = 0; (option = cardpanels::host::nextOption(argc, argv, "", kOptions)) != -1;) {
    switch (option) {
      case ppd: arguments.settings.ppd = optarg; break;
      case bundle: arguments.settings.bundle = optarg; break;
      case noConstraintHandling: arguments.settings.constraintHandling = false; break;
      case stable: arguments.settings.stableAddresses = true; break;
      case help: arguments.text = kHelp; return arguments;
      case version: arguments.text = "pde-drive " CARDPANELS_VERSION "\n"; return arguments;
      default: break;
    }
  }
  if (optind < argc) throw UsageError(std::string("unexpected argument ") + argv[optind]);
  if (arguments.settings.ppd.empty()) throw UsageError("--ppd FILE is needed");
  if (arguments.settings.bundle.empty()) {
    arguments.settings.bundle = cardpanels::host::defaultBundlePath();
  }
  return arguments;
}

int runScript(const cardpanels::drive::Settings& settings) {
  cardpanels::platform::useCatalogues(settings.bundle);
  cardpanels::drive::Driver driver(settings, std::cout);
  bool succeeded = true;
  for (std::string line; std::getline(std::cin, line);) {
    succeeded = driver.run(line) && succeeded;
  }
  return succeeded ? 0 : 1;
}

int run(int argc, char** argv) {
  const Arguments arguments = parse(argc, argv);
  if (arguments.text == nullptr) return runScript(arguments.settings);
  std::cout << arguments.text;
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  return cardpanels::host::runProgram([&] { return run(argc, argv); });
}
