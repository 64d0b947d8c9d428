#include "host/JobStates.h"

#include <array>

#include "host/PrintServer.h"
#include "host/Question.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;

constexpr std::array<const char*, 3> kJobAttributes{"job-state", "job-state-reasons",
                                                    "job-printer-state-message"};

JobState jobState(Talk& talk, const std::string& queue, int id) {
  const Ipp request = jobRequest(IPP_OP_GET_JOB_ATTRIBUTES, queue, id);
  ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                static_cast<int>(kJobAttributes.size()), nullptr, kJobAttributes.data());
  const Ipp answer = talk.ask(request);
  if (ippGetStatusCode(answer.get()) == IPP_STATUS_ERROR_NOT_FOUND)
    failAtServer(_("It does not know the job any more."));
  if (!isGranted(answer.get())) failAtServer(statusText(answer.get()));
  const int state = ippGetInteger(ippFindAttribute(answer.get(), "job-state", IPP_TAG_ENUM), 0);
  return {static_cast<ipp_jstate_t>(state), reasonsIn(answer.get(), "job-state-reasons"),
          textIn(answer.get(), "job-printer-state-message")};
}

}  // namespace

JobProgress jobProgress(const std::string& queue, int id, const Terms& terms) {
  return answerOfServer<JobProgress>(terms, [queue, id](Talk& talk) {
    JobProgress progress{jobState(talk, queue, id), {}};
    if (!progress.job.hasEnded()) progress.printer = printerState(talk, queue);
    return progress;
  });
}

}  // namespace cardpanels::host
