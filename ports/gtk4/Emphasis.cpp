#include "ports/gtk4/Emphasis.h"

#include <pangomm/attributes.h>
#include <pangomm/attrlist.h>

#include "dialog/Captions.h"
#include "ports/gtk4/Children.h"

namespace cardpanels::gtk4 {
namespace {

template <class IsBold>
void emphasize(Gtk::Widget& widget, const IsBold& isBold) {
  if (auto* const label = dynamic_cast<Gtk::Label*>(&widget)) {
    if (const auto key = dialog::optionOfCaption(label->get_name().raw())) {
      makeBold(*label, isBold(*key));
    }
    return;
  }
  forEachChild(widget, [&isBold](Gtk::Widget& child) { emphasize(child, isBold); });
}

}  // namespace

/// A label that loses its attributes would still look as it did.
void makeBold(Gtk::Label& label, bool bold) {
  Pango::AttrList attributes;
  auto weight =
      Pango::Attribute::create_attr_weight(bold ? Pango::Weight::BOLD : Pango::Weight::NORMAL);
  attributes.insert(weight);
  label.set_attributes(attributes);
}

void emphasizeCaptions(Gtk::Widget& widget, const std::set<std::string>& keys) {
  emphasize(widget, [&keys](const std::string& key) { return keys.contains(key); });
}

void emphasizeAllCaptions(Gtk::Widget& widget) {
  emphasize(widget, [](const std::string& /*key*/) { return true; });
}

}  // namespace cardpanels::gtk4
