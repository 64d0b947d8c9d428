#include "ports/gtk4/Captions.h"

#include <gtkmm/dropdown.h>
#include <gtkmm/entry.h>
#include <gtkmm/label.h>
#include <gtkmm/notebook.h>

#include <cstddef>
#include <string>
#include <vector>

#include "dialog/Mnemonics.h"
#include "ports/gtk4/AccessibleName.h"
#include "ports/gtk4/Children.h"

namespace cardpanels::gtk4 {
namespace {

struct Place {
  Gtk::Notebook* tabs = nullptr;
  int page = 0;
};

/// The labels with mnemonics, and what they are to say.
struct Labels {
  std::vector<Gtk::Label*> labels;
  std::vector<dialog::MnemonicCaption> captions;
};

bool isControl(Gtk::Widget& widget) {
  return dynamic_cast<Gtk::DropDown*>(&widget) != nullptr ||
         dynamic_cast<Gtk::Entry*>(&widget) != nullptr;
}

void collect(Gtk::Widget& widget, const Place& place, const dialog::Captions& captions,
             Labels& found) {
  if (isControl(widget)) return;
  auto* const label = dynamic_cast<Gtk::Label*>(&widget);
  if (label != nullptr && label->get_mnemonic_widget() != nullptr) {
    const auto title = dialog::titleByName(captions, label->get_name().raw());
    found.labels.push_back(label);
    found.captions.push_back({label->get_label(), title, place.tabs, place.page});
  }
  if (auto* const tabs = dynamic_cast<Gtk::Notebook*>(&widget)) {
    for (int page = 0; page < tabs->get_n_pages(); ++page) {
      collect(*tabs->get_nth_page(page), {tabs, page}, captions, found);
    }
    return;
  }
  forEachChild(widget, [&](Gtk::Widget& child) { collect(child, place, captions, found); });
}

/// A pop-up goes by its caption; a field, whose row has one for four, by its own name.
void nameControls(Gtk::Widget& widget, const dialog::Captions& captions) {
  if (!isControl(widget)) {
    forEachChild(widget, [&](Gtk::Widget& child) { nameControls(child, captions); });
    return;
  }
  auto title = dialog::titleByName(captions, widget.get_name().raw());
  for (auto* each : widget.list_mnemonic_labels()) {
    const auto* const label = dynamic_cast<const Gtk::Label*>(each);
    if (label == nullptr) continue;
    if (!title) title = dialog::titleByName(captions, label->get_name().raw());
    if (!title && accessibleName(widget).empty()) title = label->get_text().raw();
  }
  if (title) setAccessibleName(widget, *title);
}

}  // namespace

void giveCaptions(Gtk::Widget& top, const dialog::Captions& captions) {
  Labels found;
  collect(top, {}, captions, found);
  const auto texts = dialog::withMnemonics(found.captions, captions.besides);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    found.labels[i]->set_text_with_mnemonic(texts[i]);
  }
  nameControls(top, captions);
}

}  // namespace cardpanels::gtk4
