#include "host/PrinterState.h"

#include <array>

#include "host/Error.h"
#include "host/PrintServer.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

constexpr std::array<const char*, 4> kAttributes{
    "printer-state", "printer-state-reasons", "printer-state-message", "printer-is-accepting-jobs"};

Ipp asked(http_t* http, const std::string& queue) {
  Ipp request = queueRequest(IPP_OP_GET_PRINTER_ATTRIBUTES, queue);
  ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                static_cast<int>(kAttributes.size()), nullptr, kAttributes.data());
  Ipp answer = answered(http, std::move(request));
  if (cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND) failWithoutQueue(queue);
  if (!answer || cupsLastError() > IPP_STATUS_OK_CONFLICTING) failAtServer(cupsLastErrorString());
  return answer;
}

std::vector<std::string> reasonsIn(ipp_attribute_t* attribute) {
  std::vector<std::string> reasons;
  for (int i = 0; i < ippGetCount(attribute); ++i) {
    const char* const reason = ippGetString(attribute, i, nullptr);
    if (reason != nullptr && std::string_view(reason) != "none") reasons.emplace_back(reason);
  }
  return reasons;
}

}  // namespace

PrinterState printerState(const std::string& queue, int seconds,
                          const std::atomic<bool>& abandoned) {
  Waiting waiting{std::chrono::steady_clock::now() + std::chrono::seconds(seconds), abandoned};
  const Ipp answer = asked(connected(seconds, waiting).get(), queue);
  const auto attribute = [&](const char* name) {
    return ippFindAttribute(answer.get(), name, IPP_TAG_ZERO);
  };
  PrinterState state;
  state.isStopped = ippGetInteger(attribute("printer-state"), 0) == IPP_PSTATE_STOPPED;
  ipp_attribute_t* const accepting = attribute("printer-is-accepting-jobs");
  state.isAccepting = accepting == nullptr || ippGetBoolean(accepting, 0) != 0;
  state.reasons = reasonsIn(attribute("printer-state-reasons"));
  const char* const message = ippGetString(attribute("printer-state-message"), 0, nullptr);
  if (message != nullptr) state.message = platform::onOneLine(message);
  return state;
}

}  // namespace cardpanels::host
