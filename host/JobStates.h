#pragma once

#include <cups/ipp.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/PrinterState.h"
#include "host/Terms.h"

namespace cardpanels::host {

/// What the print server says about a job at one time.
struct JobState {
  ipp_jstate_t state = IPP_JSTATE_PENDING;
  std::vector<std::string> reasons = {};  // IPP's keywords, such as `job-canceled-by-user`
  std::string message = {};               // the printer's or a filter's, in any language

  /// Whether nothing comes of it any more: cupsd lets a job stand stopped when its filters have
  /// failed, until a person starts it again.
  bool hasEnded() const { return state >= IPP_JSTATE_STOPPED; }
  bool operator==(const JobState&) const = default;
};

/// A job, and the printer that it waits for.
struct JobProgress {
  JobState job;
  PrinterState printer;  // asked for only until the job has ended
};

/// Asks the print server how far the job `id` of `queue` is, and waits for that as long as `terms`
/// say. Throws `Error`, also for a job that the server does not know any more.
JobProgress jobProgress(const std::string& queue, int id, const Terms& terms = {});

/// Several jobs of a queue, and its printer.
struct JobsProgress {
  /// By number; nothing for a job that the server does not know any more.
  std::map<int, std::optional<JobState>> jobs = {};
  PrinterState printer = {};
  bool operator==(const JobsProgress&) const = default;
};

/// Asks how far the jobs `ids` of `queue` are: with one question for all that have not ended, and
/// one more for each that has. Throws `Error`.
JobsProgress jobsProgress(const std::string& queue, const std::vector<int>& ids,
                          const Terms& terms = {});

}  // namespace cardpanels::host
