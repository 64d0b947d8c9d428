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

#include "apps/cardprint-dialog/PDFDocument.h"
#include "platform/ASCII.h"
#include "platform/Messages.h"

namespace cardpanels::cardprint {
namespace {

using platform::_;
using platform::equalIgnoringCase;

constexpr double kPixelsAPoint = 4;
constexpr double kUsualImageResolution = 128;  // of the print server's filters

enum class Fit { larger, all, fill, none };

Fit fitOf(const CardDocument& document) {
  const host::OptionList options(document.attributes);
  const auto isOn = [&options](const char* key) {
    const std::string value = options.value(key).value_or("false");
    return !equalIgnoringCase(value, "false") && !equalIgnoringCase(value, "no") && value != "0";
  };
  const std::string scaling = options.value("print-scaling").value_or("");
  if (isOn("fill") || equalIgnoringCase(scaling, "fill")) return Fit::fill;
  if (equalIgnoringCase(scaling, "none")) return Fit::none;
  if (isOn("fit-to-page") || isOn("fitplot") || equalIgnoringCase(scaling, "fit")) return Fit::all;
  return Fit::larger;
}

double scaleOf(Fit fit, double across, double down) {
  switch (fit) {
    case Fit::fill: return std::max(across, down);
    case Fit::all: return std::min(across, down);
    case Fit::larger: return std::min({across, down, 1.0});
    case Fit::none: break;
  }
  return 1;
}

/// Draws something of this size in points onto a blank card.
std::shared_ptr<cairo_surface_t> drawn(const CardDocument& document, double width, double height,
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
  const bool isTurned = (width > height) != (document.width > document.height) && width != height;
  if (isTurned) cairo_rotate(cr.get(), -std::numbers::pi / 2);
  const double across = (isTurned ? document.height : document.width) / width;
  const double down = (isTurned ? document.width : document.height) / height;
  const double scale = scaleOf(fitOf(document), across, down);
  cairo_scale(cr.get(), scale, scale);
  cairo_translate(cr.get(), -width / 2, -height / 2);
  draw(cr.get());
  return surface;
}

std::array<DocumentPage, 2> drawPDF(const CardDocument& document) {
  const PDFDocument pdf(document.path);
  std::array<DocumentPage, 2> sides;
  for (int index = 0; index < std::min(pdf.pages(), 2); ++index) {
    double width = 0;
    double height = 0;
    pdf.measure(index, width, height);
    if (!(width > 0) || !(height > 0)) throw std::runtime_error(_("it is damaged"));
    sides.at(static_cast<std::size_t>(index)).surface =
        drawn(document, width, height, [&](cairo_t* cr) { pdf.draw(index, cr); });
  }
  return sides;
}

/// Points a pixel of the image.
double pixelSize(GdkPixbuf* image) {
  const char* const told = gdk_pixbuf_get_option(image, "x-dpi");
  const double resolution = told == nullptr ? 0 : std::strtod(told, nullptr);
  return 72 / (resolution > 0 ? resolution : kUsualImageResolution);
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
  const double size = pixelSize(image.get());
  std::array<DocumentPage, 2> sides;
  sides[0].surface = drawn(document, gdk_pixbuf_get_width(image.get()) * size,
                           gdk_pixbuf_get_height(image.get()) * size, [&](cairo_t* cr) {
                             cairo_scale(cr, size, size);
                             gdk_cairo_set_source_pixbuf(cr, image.get(), 0, 0);
                             cairo_paint(cr);
                           });
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
