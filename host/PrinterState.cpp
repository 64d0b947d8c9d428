#include "host/PrinterState.h"

#include <array>

#include "host/PrintServer.h"
#include "host/Question.h"

namespace cardpanels::host {
namespace {

constexpr std::array<const char*, 4> kAttributes{
    "printer-state", "printer-state-reasons", "printer-state-message", "printer-is-accepting-jobs"};

Ipp asked(Talk& talk, const std::string& queue) {
  const Ipp request = queueRequest(IPP_OP_GET_PRINTER_ATTRIBUTES, queue);
  ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                static_cast<int>(kAttributes.size()), nullptr, kAttributes.data());
  Ipp answer = talk.ask(request);
  if (ippGetStatusCode(answer.get()) == IPP_STATUS_ERROR_NOT_FOUND) failWithoutQueue(queue);
  if (!isGranted(answer.get())) failAtServer(statusText(answer.get()));
  return answer;
}

PrinterState stateIn(ipp_t* answer) {
  const auto attribute = [&](const char* name) {
    return ippFindAttribute(answer, name, IPP_TAG_ZERO);
  };
  PrinterState state;
  state.isStopped = ippGetInteger(attribute("printer-state"), 0) == IPP_PSTATE_STOPPED;
  ipp_attribute_t* const accepting = attribute("printer-is-accepting-jobs");
  state.isAccepting = accepting == nullptr || ippGetBoolean(accepting, 0) != 0;
  state.reasons = reasonsIn(answer, "printer-state-reasons");
  state.message = textIn(answer, "printer-state-message");
  return state;
}

}  // namespace

PrinterState printerState(const std::string& queue, const Terms& terms) {
  return answerOfServer<PrinterState>(terms,
                                      [queue](Talk& talk) { return printerState(talk, queue); });
}

PrinterState printerState(Talk& talk, const std::string& queue) {
  return stateIn(asked(talk, queue).get());
}

}  // namespace cardpanels::host
