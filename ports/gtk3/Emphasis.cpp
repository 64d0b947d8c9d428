#include "ports/gtk3/Emphasis.h"

#include <gtkmm/container.h>
#include <pangomm/attributes.h>

#include "dialog/Captions.h"

namespace cardpanels::gtk3 {
namespace {

template <class IsBold>
void emphasize(Gtk::Widget& widget, const IsBold& isBold) {
  if (auto* const label = dynamic_cast<Gtk::Label*>(&widget)) {
    if (const auto key = dialog::optionOfCaption(label->get_name().raw())) {
      makeBold(*label, isBold(*key));
    }
  }
  auto* const container = dynamic_cast<Gtk::Container*>(&widget);
  if (container == nullptr) return;
  for (Gtk::Widget* child : container->get_children()) emphasize(*child, isBold);
}

}  // namespace

void makeBold(Gtk::Label& label, bool bold) {
  Pango::AttrList attributes;
  if (bold) {
    auto weight = Pango::Attribute::create_attr_weight(Pango::WEIGHT_BOLD);
    attributes.insert(weight);
  }
  label.set_attributes(attributes);
}

void emphasizeCaptions(Gtk::Widget& widget, const std::set<std::string>& keys) {
  emphasize(widget, [&keys](const std::string& key) { return keys.contains(key); });
}

void emphasizeAllCaptions(Gtk::Widget& widget) {
  emphasize(widget, [](const std::string& /*key*/) { return true; });
}

}  // namespace cardpanels::gtk3
