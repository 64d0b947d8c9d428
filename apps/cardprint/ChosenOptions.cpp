#include "apps/cardprint/ChosenOptions.h"

#include <utility>

#include "dialog/AreaFaults.h"
#include "dialog/AreaWarnings.h"
#include "dialog/PageTexts.h"
#include "host/Error.h"
#include "host/JobAttributes.h"
#include "host/MediaOption.h"
#include "platform/Messages.h"

namespace cardpanels::cardprint {
namespace {

using platform::_;

constexpr const char* kTitle = "job-name";

bool isOfPPD(const host::JobOptions& job, const std::string& key) {
  return job.hasOption(key) || host::isMedia(job.ppd(), key);
}

[[noreturn]] void failAt(const host::Option& option, const std::string& reason) {
  throw host::Error("-o " + option.key + "=" + option.value + ": " + reason);
}

}  // namespace

bool AttributeKeys::contains(const std::string& key) {
  if (key == kTitle || host::isJobAttribute(key)) return true;
  if (queue_.empty()) return false;
  if (!ofServer_) {
    ofServer_ = waitedFor<std::set<std::string>>(
        waiter_, _("Reading the printer's options…"), [queue = queue_](const host::Terms& terms) {
          return host::supportedJobAttributes(queue, terms);
        });
  }
  return ofServer_->contains(key);
}

void checkOption(const host::JobOptions& job, const host::Option& option, AttributeKeys& keys) {
  if (!isOfPPD(job, option.key) && keys.contains(option.key)) return;
  try {
    job.check(option);
  } catch (const host::Error& error) {
    failAt(option, error.what());
  }
}

ChosenOptions choose(host::JobOptions& job, const std::vector<host::Option>& given,
                     AttributeKeys& keys) {
  ChosenOptions chosen;
  std::vector<host::Option> ofPPD;
  host::OptionList attributes;
  for (const host::Option& each : given) {
    checkOption(job, each, keys);
    if (isOfPPD(job, each.key)) {
      ofPPD.push_back(each);
    } else if (each.key == kTitle) {
      chosen.title = each.value;
    } else {
      attributes.set(each);
    }
  }
  chosen.attributes = attributes.options();
  host::ChangeResult result = job.requestAll(ofPPD);
  if (!result.granted) throw host::Error(result.message);
  for (const host::Option& each : ofPPD) {
    const std::string fault = dialog::areaFault(job, each.key);
    if (!fault.empty()) failAt(each, fault);
  }
  chosen.notice = std::move(result.message);
  return chosen;
}

std::vector<std::string> judged(const host::JobOptions& job) {
  const auto conflicts = job.conflicts();
  if (!conflicts.empty()) {
    throw host::Error(platform::filled(_("Options of this job exclude each other: {conflicts}"),
                                       {{"conflicts", dialog::joined(conflicts, " ")}}));
  }
  const auto faults = dialog::areaFaults(job);
  if (!faults.empty()) throw host::Error(dialog::joined(faults, " "));
  std::vector<std::string> warnings;
  for (dialog::AreaWarning& each : dialog::areaWarnings(job)) {
    warnings.push_back(std::move(each.sentence));
  }
  return warnings;
}

}  // namespace cardpanels::cardprint
