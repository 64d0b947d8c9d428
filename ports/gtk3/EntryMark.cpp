#include "ports/gtk3/EntryMark.h"

#include <gtkmm/cssprovider.h>

namespace cardpanels::gtk3 {
namespace {

/// A marked field is told by its frame and icon; the theme's red on a dark ground is hard to read.
Glib::RefPtr<Gtk::CssProvider> readableText() {
  static const auto provider = [] {
    auto made = Gtk::CssProvider::create();
    made->load_from_data("entry.error { color: @theme_text_color; }");
    return made;
  }();
  return provider;
}

}  // namespace

void markEntry(Gtk::Entry& entry, const platform::Text& why, const Glib::ustring& help) {
  const Glib::ustring told = why ? Glib::ustring(*why) : help;
  const auto style = entry.get_style_context();
  if (why) {
    style->add_provider(readableText(), GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
    style->add_class("error");
    entry.set_icon_from_icon_name("dialog-error-symbolic", Gtk::ENTRY_ICON_SECONDARY);
    entry.set_icon_tooltip_text(told, Gtk::ENTRY_ICON_SECONDARY);
  } else {
    style->remove_class("error");
    entry.unset_icon(Gtk::ENTRY_ICON_SECONDARY);
  }
  entry.set_tooltip_text(told);
  entry.get_accessible()->set_description(told);
}

}  // namespace cardpanels::gtk3
