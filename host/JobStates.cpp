#include "host/JobStates.h"

#include <array>
#include <string_view>
#include <utility>

#include "host/PrintServer.h"
#include "host/Question.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;

constexpr std::array<const char*, 4> kJobAttributes{"job-id", "job-state", "job-state-reasons",
                                                    "job-printer-state-message"};

void askForState(ipp_t* request) {
  ippAddStrings(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                static_cast<int>(kJobAttributes.size()), nullptr, kJobAttributes.data());
}

/// Nothing when the server does not know the job any more.
std::optional<JobState> knownState(Talk& talk, const std::string& queue, int id) {
  const Ipp request = jobRequest(IPP_OP_GET_JOB_ATTRIBUTES, queue, id);
  askForState(request.get());
  const Ipp answer = talk.ask(request);
  if (ippGetStatusCode(answer.get()) == IPP_STATUS_ERROR_NOT_FOUND) return std::nullopt;
  if (!isGranted(answer.get())) failAtServer(statusText(answer.get()));
  const int state = ippGetInteger(ippFindAttribute(answer.get(), "job-state", IPP_TAG_ENUM), 0);
  return JobState{static_cast<ipp_jstate_t>(state), reasonsIn(answer.get(), "job-state-reasons"),
                  textIn(answer.get(), "job-printer-state-message")};
}

JobState jobState(Talk& talk, const std::string& queue, int id) {
  auto state = knownState(talk, queue, id);
  if (!state) failAtServer(_("It does not know the job any more."));
  return std::move(*state);
}

void take(std::pair<int, JobState>& job, ipp_attribute_t* attribute) {
  const std::string_view name = ippGetName(attribute);
  if (name == "job-id") {
    job.first = ippGetInteger(attribute, 0);
  } else if (name == "job-state") {
    job.second.state = static_cast<ipp_jstate_t>(ippGetInteger(attribute, 0));
  } else if (name == "job-state-reasons") {
    job.second.reasons = reasonsOf(attribute);
  } else if (name == "job-printer-state-message") {
    job.second.message = textOf(attribute);
  }
}

/// All jobs of `queue` that have not ended, by number.
std::map<int, JobState> waitingJobs(Talk& talk, const std::string& queue) {
  const Ipp request = queueRequest(IPP_OP_GET_JOBS, queue);
  askForState(request.get());
  const Ipp answer = talk.ask(request);
  if (!isGranted(answer.get())) failAtServer(statusText(answer.get()));
  std::map<int, JobState> jobs;
  std::pair<int, JobState> job;
  for (ipp_attribute_t* each = ippFirstAttribute(answer.get());;
       each = ippNextAttribute(answer.get())) {
    const bool isOfJob =
        each != nullptr && ippGetName(each) != nullptr && ippGetGroupTag(each) == IPP_TAG_JOB;
    if (isOfJob) {
      take(job, each);
    } else if (job.first != 0) {
      jobs.insert(std::exchange(job, {}));
    }
    if (each == nullptr) return jobs;
  }
}

}  // namespace

JobProgress jobProgress(const std::string& queue, int id, const Terms& terms) {
  return answerOfServer<JobProgress>(terms, [queue, id](Talk& talk) {
    JobProgress progress{jobState(talk, queue, id), {}};
    if (!progress.job.hasEnded()) progress.printer = printerState(talk, queue);
    return progress;
  });
}

JobsProgress jobsProgress(const std::string& queue, const std::vector<int>& ids,
                          const Terms& terms) {
  return answerOfServer<JobsProgress>(terms, [queue, ids](Talk& talk) {
    const auto waiting = waitingJobs(talk, queue);
    JobsProgress progress;
    for (const int id : ids) {
      const auto found = waiting.find(id);
      progress.jobs[id] =
          found == waiting.end() ? knownState(talk, queue, id) : std::optional(found->second);
    }
    progress.printer = printerState(talk, queue);
    return progress;
  });
}

}  // namespace cardpanels::host
