#pragma once

#include <gtk/gtk.h>

#include "ports/cairo/CardDrawing.h"

namespace cardpanels::gtk {

/// How high a line of text is in `widget`, in pixels.
double lineHeight(GtkWidget* widget);

/// The colours of the theme around `widget`. A page of the document is as white as paper, whatever
/// the theme.
cairo::CardColours themeColours(GtkWidget* widget, bool hasPage);

/// Takes the colours and the font of the theme around `widget` into `style`, whose page is known.
void takeTheme(GtkWidget* widget, cairo::CardStyle& style);

}  // namespace cardpanels::gtk
