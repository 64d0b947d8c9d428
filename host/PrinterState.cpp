#include "host/PrinterState.h"

#include <array>
#include <string_view>

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
  PrinterState state;
  for (ipp_attribute_t* each = ippFirstAttribute(answer); each != nullptr;
       each = ippNextAttribute(answer)) {
    takeState(state, each);
  }
  return state;
}

}  // namespace

void takeState(PrinterState& state, ipp_attribute_t* attribute) {
  const char* const given = ippGetName(attribute);
  const std::string_view name = given == nullptr ? "" : given;
  if (name == "printer-state") {
    state.isStopped = ippGetInteger(attribute, 0) == IPP_PSTATE_STOPPED;
  } else if (name == "printer-is-accepting-jobs") {
    state.isAccepting = ippGetBoolean(attribute, 0) != 0;
  } else if (name == "printer-state-reasons") {
    state.reasons = reasonsOf(attribute);
  } else if (name == "printer-state-message") {
    state.message = textOf(attribute);
  }
}

PrinterState printerState(const std::string& queue, const Terms& terms) {
  return answerOfServer<PrinterState>(terms,
                                      [queue](Talk& talk) { return printerState(talk, queue); });
}

PrinterState printerState(Talk& talk, const std::string& queue) {
  return stateIn(asked(talk, queue).get());
}

}  // namespace cardpanels::host
