#include "apps/cardprint/Arguments.h"

#include <getopt.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "apps/cardprint/OptionArgument.h"

namespace cardpanels::cardprint {

const char* const kHelp =
    R"help(Usage: cardprint [--ppd FILE | -d QUEUE[/INSTANCE]] [-o KEY=VALUE]...
                 [--no-dialog [--strict]] [--trace] [FILE]...
Shows the options of a card printer, and prints FILEs with what is chosen.

  -d QUEUE[/INSTANCE]  the queue to print on, with the options saved for it or
                       for that instance of it; the default queue otherwise
  --ppd FILE           the printer's PPD; needs no print server and prints
                       nothing, so it takes no FILE
  -o KEY=VALUE         choose VALUE for the printer's option KEY; several in
                       one argument, with spaces between them, as lp takes them.
                       An area is four measurements:
                       -o frontResinInclude1="1in 1in 2in 2in"
  --no-dialog          print at once with the options given by -o
  --strict             with --no-dialog, print nothing when an area cannot be
                       right, such as one that is off the card
  --trace              write the trace log to standard error as well as to the
                       system log
  --help               print this text
  --version            print the program's version

What standard output gets: the summary, for each panel its name on a line, and
below it, indented by four spaces, a line "OPTION: CHOICE" for each option, by
their titles. Then one last line: with FILEs "request id is QUEUE-JOB (N
file(s))"; without, the options of the job as arguments of lp, quoted for the
shell (an empty line when the job needs none), so this prints a picture later:

  eval "lp -d QUEUE $(cardprint --ppd card.ppd | tail -n 1) picture.png"

No option given by -o is changed for another one: two that exclude each other
are an error. What else changed because of them is told on standard error, and
so is an area that cannot be right.
Exit status: 0 when all was done, 1 when the dialog was cancelled, 2 after an
error; then nothing was printed.
)help";

namespace {
enum LongOption { ppd = 256, noDialog, strict, trace, help, version };

constexpr option kLongOptions[] = {{"ppd", required_argument, nullptr, ppd},
                                   {"no-dialog", no_argument, nullptr, noDialog},
                                   {"strict", no_argument, nullptr, strict},
                                   {"trace", no_argument, nullptr, trace},
                                   {"help", no_argument, nullptr, help},
                                   {"version", no_argument, nullptr, version},
                                   {}};

std::string nonEmpty(const char* value, const std::string& name) {
  if (*value == '\0') throw UsageError(name + " needs a value that is not empty");
  return value;
}

host::QueueName queueName(const char* text) {
  auto name = host::QueueName::parse(nonEmpty(text, "-d"));
  if (name.queue.empty()) throw UsageError(std::string("-d ") + text + ": no queue is named");
  return name;
}

void take(int option, Arguments& arguments) {
  switch (option) {
    case 'd': arguments.queue = queueName(optarg); break;
    case 'o':
      for (auto& each : parseOptionArgument(optarg)) arguments.options.push_back(std::move(each));
      break;
    case ppd: arguments.ppd = nonEmpty(optarg, "--ppd"); break;
    case noDialog: arguments.dialog = false; break;
    case strict: arguments.strict = true; break;
    case trace: arguments.trace = true; break;
    case help: arguments.help = true; break;
    case version: arguments.version = true; break;
    default: throw UsageError("");  // getopt_long has told
  }
}

void checkReadable(const std::string& path) {
  errno = 0;
  const bool opens = std::ifstream(path).good();
  const int reason = opens && std::filesystem::is_directory(path) ? EISDIR : errno;
  if (!opens || reason == EISDIR) throw host::Error(path + ": " + std::strerror(reason));
}

}  // namespace

Arguments parseArguments(int argc, char** argv) {
  Arguments arguments;
  for (int option = 0; (option = getopt_long(argc, argv, "d:o:", kLongOptions, nullptr)) != -1;) {
    take(option, arguments);
    if (arguments.help || arguments.version) return arguments;
  }
  arguments.files.assign(argv + optind, argv + argc);
  if (!arguments.ppd.empty() && !arguments.queue.queue.empty()) {
    throw UsageError("--ppd and -d exclude each other");
  }
  if (!arguments.ppd.empty() && !arguments.files.empty()) {
    throw UsageError("--ppd prints nothing, so it takes no file: " + arguments.files.front() +
                     "; print on a queue with -d");
  }
  for (const std::string& file : arguments.files) checkReadable(file);
  return arguments;
}

}  // namespace cardpanels::cardprint
