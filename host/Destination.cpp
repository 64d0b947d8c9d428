#include "host/Destination.h"

#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "host/Error.h"
#include "host/MediaOption.h"
#include "host/PrintServer.h"
#include "host/SavedOptions.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::filled;

/// Of the defaults only those that libcups asks for, too: `lp` leaves the others to the server.
constexpr std::array<const char*, 5> kAttributes{
    "printer-name", "printer-defaults", "job-sheets-default", "member-names", "device-uri"};
constexpr std::string_view kDefaultEnding = "-default";

/// Get-Printer-Attributes, or CUPS-Get-Default when `queue` is empty. Nothing when there is no
/// such queue.
Ipp attributesOf(Talk& talk, const std::string& queue) {
  const Ipp request =
      queueRequest(queue.empty() ? IPP_OP_CUPS_GET_DEFAULT : IPP_OP_GET_PRINTER_ATTRIBUTES, queue);
  ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                static_cast<int>(kAttributes.size()), nullptr, kAttributes.data());
  Ipp answer = talk.ask(request);
  if (ippGetStatusCode(answer.get()) == IPP_STATUS_ERROR_NOT_FOUND) return nullptr;
  if (!isGranted(answer.get())) failAtServer(statusText(answer.get()));
  return answer;
}

bool isOptionsValue(ipp_tag_t tag) {
  switch (tag) {
    case IPP_TAG_BOOLEAN:
    case IPP_TAG_ENUM:
    case IPP_TAG_INTEGER:
    case IPP_TAG_KEYWORD:
    case IPP_TAG_NAME:
    case IPP_TAG_RANGE: return true;
    default: return false;
  }
}

std::string numbersOf(ipp_attribute_t* attribute) {
  std::string numbers;
  for (int i = 0; i < ippGetCount(attribute); ++i) {
    numbers += (i == 0 ? "" : ",") + std::to_string(ippGetInteger(attribute, i));
  }
  return numbers;
}

/// The value as an option has it.
std::string valueOf(ipp_attribute_t* attribute) {
  // ippAttributeString would name the numbers.
  if (ippGetValueTag(attribute) == IPP_TAG_ENUM) return numbersOf(attribute);
  // ippAttributeString would escape quotes.
  const char* const exact = ippGetString(attribute, 0, nullptr);
  if (exact != nullptr && ippGetCount(attribute) == 1) return exact;
  std::array<char, 4096> text{};
  ippAttributeString(attribute, text.data(), text.size());
  return text.data();
}

/// What the server adds to a job that lacks it, as `lp` and other programs see it: notifications
/// and the quality are left to the server. The administrator's media comes before the PPD's.
OptionList defaultsIn(ipp_t* attributes) {
  OptionList defaults;
  for (ipp_attribute_t* each = ippFirstAttribute(attributes); each != nullptr;
       each = ippNextAttribute(attributes)) {
    const char* const name = ippGetName(each);
    if (name == nullptr || !isOptionsValue(ippGetValueTag(each))) continue;
    const std::string_view whole = name;
    if (whole.size() <= kDefaultEnding.size() ||
        whole.substr(whole.size() - kDefaultEnding.size()) != kDefaultEnding ||
        whole.substr(0, 7) == "notify-" || whole.substr(0, 14) == "print-quality-") {
      continue;
    }
    const std::string option(whole.substr(0, whole.size() - kDefaultEnding.size()));
    if (option != "media" || !defaults.value(option)) defaults.set({option, valueOf(each)});
  }
  return defaults;
}

std::vector<std::string> textsIn(ipp_t* answer, const char* name) {
  std::vector<std::string> texts;
  ipp_attribute_t* const attribute = ippFindAttribute(answer, name, IPP_TAG_ZERO);
  for (int i = 0; i < ippGetCount(attribute); ++i) {
    const char* const text = ippGetString(attribute, i, nullptr);
    if (text != nullptr) texts.emplace_back(text);
  }
  return texts;
}

}  // namespace

Destination destinationOf(Talk& talk, const QueueName& name) {
  QueueName wanted = name.queue.empty() ? userDefault() : name;
  const Ipp attributes = attributesOf(talk, wanted.queue);
  if (!attributes) {
    if (wanted.queue.empty()) throw Error(_("There is no default queue; name one."));
    failWithoutQueue(wanted.queue);
  }
  const auto names = textsIn(attributes.get(), "printer-name");
  if (names.empty() || names.front().empty() || names.front() != platform::onOneLine(names.front()))
    failAtServer(_("It does not tell the queue's name."));
  wanted.queue = names.front();
  auto saved = savedUnder(wanted);
  if (!saved && !wanted.instance.empty()) {
    throw Error(filled(_("The queue {queue} has no instance {instance}."),
                       {{"queue", platform::onOneLine(wanted.queue)},
                        {"instance", platform::onOneLine(wanted.instance)}}));
  }
  Destination destination{std::move(wanted), defaultsIn(attributes.get()),
                          textsIn(attributes.get(), "member-names"),
                          textIn(attributes.get(), "device-uri")};
  destination.media = destination.options.value("media");
  destination.serverOptions = destination.options.options();
  if (saved) {
    for (const Option& each : saved->options()) destination.options.set(each);
  }
  return destination;
}

JobBasis basisOf(const Destination& destination, ppd_file_t* ppd) {
  JobBasis basis{.queue = destination.name.queue, .options = {}};
  for (Option& each : destination.options.options()) {
    if (!isOfPPD(ppd, each.key)) basis.options.push_back(std::move(each));
  }
  const platform::Text media = destination.options.value("media");
  basis.addsMedia = media && media == destination.media && isMedia(ppd, "media");
  return basis;
}

}  // namespace cardpanels::host
