#pragma once

#include <cairo.h>

#include <memory>
#include <string>

// The library's own names. NOLINTBEGIN(bugprone-reserved-identifier)
struct _PopplerDocument;
struct _PopplerPage;
// NOLINTEND(bugprone-reserved-identifier)

namespace cardpanels::cardprint {

/// A PDF file. Opens the library that reads it only for this.
class PDFDocument {
 public:
  /// Throws `std::runtime_error` with the reason, in words that complete a sentence.
  explicit PDFDocument(const std::string& path);

  int pages() const;

  /// The size of page `index` in points.
  void measure(int index, double& width, double& height) const;

  /// Draws the page as large as it is, on a transparent ground.
  void draw(int index, cairo_t* cr) const;

 private:
  std::shared_ptr<_PopplerPage> page(int index) const;

  std::shared_ptr<_PopplerDocument> document_;
};

}  // namespace cardpanels::cardprint
