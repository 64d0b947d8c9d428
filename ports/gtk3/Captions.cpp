#include "ports/gtk3/Captions.h"

#include <gdk/gdkkeysyms.h>
#include <gtkmm/combobox.h>
#include <gtkmm/entry.h>
#include <gtkmm/label.h>
#include <gtkmm/notebook.h>

#include <cstddef>
#include <string>
#include <vector>

#include "dialog/Mnemonics.h"

namespace cardpanels::gtk3 {
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

void collect(Gtk::Widget& widget, const Place& place, const dialog::Captions& captions,
             Labels& found) {
  auto* const label = dynamic_cast<Gtk::Label*>(&widget);
  if (label != nullptr && label->get_mnemonic_widget() != nullptr) {
    const auto title = dialog::titleByName(captions, label->get_name().raw());
    found.labels.push_back(label);
    found.captions.push_back({label->get_label(), title, place.tabs, place.page});
  }
  auto* const container = dynamic_cast<Gtk::Container*>(&widget);
  if (container == nullptr) return;
  auto* const tabs = dynamic_cast<Gtk::Notebook*>(container);
  for (auto* child : container->get_children()) {
    collect(*child, tabs != nullptr ? Place{tabs, tabs->page_num(*child)} : place, captions, found);
  }
}

/// A pop-up goes by its caption; a field, whose row has one for four, by its own name.
void nameControls(Gtk::Widget& widget, const dialog::Captions& captions) {
  if (GTK_IS_COMBO_BOX(widget.gobj()) || GTK_IS_ENTRY(widget.gobj())) {
    auto title = dialog::titleByName(captions, widget.get_name().raw());
    for (auto* each : widget.list_mnemonic_labels()) {
      const auto* const label = dynamic_cast<const Gtk::Label*>(each);
      if (label == nullptr) continue;
      if (!title) title = dialog::titleByName(captions, label->get_name().raw());
      if (!title && widget.get_accessible()->get_name().empty()) title = label->get_text().raw();
    }
    if (title) {
      forEachAccessible(widget,
                        [&](AtkObject* each) { atk_object_set_name(each, title->c_str()); });
    }
  }
  auto* const container = dynamic_cast<Gtk::Container*>(&widget);
  if (container == nullptr) return;
  for (auto* child : container->get_children()) nameControls(*child, captions);
}

}  // namespace

void forEachAccessible(Gtk::Widget& control, const Visit& visit) {
  visit(gtk_widget_get_accessible(control.gobj()));
  if (!GTK_IS_COMBO_BOX(control.gobj())) return;
  gtk_container_forall(
      GTK_CONTAINER(control.gobj()),
      [](GtkWidget* part, gpointer data) {
        const auto visitButton = [](GtkWidget* each, gpointer given) {
          if (!GTK_IS_TOGGLE_BUTTON(each)) return;
          (*static_cast<Visit*>(given))(gtk_widget_get_accessible(each));
        };
        visitButton(part, data);
        if (GTK_IS_CONTAINER(part)) gtk_container_forall(GTK_CONTAINER(part), visitButton, data);
      },
      const_cast<Visit*>(&visit));
}

void giveCaptions(Gtk::Widget& top, const dialog::Captions& captions) {
  Labels found;
  collect(top, {}, captions, found);
  const auto texts = dialog::withMnemonics(found.captions, captions.besides);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    found.labels[i]->set_text_with_mnemonic(texts[i]);
  }
  nameControls(top, captions);
}

}  // namespace cardpanels::gtk3
