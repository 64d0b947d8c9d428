#pragma once

#include <string>
#include <vector>

#include "dialog/AreaRectangle.h"
#include "dialog/AreaWarnings.h"
#include "dialog/CardAreas.h"
#include "host/CardGeometry.h"

namespace cardpanels::host {
class JobOptions;
}

namespace cardpanels::dialog {

/// One area in the picture of a side.
struct CardShape {
  std::string key;  // of its option
  bool include = true;
  int number = 1;  // among its kind
  AreaRectangle place;
  AreaTexts texts;
  std::vector<AreaWarning> warnings;  // what is wrong with it
};

/// What the picture of one side of the card shows.
struct CardScene {
  host::CardGeometry card;
  bool isBack = false;
  std::vector<CardShape> shapes;     // in the order of the fields
  std::vector<AreaRectangle> fixed;  // where the choice lies, if the PPD tells that
  std::string fixedTitle;            // that choice's
  std::string blank;                 // why the document is not behind, in a sentence

  /// Whether there is a side to scale, and something to show on it.
  bool isShown = false;
};

/// The side as `job` is marked, with the areas that `typed` tells in place of the job's. The areas
/// have shapes where they count; what is no measurement has none, and the one that the user begins
/// to type, `begun`, has none before it has a size, and is not judged.
CardScene cardScene(const host::JobOptions& job, const AreaSide& side, const TypedTexts& typed,
                    const std::string& begun = {});

}  // namespace cardpanels::dialog
