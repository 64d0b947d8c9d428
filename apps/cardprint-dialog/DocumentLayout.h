#pragma once

#include <array>
#include <string>
#include <vector>

#include "host/JobOption.h"

namespace cardpanels::cardprint {

/// Lengths in points, or an image's pixels.
struct Extent {
  double width = 0;
  double height = 0;
};

/// How a page or an image lies on cards, in the middle of each.
struct DocumentLayout {
  int turns = 0;     // quarters of a circle, counterclockwise
  Extent size = {};  // in points, before it is turned
  int columns = 1;   // of the cards that it is spread over, before it is turned
  int rows = 1;
};

/// As cups-filters lays a page of a PDF on a card, with what the job carries besides the printer's
/// options.
DocumentLayout layoutOfPage(const Extent& page, const Extent& card,
                            const std::vector<host::Option>& attributes);

/// The same of an image with that resolution of its own in pixels per inch, 0 when it names none.
DocumentLayout layoutOfImage(const Extent& pixels, double resolution, const Extent& card,
                             const std::vector<host::Option>& attributes);

/// Which of a document's pages, counted from 0, are printed first and second; -1 for none.
std::array<int, 2> firstPages(int pages, const std::vector<host::Option>& attributes);

}  // namespace cardpanels::cardprint
