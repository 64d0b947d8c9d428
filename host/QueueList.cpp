#include "host/QueueList.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "host/Destination.h"
#include "host/FetchedPPD.h"
#include "host/PrintServer.h"
#include "host/Question.h"
#include "host/SavedOptions.h"
#include "platform/ASCII.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

constexpr std::array<const char*, 6> kAttributes{"printer-name",
                                                 "printer-state",
                                                 "printer-state-reasons",
                                                 "printer-state-message",
                                                 "printer-is-accepting-jobs",
                                                 "document-format-supported"};

/// Whether the PPD's `text` opens the option, without reading all of it.
bool opens(std::string_view text, std::string_view keyword) {
  const std::string opening = "OpenUI *" + std::string(keyword);
  for (std::size_t at = text.find(opening); at != std::string_view::npos;
       at = text.find(opening, at + 1)) {
    const std::string_view rest = text.substr(at + opening.size());
    if (!rest.empty() && std::string_view(":/ \t").find(rest.front()) != std::string_view::npos)
      return true;
  }
  return false;
}

bool hasOption(Talk& talk, const std::string& queue, const std::vector<std::string>& keywords) {
  try {
    const FetchedPPD ppd(talk, destinationOf(talk, {queue, ""}));
    const std::string& text = ppd.text();
    return std::any_of(keywords.begin(), keywords.end(),
                       [&text](const std::string& each) { return opens(text, each); });
  } catch (const Error&) {
    return false;
  }
}

/// "" for none.
std::string defaultQueue(Talk& talk) {
  std::string name = userDefault().queue;
  if (!name.empty()) return name;
  const Ipp answer = talk.ask(queueRequest(IPP_OP_CUPS_GET_DEFAULT, ""));
  return isGranted(answer.get()) ? textIn(answer.get(), "printer-name") : "";
}

void take(ListedQueue& queue, ipp_attribute_t* attribute) {
  const std::string_view name = ippGetName(attribute);
  if (name == "printer-name") {
    queue.name = platform::onOneLine(ippGetString(attribute, 0, nullptr));
  } else if (name == "document-format-supported") {
    for (int i = 0; i < ippGetCount(attribute); ++i)
      queue.formats.emplace_back(ippGetString(attribute, i, nullptr));
  } else {
    takeState(queue.state, attribute);
  }
}

/// The queues in `answer`, whose attributes stand in a group each.
std::vector<ListedQueue> queuesIn(ipp_t* answer) {
  std::vector<ListedQueue> queues;
  bool isInGroup = false;
  for (ipp_attribute_t* each = ippFirstAttribute(answer); each != nullptr;
       each = ippNextAttribute(answer)) {
    const char* const given = ippGetName(each);
    if (ippGetGroupTag(each) != IPP_TAG_PRINTER || given == nullptr) {
      isInGroup = false;
      continue;
    }
    if (!isInGroup) queues.emplace_back();
    isInGroup = true;
    take(queues.back(), each);
  }
  std::erase_if(queues, [](const ListedQueue& each) { return each.name.empty(); });
  return queues;
}

std::vector<ListedQueue> listed(Talk& talk, const std::vector<std::string>& keywords) {
  const Ipp request = queueRequest(IPP_OP_CUPS_GET_PRINTERS, "");
  ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                static_cast<int>(kAttributes.size()), nullptr, kAttributes.data());
  const Ipp answer = talk.ask(request);
  if (ippGetStatusCode(answer.get()) == IPP_STATUS_ERROR_NOT_FOUND) return {};  // it has none
  if (!isGranted(answer.get())) failAtServer(statusText(answer.get()));
  auto queues = queuesIn(answer.get());
  const std::string standard = defaultQueue(talk);
  for (ListedQueue& each : queues) {
    each.isDefault = platform::equalIgnoringCase(each.name, standard);
    each.hasOptions = hasOption(talk, each.name, keywords);
  }
  return queues;
}

}  // namespace

std::vector<ListedQueue> listedQueues(std::span<const char* const> keywords, const Terms& terms) {
  const std::vector<std::string> kept(keywords.begin(), keywords.end());
  return answerOfServer<std::vector<ListedQueue>>(
      terms, [kept](Talk& talk) { return listed(talk, kept); });
}

}  // namespace cardpanels::host
