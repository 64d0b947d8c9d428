#include "apps/cardprint-dialog/DocumentPages.h"

#include <gdk-pixbuf/gdk-pixbuf.h>
#include <gdk/gdk.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <numbers>
#include <stdexcept>

#include "apps/cardprint-dialog/DocumentLayout.h"
#include "apps/cardprint-dialog/PDFDocument.h"
#include "platform/Messages.h"

namespace cardpanels::cardprint {
namespace {

using platform::_;

constexpr double kPixelsAPoint = 4;
/// Draws what `draw` draws in `extent` onto a blank card: the one with that number of those that
/// `layout` spreads it over.
std::shared_ptr<cairo_surface_t> drawn(const CardDocument& document, const DocumentLayout& layout,
                                       int number, const Extent& extent,
                                       const std::function<void(cairo_t*)>& draw) {
  std::shared_ptr<cairo_surface_t> surface(
      cairo_image_surface_create(CAIRO_FORMAT_RGB24,
                                 static_cast<int>(std::ceil(document.width * kPixelsAPoint)),
                                 static_cast<int>(std::ceil(document.height * kPixelsAPoint))),
      cairo_surface_destroy);
  const std::shared_ptr<cairo_t> cr(cairo_create(surface.get()), cairo_destroy);
  cairo_set_source_rgb(cr.get(), 1, 1, 1);
  cairo_paint(cr.get());
  cairo_scale(cr.get(), kPixelsAPoint, kPixelsAPoint);
  cairo_translate(cr.get(), document.width / 2, document.height / 2);
  cairo_rotate(cr.get(), -layout.turns * std::numbers::pi / 2);
  const double width = layout.size.width / layout.columns;
  const double height = layout.size.height / layout.rows;
  cairo_translate(cr.get(), -width / 2, -height / 2);
  cairo_rectangle(cr.get(), 0, 0, width, height);
  cairo_clip(cr.get());
  const int column = number / layout.rows;
  const int row = number % layout.rows;
  cairo_translate(cr.get(), -column * width, -row * height);
  cairo_scale(cr.get(), layout.size.width / extent.width, layout.size.height / extent.height);
  draw(cr.get());
  return surface;
}

Extent cardOf(const CardDocument& document) { return {document.width, document.height}; }

std::array<DocumentPage, 2> drawPDF(const CardDocument& document) {
  const PDFDocument pdf(document.path);
  std::array<DocumentPage, 2> sides;
  const auto pages = firstPages(pdf.pages(), document.attributes);
  for (std::size_t side = 0; side < sides.size(); ++side) {
    const int page = pages.at(side);
    if (page < 0) continue;
    Extent size;
    pdf.measure(page, size.width, size.height);
    if (!(size.width > 0) || !(size.height > 0)) throw std::runtime_error(_("it is damaged"));
    const DocumentLayout layout = layoutOfPage(size, cardOf(document), document.attributes);
    sides.at(side).surface =
        drawn(document, layout, 0, size, [&](cairo_t* cr) { pdf.draw(page, cr); });
  }
  return sides;
}

/// Pixels per inch, 0 when the image names none.
double resolutionOf(GdkPixbuf* image) {
  const char* const told = gdk_pixbuf_get_option(image, "x-dpi");
  return told == nullptr ? 0 : std::strtod(told, nullptr);
}

std::array<DocumentPage, 2> drawImage(const CardDocument& document) {
  GError* error = nullptr;
  const std::shared_ptr<GdkPixbuf> image(gdk_pixbuf_new_from_file(document.path.c_str(), &error),
                                         [](GdkPixbuf* each) {
                                           if (each != nullptr) g_object_unref(each);
                                         });
  if (error != nullptr) {
    const bool isOther =
        g_error_matches(error, GDK_PIXBUF_ERROR, GDK_PIXBUF_ERROR_UNKNOWN_TYPE) != FALSE;
    g_error_free(error);
    throw std::runtime_error(isOther ? _("it is neither PDF nor an image") : _("it is damaged"));
  }
  const Extent pixels{static_cast<double>(gdk_pixbuf_get_width(image.get())),
                      static_cast<double>(gdk_pixbuf_get_height(image.get()))};
  const DocumentLayout layout =
      layoutOfImage(pixels, resolutionOf(image.get()), cardOf(document), document.attributes);
  std::array<DocumentPage, 2> sides;
  for (int number = 0; number < std::min(2, layout.columns * layout.rows); ++number) {
    sides.at(static_cast<std::size_t>(number)).surface =
        drawn(document, layout, number, pixels, [&](cairo_t* cr) {
          gdk_cairo_set_source_pixbuf(cr, image.get(), 0, 0);
          cairo_paint(cr);
        });
  }
  return sides;
}

bool isPDF(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::string start(1024, '\0');
  file.read(start.data(), static_cast<std::streamsize>(start.size()));
  return start.find("%PDF-") != std::string::npos;
}

}  // namespace

std::array<DocumentPage, 2> drawDocument(const CardDocument& document) {
  try {
    return isPDF(document.path) ? drawPDF(document) : drawImage(document);
  } catch (const std::runtime_error& error) {
    const std::string why =
        platform::filled(_("The document cannot be shown: {reason}"), {{"reason", error.what()}});
    return {DocumentPage{nullptr, why}, DocumentPage{nullptr, why}};
  }
}

}  // namespace cardpanels::cardprint
