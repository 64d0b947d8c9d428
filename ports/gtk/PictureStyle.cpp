#include "ports/gtk/PictureStyle.h"

#include <memory>

namespace cardpanels::gtk {
namespace {

cairo::Colour themeColour(GtkWidget* widget, const char* name, const char* otherwise) {
  GdkRGBA colour;
  if (gtk_style_context_lookup_color(gtk_widget_get_style_context(widget), name, &colour) ==
      FALSE) {
    gdk_rgba_parse(&colour, otherwise);
  }
  return {colour.red, colour.green, colour.blue};
}

/// The one that Pango takes, where the theme's is not installed; empty for none.
std::string fontFamily(GtkWidget* widget) {
  PangoContext* const context = gtk_widget_get_pango_context(widget);
  const std::shared_ptr<PangoFont> font(
      pango_context_load_font(context, pango_context_get_font_description(context)),
      [](PangoFont* loaded) { g_clear_object(&loaded); });
  if (!font) return {};
  const std::shared_ptr<PangoFontDescription> found(pango_font_describe(font.get()),
                                                    pango_font_description_free);
  const char* const family = pango_font_description_get_family(found.get());
  return family == nullptr ? "" : family;
}

}  // namespace

double lineHeight(GtkWidget* widget) {
  PangoContext* const context = gtk_widget_get_pango_context(widget);
  const std::shared_ptr<PangoFontMetrics> metrics(
      pango_context_get_metrics(context, pango_context_get_font_description(context), nullptr),
      pango_font_metrics_unref);
  const int units =
      pango_font_metrics_get_ascent(metrics.get()) + pango_font_metrics_get_descent(metrics.get());
  return units / double{PANGO_SCALE};
}

cairo::CardColours themeColours(GtkWidget* widget, bool hasPage) {
  constexpr cairo::Colour kWhite{1, 1, 1};
  const cairo::Colour ink = themeColour(widget, "theme_text_color", "black");
  const cairo::Colour onCard = hasPage ? cairo::Colour() : ink;
  return {.card = hasPage ? kWhite : themeColour(widget, "theme_base_color", "white"),
          .ink = ink,
          .onCard = onCard,
          .area = cairo::readable(themeColour(widget, "theme_selected_bg_color", "blue"), onCard),
          .error = cairo::readable(themeColour(widget, "error_color", "red"), onCard)};
}

void takeTheme(GtkWidget* widget, cairo::CardStyle& style) {
  style.colours = themeColours(widget, style.page != nullptr);
  if (std::string family = fontFamily(widget); !family.empty()) style.fontFamily = family;
  style.fontSize = 0.8 * lineHeight(widget);
}

}  // namespace cardpanels::gtk
