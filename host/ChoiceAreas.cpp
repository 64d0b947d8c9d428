#include "host/ChoiceAreas.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <sstream>

#include "host/CardGeometry.h"
#include "host/Error.h"
#include "host/JobOptions.h"
#include "host/Measurement.h"
#include "host/PPDText.h"
#include "platform/ASCII.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::equalIgnoringCase;
using platform::filled;

constexpr const char* kArea = "cardpanelsArea";
constexpr const char* kOrigin = "cardpanelsOrigin";

/// An option and one of its choices by keyword.
struct Place {
  std::string option;
  std::string choice;
};

/// `OPTION.CHOICE`; a keyword has no point.
Place placeIn(const std::string& spec) {
  const std::size_t point = spec.find('.');
  if (point == std::string::npos) return {spec, ""};
  return {spec.substr(0, point), spec.substr(point + 1)};
}

bool hasLength(const std::string& measurement) {
  return pointsIn(measurement, CardGeometry::kUsualDotsPerInch).value_or(0) > 0;
}

std::optional<ChoiceArea> areaIn(const std::string& value) {
  ChoiceArea area;
  std::istringstream words(value);
  for (std::string& each : area) words >> each;
  std::string more;
  const bool isMore = static_cast<bool>(words >> more);
  const bool good = !isMore && std::all_of(area.begin(), area.end(), isMeasurement) &&
                    hasLength(area[2]) && hasLength(area[3]);
  if (!good) return std::nullopt;
  return area;
}

/// A statement's value without the quotes that it may stand in.
std::string valueOf(const PPDStatement& statement) {
  std::string_view value = platform::trimmed(statement.value);
  if (value.size() > 1 && value.front() == '"' && value.back() == '"') {
    value = value.substr(1, value.size() - 2);
  }
  return std::string(value);
}

/// Why the statement tells nothing about the card; "" when it does.
std::string faultOf(const PPDStatement& statement, ppd_file_t* ppd) {
  if (statement.keyword == kOrigin) {
    const std::string corner = valueOf(statement);
    if (equalIgnoringCase(corner, "TopLeft") || equalIgnoringCase(corner, "BottomLeft")) return {};
    return filled(_("*{keyword} is TopLeft or BottomLeft, not “{value}”."),
                  {{"keyword", kOrigin}, {"value", corner}});
  }
  if (statement.keyword != kArea) return {};
  const Place place = placeIn(statement.option);
  ppd_option_t* const option = ppdFindOption(ppd, place.option.c_str());
  if (option == nullptr || place.choice.empty() ||
      ppdFindChoice(option, place.choice.c_str()) == nullptr) {
    return filled(_("*{keyword} names “{place}”, which is no choice of an option of this PPD."),
                  {{"keyword", kArea}, {"place", statement.option}});
  }
  const std::string value = valueOf(statement);
  if (areaIn(value)) return {};
  return filled(_("“{value}” is no area: X, Y, width and height, such as “10mm 19mm 13mm 12mm”."),
                {{"value", value}});
}

}  // namespace

std::vector<ChoiceArea> choiceAreas(const JobOptions& job, const std::string& key) {
  std::vector<ChoiceArea> areas;
  const platform::Text marked = job.hasOption(key) ? job.marked(key) : std::nullopt;
  if (!marked) return areas;
  for (const ppd_attr_t* line = ppdFindAttr(job.ppd(), kArea, nullptr); line != nullptr;
       line = ppdFindNextAttr(job.ppd(), kArea, nullptr)) {
    const Place place = placeIn(line->spec);
    if (!equalIgnoringCase(place.option, key) || !equalIgnoringCase(place.choice, *marked))
      continue;
    if (auto area = areaIn(line->value != nullptr ? line->value : "")) {
      areas.push_back(*std::move(area));
    }
  }
  return areas;
}

void checkCardLines(const std::vector<PPDStatement>& statements, ppd_file_t* ppd,
                    const std::string& name) {
  for (const PPDStatement& statement : statements) {
    const std::string fault = faultOf(statement, ppd);
    if (!fault.empty()) throw Error::inLine(name, statement.line, fault);
  }
}

}  // namespace cardpanels::host
