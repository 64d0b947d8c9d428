#pragma once

#include <cairo.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "host/JobOption.h"

namespace cardpanels::cardprint {

/// A document as it will lie on cards of this size, in points.
struct CardDocument {
  std::string path;  // of a PDF or an image
  double width = 0;
  double height = 0;
  std::vector<host::Option> attributes = {};  // what the job carries besides the printer's options

  bool operator==(const CardDocument&) const = default;
};

/// What is on one side of the card.
struct DocumentPage {
  /// Fills the card; null where nothing is.
  std::shared_ptr<cairo_surface_t> surface;
  std::string why;  // it cannot be read, in a sentence; "" when it can
};

/// Draws what the job prints first and second of a document, pages of a PDF or an image and what of
/// it lies on the next card, as cups-filters lays them. On any thread; takes as long as the
/// document needs.
std::array<DocumentPage, 2> drawDocument(const CardDocument& document);

}  // namespace cardpanels::cardprint
