#include "dialog/AreaFaults.h"

#include <algorithm>
#include <sstream>
#include <string_view>
#include <utility>

#include "dialog/CardAreas.h"
#include "dialog/Measurement.h"
#include "host/JobOptions.h"
#include "platform/ASCII.h"
#include "platform/CustomPrefix.h"
#include "platform/Messages.h"

namespace cardpanels::dialog {
namespace {

using platform::_;
using platform::filled;

constexpr std::size_t kMeasurements = 4;

std::vector<std::string> areaKeys(const host::JobOptions& job) {
  std::vector<std::string> keys;
  for (const AreaSide& side : areaSides()) {
    for (const CardArea& area : areasOf(job, side)) keys.push_back(area.key);
  }
  return keys;
}

/// The words of `text`, a unit that stands alone with the number before it.
std::vector<std::string> measurementsIn(std::string_view text) {
  std::vector<std::string> all;
  std::istringstream words{std::string(text)};
  for (std::string word; words >> word;) {
    if (!all.empty() && isMeasurement(all.back() + " " + word)) {
      all.back() += " " + word;
    } else {
      all.push_back(word);
    }
  }
  return all;
}

/// `key` is an area's.
std::string faultOf(const host::JobOptions& job, const std::string& key) {
  const std::string value = job.marked(key).value_or("");
  if (!platform::startsIgnoringCase(value, platform::kCustomPrefix)) return {};
  const std::string text = value.substr(platform::kCustomPrefix.size());
  const auto measurements = measurementsIn(text);
  const auto wrong = std::find_if_not(measurements.begin(), measurements.end(), isMeasurement);
  if (wrong != measurements.end()) {
    return filled(_("“{area}” is no area: “{text}” is no measurement."),
                  {{"area", job.optionTitle(key)}, {"text", *wrong}});
  }
  if (measurements.empty() || measurements.size() == kMeasurements) return {};
  return filled(_("“{area}” must be four measurements, X, Y, width and height, not “{text}”."),
                {{"area", job.optionTitle(key)}, {"text", text}});
}

}  // namespace

std::string areaFault(const host::JobOptions& job, const std::string& key) {
  for (const std::string& each : areaKeys(job)) {
    if (platform::equalIgnoringCase(each, key)) return faultOf(job, each);
  }
  return {};
}

std::vector<std::string> areaFaults(const host::JobOptions& job) {
  std::vector<std::string> all;
  for (const std::string& key : areaKeys(job)) {
    std::string fault = faultOf(job, key);
    if (!fault.empty()) all.push_back(std::move(fault));
  }
  return all;
}

}  // namespace cardpanels::dialog
