#include "apps/cardprint/Arguments.h"

#include <getopt.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <sstream>
#include <system_error>

#include "apps/cardprint/Follower.h"
#include "apps/cardprint/LpLetters.h"
#include "apps/cardprint/OptionArgument.h"
#include "apps/cardprint/StandardInput.h"
#include "host/Error.h"
#include "host/Program.h"
#include "platform/Messages.h"

namespace cardpanels::cardprint {
namespace {

using host::UsageError;
using platform::_;
using platform::filled;

enum LongOption {
  ppd = 256,
  check,
  each,
  list,
  stop,
  wait,
  follow,
  noDialog,
  strict,
  trace,
  help,
  version
};

constexpr option kLongOptions[] = {
    {"ppd", required_argument, nullptr, ppd},
    {"check", no_argument, nullptr, check},
    {"each", no_argument, nullptr, each},
    {"list", required_argument, nullptr, list},
    {"stop", no_argument, nullptr, stop},
    {"wait", no_argument, nullptr, wait},
    {kFollow, required_argument, nullptr, follow},
    {"no-dialog", no_argument, nullptr, noDialog},
    {"strict", no_argument, nullptr, strict},
    {"trace", no_argument, nullptr, trace},
    {"help", no_argument, nullptr, help},
    {"version", no_argument, nullptr, version},
    {},
};

std::vector<int> numbers(const std::string& text) {
  std::vector<int> all;
  std::istringstream words(text);
  for (int number = 0; words >> number;) all.push_back(number);
  return all;
}

std::string nonEmpty(const char* value, const std::string& name) {
  if (*value == '\0') {
    throw UsageError(filled(_("The option {option} needs a value."), {{"option", name}}));
  }
  return value;
}

host::QueueName queueName(const char* text) {
  auto name = host::QueueName::parse(nonEmpty(text, "-d"));
  if (name.queue.empty())
    throw UsageError(std::string("-d ") + text + ": " + _("No queue is named."));
  return name;
}

void take(int option, Arguments& arguments) {
  switch (option) {
    case 'd': arguments.queue = queueName(optarg); break;
    case 'o':
      for (auto& each : parseOptionArgument(optarg)) arguments.options.push_back(std::move(each));
      break;
    case 'n':
    case 't':
    case 'H':
    case 'q':
    case 'P':
      for (auto& each : optionsOfLetter(static_cast<char>(option), optarg))
        arguments.options.push_back(std::move(each));
      break;
    case 'h': arguments.server.server = nonEmpty(optarg, "-h"); break;
    case 'U': arguments.server.user = nonEmpty(optarg, "-U"); break;
    case 'E': arguments.server.isEncrypted = true; break;
    case 's': arguments.silent = true; break;
    case ppd: arguments.ppd = nonEmpty(optarg, "--ppd"); break;
    case check: arguments.check = true; break;
    case each: arguments.each = true; break;
    case list: arguments.list = nonEmpty(optarg, "--list"); break;
    case stop: arguments.stop = true; break;
    case wait: arguments.wait = true; break;
    case follow: arguments.follow = numbers(optarg); break;
    case noDialog: arguments.dialog = false; break;
    case strict: arguments.strict = true; break;
    case trace: arguments.trace = true; break;
    case help: arguments.help = true; break;
    case version: arguments.version = true; break;
    default: break;
  }
}

/// What is checked is not printed.
void checkCheck(const Arguments& arguments) {
  const bool prints = !arguments.ppd.empty() || !arguments.queue.queue.empty() ||
                      !arguments.options.empty() || !arguments.list.empty() || arguments.each ||
                      arguments.wait || !arguments.dialog;
  if (prints || arguments.files.empty())
    throw UsageError(_("--check takes PPD files, and nothing that is for printing."));
}

void checkFiles(Arguments& arguments) {
  const auto& files = arguments.files;
  const bool hasInput = std::find(files.begin(), files.end(), kStandardInput) != files.end();
  if (hasInput && files.size() > 1)
    throw UsageError(_("Standard input (-) and files exclude each other."));
  if (hasInput || files.empty()) arguments.each = false;  // one job, or none
  if (hasInput) return;
  for (const std::string& file : files) checkReadable(file);
}

void checkTogether(const Arguments& arguments) {
  const bool areMany = arguments.each || !arguments.list.empty();
  const std::string& file = arguments.files.empty() ? arguments.list : arguments.files.front();
  if (!arguments.ppd.empty() && !arguments.queue.queue.empty())
    throw UsageError(_("--ppd and -d exclude each other."));
  if (!arguments.ppd.empty() && !file.empty()) {
    throw UsageError(
        filled(_("--ppd prints nothing, so it takes no file: {file}. Print on a queue with -d."),
               {{"file", file}}));
  }
  if (!arguments.list.empty() && !arguments.files.empty())
    throw UsageError(filled(_("--list takes no file besides: {file}"), {{"file", file}}));
  if (areMany && arguments.dialog) throw UsageError(_("--each and --list need --no-dialog."));
  if (arguments.stop && !areMany) throw UsageError(_("--stop needs --each or --list."));
}

}  // namespace

void checkReadable(const std::string& path) {
  // Without opening it: a pipe may have no writer yet.
  const bool readable = access(path.c_str(), R_OK) == 0;
  std::error_code unknown;
  const int reason = readable && std::filesystem::is_directory(path, unknown) ? EISDIR : errno;
  if (!readable || reason == EISDIR) throw host::Error(path + ": " + std::strerror(reason));
}

Arguments parseArguments(int argc, char** argv) {
  Arguments arguments;
  for (int option = 0;
       (option = host::nextOption(argc, argv, "d:o:n:t:H:q:P:h:U:Es", kLongOptions)) != -1;) {
    take(option, arguments);
    if (arguments.help || arguments.version) return arguments;
  }
  arguments.files.assign(argv + optind, argv + argc);
  if (arguments.check) {
    checkCheck(arguments);
    return arguments;
  }
  checkTogether(arguments);
  checkFiles(arguments);
  return arguments;
}

}  // namespace cardpanels::cardprint
