#include "host/JobAttributes.h"

#include <cups/cups.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "host/JobOption.h"
#include "host/PrintServer.h"
#include "host/Question.h"
#include "platform/ASCII.h"

namespace cardpanels::host {
namespace {

/// What libcups sends as a name, like any word that it does not know, and what tells it the
/// documents' format.
constexpr std::array<std::string_view, 5> kHidden{"job-account-id", "job-accounting-user-id",
                                                  "job-sheets", "document-format", "raw"};

/// What libcups does not know, but programs of CUPS 2.4 and cups-filters 1.28 look for.
constexpr std::array<std::string_view, 20> kOfFilters{
    // cupsd
    "job-billing", "outputorder", "page-label", "page-set",
    // pdftopdf
    "booklet", "booklet-signature", "collate", "crop-to-fit", "emit-jcl", "fill", "output-order",
    "page-border", "page-logging", "pdftopdf-form-flattening", "pdftopdfAutoRotate", "position",
    // pdftops
    "pdftops-renderer",
    // texttopdf
    "cpi", "lpi", "wrap"};

constexpr std::array<const char*, 2> kSupportedAttributes{"job-creation-attributes-supported",
                                                          "job-template"};
constexpr std::string_view kSupportedEnding = "-supported";

/// Whether libcups makes more of `key` than of any word when it makes a job.
bool isKnownToLibcups(const std::string& key) {
  const Ipp request(ippNew());
  ippSetOperation(request.get(), IPP_OP_CREATE_JOB);
  const OptionList options({{key, "x"}});
  for (const ipp_tag_t group : {IPP_TAG_OPERATION, IPP_TAG_JOB, IPP_TAG_SUBSCRIPTION}) {
    cupsEncodeOptions2(request.get(), options.count, options.list, group);
  }
  ipp_attribute_t* const sent = ippFirstAttribute(request.get());
  return sent != nullptr && ippGetValueTag(sent) != IPP_TAG_NAME;
}

std::set<std::string> namedIn(ipp_t* answer) {
  std::set<std::string> keys;
  ipp_attribute_t* const named =
      ippFindAttribute(answer, kSupportedAttributes.front(), IPP_TAG_KEYWORD);
  for (int i = 0; i < ippGetCount(named); ++i) keys.insert(ippGetString(named, i, nullptr));
  for (ipp_attribute_t* each = ippFirstAttribute(answer); each != nullptr;
       each = ippNextAttribute(answer)) {
    const std::string_view name = ippGetName(each) == nullptr ? "" : ippGetName(each);
    if (!name.ends_with(kSupportedEnding)) continue;
    keys.emplace(name.substr(0, name.size() - kSupportedEnding.size()));
  }
  return keys;
}

}  // namespace

bool isJobAttribute(const std::string& key) {
  const auto isKey = [&key](std::string_view each) {
    return platform::equalIgnoringCase(each, key);
  };
  return isKnownToLibcups(key) || std::find(kHidden.begin(), kHidden.end(), key) != kHidden.end() ||
         std::any_of(kOfFilters.begin(), kOfFilters.end(), isKey);
}

std::set<std::string> supportedJobAttributes(const std::string& queue, const Terms& terms) {
  return answerOfServer<std::set<std::string>>(terms, [queue](Talk& talk) {
    const Ipp request = queueRequest(IPP_OP_GET_PRINTER_ATTRIBUTES, queue);
    ippAddStrings(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                  static_cast<int>(kSupportedAttributes.size()), nullptr,
                  kSupportedAttributes.data());
    const Ipp answer = talk.ask(request);
    if (!isGranted(answer.get())) failAtServer(statusText(answer.get()));
    return namedIn(answer.get());
  });
}

}  // namespace cardpanels::host
