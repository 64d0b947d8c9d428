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

/// Draws the first page of a document, and the second one of a PDF for the back. Scaled as the
/// job's `fit-to-page`, `fill` or `print-scaling` says; else a page larger than the card is made to
/// fit, and another one keeps its size, in the middle. A page that lies the other way is turned. On
/// any thread; takes as long as the document needs.
std::array<DocumentPage, 2> drawDocument(const CardDocument& document);

}  // namespace cardpanels::cardprint
