#pragma once

#include <gtkmm/listitemfactory.h>

#include <functional>
#include <string>

namespace cardpanels::gtk4 {

/// How the rows of a drop-down list over a `Gtk::StringList` look.
struct TitleLook {
  int fewestCharacters;
  int mostCharacters = -1;                            // -1 for as many as there are
  std::function<std::string(guint row)> iconOf = {};  // the name of a row's icon; "" for none
};

/// Makes rows that show their titles, cut where there is no room.
Glib::RefPtr<Gtk::ListItemFactory> titleRows(const TitleLook& look);

}  // namespace cardpanels::gtk4
