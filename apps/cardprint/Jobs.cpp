#include "apps/cardprint/Jobs.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <utility>

#include "apps/cardprint/ChosenOptions.h"
#include "apps/cardprint/JobList.h"
#include "apps/cardprint/JobWait.h"
#include "apps/cardprint/Output.h"
#include "apps/cardprint/Printer.h"
#include "apps/cardprint/StandardInput.h"
#include "host/Error.h"
#include "host/Program.h"
#include "host/Submission.h"
#include "platform/Messages.h"

namespace cardpanels::cardprint {
namespace {

using platform::_;

std::string textOfList(const std::string& path) {
  if (path == kStandardInput) return readStandardInput();
  checkReadable(path);
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// What people read for the list.
std::string nameOf(const std::string& list) {
  return list == kStandardInput ? kStandardInputName : list;
}

std::vector<JobLine> linesOf(const Arguments& arguments) {
  std::vector<JobLine> lines;
  if (!arguments.list.empty()) {
    lines = parseJobList(textOfList(arguments.list));
    if (lines.empty()) throw host::Error(nameOf(arguments.list) + ": " + _("It names no file."));
  }
  for (const std::string& file : arguments.files) lines.push_back({0, file, {}, {}});
  return lines;
}

std::string aboutFile(const std::string& file, const std::string& message) {
  return message.starts_with(file + ": ") ? message : file + ": " + message;
}

/// A job that has been judged.
struct PlannedJob {
  JobLine line;
  host::Submission submission;
};

class Jobs {
 public:
  Jobs(const Arguments& arguments, Waiter& waiter, Printer&& printer)
      : arguments_(arguments),
        waiter_(waiter),
        queue_(printer.queue),
        ppdText_(std::move(printer.ppdText)),
        basis_(std::move(printer.basis)),
        options_(std::move(printer.ppd)),
        keys_(queue_.queue, waiter) {
    if (!printer.differences.empty()) host::tellError(printer.differences);
    for (const std::string& each : options_.markSaved(printer.savedOptions)) host::tellError(each);
    saved_ = options_.state();
    for (const host::Option& each : arguments.options) checkOption(options_, each, keys_);
  }

  /// Answers whether every line can be printed.
  bool plan(std::vector<JobLine> lines) {
    bool areAllRight = true;
    for (JobLine& line : lines) areAllRight = planOne(std::move(line)) && areAllRight;
    return areAllRight;
  }

  int send() {
    int status = 0;
    bool hasFailed = false;
    std::vector<int> ids;
    for (const PlannedJob& job : planned_) {
      try {
        ids.push_back(sent(job.submission));
        status = std::max(status, tellOutput(lineOf(job.line, ids.back()), true));
      } catch (const Cancelled&) {
        throw;
      } catch (const host::Error& error) {
        hasFailed = true;
        tell(job.line, aboutFile(job.line.file, error.what()));
        if (arguments_.stop) break;
      }
    }
    if (arguments_.wait && !waitForJobs(queue_.queue, ids, options_.ppd(), waiter_))
      status = kNotPrinted;
    return hasFailed ? host::kFailed : status;
  }

 private:
  bool planOne(JobLine line) {
    try {
      if (!line.file.empty() || line.faults.empty()) checkReadable(line.file);
    } catch (const host::Error& error) {
      line.faults.insert(line.faults.begin(), error.what());
    }
    options_.restore(saved_);
    for (const host::Option& each : line.options) {
      try {
        checkOption(options_, each, keys_);
      } catch (const host::Error& error) {
        line.faults.emplace_back(error.what());
      }
    }
    const bool isStrictlyRight = line.faults.empty() && judgeOptions(line);
    for (const std::string& each : line.faults) tell(line, each);
    return isStrictlyRight && line.faults.empty();
  }

  bool judgeOptions(JobLine& line) {
    std::vector<host::Option> given = arguments_.options;
    given.insert(given.end(), line.options.begin(), line.options.end());
    try {
      ChosenOptions chosen = choose(options_, given, keys_);
      tell(line, chosen.notice);
      const auto warnings = judged(options_);
      for (const std::string& each : warnings) tell(line, each);
      planned_.push_back({line, submission(line, std::move(chosen))});
      return warnings.empty() || !arguments_.strict;
    } catch (const Cancelled&) {
      throw;
    } catch (const host::Error& error) {
      line.faults.emplace_back(error.what());
      return false;
    }
  }

  host::Submission submission(const JobLine& line, ChosenOptions chosen) const {
    return {.queue = queue_,
            .title = chosen.title.value_or(std::filesystem::path(line.file).filename().string()),
            .files = {line.file},
            .options = options_.options(),
            .ppdText = ppdText_,
            .attributes = std::move(chosen.attributes)};
  }

  /// The queue is read again now and then, not for each job.
  int sent(host::Submission submission) {
    submission.basis = basis_;
    const auto [id, basis] = waitedFor<std::pair<int, host::JobBasis>>(
        waiter_, _("Sending the job…"), [submission](const host::Terms& terms) mutable {
          submission.basis = host::currentBasis(submission, terms);
          return std::pair(host::submitJob(submission, terms), *submission.basis);
        });
    basis_ = basis;
    return id;
  }

  std::string lineOf(const JobLine& line, int id) const {
    if (arguments_.silent) return "";
    return platform::onOneLine(line.file) + ": " + queue_.queue + "-" + std::to_string(id) + "\n";
  }

  /// What is the same for all files is told once.
  void tell(const JobLine& line, const std::string& message) {
    if (message.empty()) return;
    const std::string list = nameOf(arguments_.list);
    const std::string place = list.empty() ? "" : list + ":" + std::to_string(line.number) + ": ";
    if (told_.insert(place + message).second) host::tellError(place + message);
  }

  const Arguments& arguments_;
  Waiter& waiter_;
  const host::QueueName queue_;
  const platform::Text ppdText_;
  std::optional<host::JobBasis> basis_;
  host::JobOptions options_;
  AttributeKeys keys_;
  host::JobOptions::State saved_;
  std::vector<PlannedJob> planned_;
  std::set<std::string> told_;
};

}  // namespace

int printJobs(const Arguments& arguments, Waiter& waiter) {
  auto lines = linesOf(arguments);
  Jobs jobs(arguments, waiter, openedPrinter(arguments, waiter));
  return jobs.plan(std::move(lines)) ? jobs.send() : host::kFailed;
}

}  // namespace cardpanels::cardprint
