#include "host/QueueList.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "host/FetchedQueue.h"
#include "host/PPDRecords.h"
#include "host/PrintServer.h"
#include "host/Question.h"
#include "host/RemoteQueue.h"
#include "host/SavedOptions.h"
#include "platform/ASCII.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

constexpr int kSecondsElsewhere = 2;  // for another server, while somebody looks at the list

constexpr std::array<const char*, 7> kListedAttributes{"printer-name",
                                                       "printer-state",
                                                       "printer-state-reasons",
                                                       "printer-state-message",
                                                       "printer-is-accepting-jobs",
                                                       "document-format-supported",
                                                       "device-uri"};

struct FoundQueue {
  ListedQueue queue;
  bool isElsewhere = false;
};

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
    const auto text = localPPDText(talk, queue);
    return text && std::any_of(keywords.begin(), keywords.end(),
                               [&text](const std::string& each) { return opens(*text, each); });
  } catch (const Error&) {
    return false;
  }
}

bool hasOptionElsewhere(const std::string& queue, std::span<const char* const> keywords,
                        Terms terms) {
  terms.seconds = std::min(terms.seconds, kSecondsElsewhere);
  try {
    const FetchedQueue fetched = fetchQueue({queue, ""}, terms);
    return std::any_of(keywords.begin(), keywords.end(), [&fetched](const char* each) {
      return findOption(fetched.ppd.get(), each) != nullptr;
    });
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

/// "" for what is no text.
std::string attributeText(ipp_attribute_t* attribute, int place) {
  const char* const text = ippGetString(attribute, place, nullptr);
  return text == nullptr ? "" : text;
}

void take(FoundQueue& found, ipp_attribute_t* attribute) {
  ListedQueue& queue = found.queue;
  const std::string_view name = ippGetName(attribute);
  if (name == "printer-name") {
    queue.name = platform::onOneLine(attributeText(attribute, 0));
  } else if (name == "document-format-supported") {
    for (int i = 0; i < ippGetCount(attribute); ++i)
      queue.formats.push_back(attributeText(attribute, i));
  } else if (name == "device-uri") {
    found.isElsewhere = remoteQueueOf(attributeText(attribute, 0)).has_value();
  } else {
    takeState(queue.state, attribute);
  }
}

/// The queues in `answer`, whose attributes stand in a group each.
std::vector<FoundQueue> queuesIn(ipp_t* answer) {
  std::vector<FoundQueue> queues;
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
  std::erase_if(queues, [](const FoundQueue& each) { return each.queue.name.empty(); });
  return queues;
}

std::vector<FoundQueue> listed(Talk& talk, const std::vector<std::string>& keywords) {
  const Ipp request = queueRequest(IPP_OP_CUPS_GET_PRINTERS, "");
  ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                static_cast<int>(kListedAttributes.size()), nullptr, kListedAttributes.data());
  const Ipp answer = talk.ask(request);
  if (ippGetStatusCode(answer.get()) == IPP_STATUS_ERROR_NOT_FOUND) return {};  // it has none
  if (!isGranted(answer.get())) failAtServer(statusText(answer.get()));
  auto queues = queuesIn(answer.get());
  const std::string standard = defaultQueue(talk);
  for (auto& [each, isElsewhere] : queues) {
    each.isDefault = platform::equalIgnoringCase(each.name, standard);
    each.hasOptions = hasOption(talk, each.name, keywords);
  }
  return queues;
}

}  // namespace

std::vector<ListedQueue> listedQueues(std::span<const char* const> keywords, const Terms& terms) {
  const std::vector<std::string> kept(keywords.begin(), keywords.end());
  auto found = answerOfServer<std::vector<FoundQueue>>(
      terms, [kept](Talk& talk) { return listed(talk, kept); });
  std::vector<ListedQueue> queues;
  for (auto& [each, isElsewhere] : found) {
    if (isElsewhere && !each.hasOptions)
      each.hasOptions = hasOptionElsewhere(each.name, keywords, terms);
    queues.push_back(std::move(each));
  }
  return queues;
}

}  // namespace cardpanels::host
