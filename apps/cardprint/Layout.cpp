#include "apps/cardprint/Layout.h"

#include <algorithm>
#include <charconv>

#include "platform/ASCII.h"
#include "platform/Messages.h"

namespace cardpanels::cardprint {
namespace {

using platform::_;

constexpr const char* kOrientation = "orientation-requested";
constexpr const char* kLandscape = "landscape";  // as lp takes it
constexpr const char* kFit = "fit-to-page";

bool isTrue(const platform::Text& value) {
  return value && !platform::equalIgnoringCase(*value, "false") &&
         !platform::equalIgnoringCase(*value, "no") && !platform::equalIgnoringCase(*value, "off");
}

/// Gives the job `value`, which it need not carry where it has it without.
void set(DialogJob& job, const char* key, const std::string& value, const std::string& usual) {
  job.setAttribute({key, ""});
  if (job.attribute(key).value_or(usual) != value) job.setAttribute({key, value});
}

}  // namespace

int copiesOf(const DialogJob& job) {
  const std::string text = job.attribute(kCopies).value_or("");
  int copies = 1;
  std::from_chars(text.data(), text.data() + text.size(), copies);
  return std::clamp(copies, 1, kMostCopies);
}

void setCopies(DialogJob& job, int copies) { set(job, kCopies, std::to_string(copies), "1"); }

std::vector<Orientation> orientations() {
  return {{"", _("Automatic")},
          {"3", _("Portrait")},
          {"4", _("Landscape")},
          {"5", _("Reverse landscape")},
          {"6", _("Reverse portrait")}};
}

std::size_t orientationOf(const DialogJob& job) {
  const std::string usual = isTrue(job.attribute(kLandscape)) ? "4" : "";
  const std::string value = job.attribute(kOrientation).value_or(usual);
  const auto all = orientations();
  const auto found = std::find_if(
      all.begin(), all.end(), [&value](const Orientation& each) { return each.value == value; });
  return found == all.end() ? 0 : static_cast<std::size_t>(found - all.begin());
}

void setOrientation(DialogJob& job, const std::string& value) {
  job.setAttribute({kLandscape, ""});
  job.setAttribute({kOrientation, value});
}

bool isFitted(const DialogJob& job) {
  return isTrue(job.attribute(kFit)) || isTrue(job.attribute("fitplot")) ||
         job.attribute("print-scaling") == "fit";
}

void setFitted(DialogJob& job, bool isFitted) {
  for (const char* key : {"fitplot", "print-scaling"}) job.setAttribute({key, ""});
  set(job, kFit, isFitted ? "true" : "false", "false");
}

}  // namespace cardpanels::cardprint
