#include "dialog/JobNews.h"

#include <utility>
#include <vector>

#include "dialog/JobStateText.h"
#include "dialog/PageTexts.h"
#include "dialog/PrinterStateText.h"
#include "dialog/StateWatch.h"
#include "platform/Messages.h"

namespace cardpanels::dialog {
namespace {

using platform::_;
using platform::filled;

bool isPrinted(const std::optional<host::JobState>& job) {
  return job && job->state == IPP_JSTATE_COMPLETED;
}

}  // namespace

std::optional<News> JobNews::next(const JobsRead& read) {
  if (!read.haveAllEnded()) {
    const bool wasStopped = std::exchange(isStopped_, read.printer.isStopped);
    if (wasStopped || !isStopped_) return std::nullopt;
    return News{queue_, stateLine(StateRead{read.printer}, nullptr)};
  }
  std::size_t printed = 0;
  std::vector<std::string> losses;
  for (const auto& [id, job] : read.jobs) {
    if (isPrinted(job)) {
      ++printed;
    } else {
      losses.push_back(queue_ + "-" + std::to_string(id) + ": " +
                       (job ? lossLine(*job) : _("Not known to the print server any more")));
    }
  }
  const std::string title =
      filled(_("{printed} of {all} jobs printed"),
             {{"printed", std::to_string(printed)}, {"all", std::to_string(read.jobs.size())}});
  return News{queue_ + ": " + title, joined(losses, "\n")};
}

}  // namespace cardpanels::dialog
