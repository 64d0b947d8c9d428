#include "ports/gtk4/TitleRows.h"

#include <gtkmm/box.h>
#include <gtkmm/image.h>
#include <gtkmm/label.h>
#include <gtkmm/listitem.h>
#include <gtkmm/signallistitemfactory.h>
#include <gtkmm/stringobject.h>

namespace cardpanels::gtk4 {
namespace {

constexpr int kIconSpacing = 6;

}  // namespace

Glib::RefPtr<Gtk::ListItemFactory> titleRows(const TitleLook& look) {
  auto factory = Gtk::SignalListItemFactory::create();
  factory->signal_setup().connect([look](const Glib::RefPtr<Gtk::ListItem>& item) {
    auto* const title = Gtk::make_managed<Gtk::Label>();
    title->set_xalign(0);
    title->set_hexpand();
    title->set_ellipsize(Pango::EllipsizeMode::END);
    title->set_width_chars(look.fewestCharacters);
    title->set_max_width_chars(look.mostCharacters);
    auto* const row = Gtk::make_managed<Gtk::Box>(Gtk::Orientation::HORIZONTAL, kIconSpacing);
    row->append(*title);
    row->append(*Gtk::make_managed<Gtk::Image>());
    item->set_child(*row);
  });
  factory->signal_bind().connect([look](const Glib::RefPtr<Gtk::ListItem>& item) {
    const auto text = std::dynamic_pointer_cast<Gtk::StringObject>(item->get_item());
    auto* const row = item->get_child();
    if (!text || row == nullptr) return;
    if (auto* const title = dynamic_cast<Gtk::Label*>(row->get_first_child())) {
      title->set_text(text->get_string());
    }
    if (auto* const image = dynamic_cast<Gtk::Image*>(row->get_last_child())) {
      const std::string icon = look.iconOf ? look.iconOf(item->get_position()) : "";
      image->set_from_icon_name(icon);
      image->set_visible(!icon.empty());
    }
  });
  return factory;
}

}  // namespace cardpanels::gtk4
