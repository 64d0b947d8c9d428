#pragma once

#include <string>
#include <vector>

#include "dialog/CardAreas.h"

namespace cardpanels::host {
struct CardGeometry;
class JobOptions;
}  // namespace cardpanels::host

namespace cardpanels::dialog {

/// Why something about an area cannot be what the user wants. It can be printed all the same.
struct AreaWarning {
  enum class Kind { noArea, noSize, partlyOutside, whollyOutside, covered };

  Kind kind;
  std::string key;  // of the area's option; of the side's where an area is missing
  std::string sentence;
  std::vector<AreaColumn> columns = {};  // where to type something else
  double across = 0;                     // how much is off the card, in points
  double down = 0;
};

/// What is wrong with `areas` of `side` on this card, in their order: all are empty; no width or
/// height, or zero; off the card, by more than half a dot and 0.1 mm; an area to include that one
/// to exclude covers wholly. Nothing where `job` is not marked so that they count. A text that is
/// no measurement leaves its area out; a missing X or Y is 0.
std::vector<AreaWarning> areaWarnings(const host::JobOptions& job, const AreaSide& side,
                                      const std::vector<CardArea>& areas,
                                      const host::CardGeometry& card);

/// The same for all sides, as `job` is marked.
std::vector<AreaWarning> areaWarnings(const host::JobOptions& job);

}  // namespace cardpanels::dialog
