#include "ports/gtk4/Controls.h"

#include <gtkmm/cssprovider.h>
#include <gtkmm/eventcontrollerfocus.h>
#include <gtkmm/notebook.h>
#include <gtkmm/stack.h>

#include "ports/gtk4/AccessibleName.h"
#include "ports/gtk4/TitleRows.h"

namespace cardpanels::gtk4 {
namespace {

constexpr int kFewestCharacters = 8;
constexpr const char* kMeasurement = "cardpanels-measurement";

/// A marked field is told by its frame and icon; the theme's red on a dark ground is hard to read.
void makeMarkedTextReadable() {
  static const auto provider = [] {
    auto made = Gtk::CssProvider::create();
    made->load_from_data("entry.cardpanels-measurement.error { color: @theme_text_color; }");
    gtk_style_context_add_provider_for_display(gdk_display_get_default(),
                                               GTK_STYLE_PROVIDER(made->gobj()),
                                               GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
    return made;
  }();
}

}  // namespace

EntryField::EntryField(const Glib::RefPtr<Gtk::Widget>& entry_) : Viewed(entry_) {
  if (entry().get_max_length() == 0) entry().set_max_length(kMaximumLength);
  makeMarkedTextReadable();
  entry().add_css_class(kMeasurement);
  entry().signal_changed().connect(sigc::mem_fun(*this, &EntryField::changed));
  entry().signal_activate().connect(sigc::mem_fun(*this, &EntryField::activated));
  const auto focus = Gtk::EventControllerFocus::create();
  focus->signal_leave().connect(sigc::mem_fun(*this, &EntryField::focusLeft));
  entry().add_controller(focus);
}

void EntryField::changed() { textChanged(!programSets()); }

void EntryField::setStringValue(const platform::Text& text) {
  const ProgramSets guard(*this);
  entry().set_text(text.value_or(""));
  textSet();
}

std::string EntryField::caption() const { return accessibleName(widget()); }

/// The focus is on a part of the entry.
bool EntryField::hasFocus() const {
  GtkWidget* const own = widget().gobj();
  GtkRoot* const root = gtk_widget_get_root(own);
  GtkWidget* const focus = root == nullptr ? nullptr : gtk_root_get_focus(root);
  return focus != nullptr && (focus == own || gtk_widget_is_ancestor(focus, own) != FALSE);
}

void EntryField::mark(const platform::Text& why) {
  const std::string help = why.value_or(help_);
  if (why) {
    entry().add_css_class("error");
    entry().set_icon_from_icon_name("dialog-error-symbolic", Gtk::Entry::IconPosition::SECONDARY);
    entry().set_icon_tooltip_text(help, Gtk::Entry::IconPosition::SECONDARY);
  } else {
    entry().remove_css_class("error");
    entry().unset_icon(Gtk::Entry::IconPosition::SECONDARY);
  }
  entry().set_tooltip_text(help);
  setAccessibleDescription(entry(), help);
}

void EntryField::activated() {
  const auto self = shared_from_this();  // its page may let it go
  enter();
}

void EntryField::focusLeft() {
  const auto self = shared_from_this();
  leave();
}

void Menu::addItem(const std::shared_ptr<platform::MenuItem>& item) {
  if (!item) return;
  items_.push_back(item);
  show_(item->title().value_or(""));
}

std::shared_ptr<platform::MenuItem> Menu::itemAtIndex(std::int64_t index) {
  const bool there = index >= 0 && index < static_cast<std::int64_t>(items_.size());
  return there ? items_[static_cast<std::size_t>(index)] : nullptr;
}

PopUpButton::PopUpButton(const Glib::RefPtr<Gtk::Widget>& dropDown_)
    : Viewed(dropDown_),
      titles_(Gtk::StringList::create({})),
      menu_(std::make_shared<Menu>(sigc::mem_fun(*this, &PopUpButton::show))) {
  dropDown().set_factory(titleRows({kFewestCharacters}));
  dropDown().set_model(titles_);
}

/// The drop-down list would select the first title as it comes.
void PopUpButton::show(const std::string& title) {
  const ProgramSets guard(*this);
  const guint before = menu_->count() - 1;
  const std::int64_t selected = selectedOf(before);
  titles_->splice(before, 0, {title});
  select(selected);
}

void PopUpButton::removeAllItems() {
  const ProgramSets guard(*this);
  menu_->clear();
  titles_->splice(0, titles_->get_n_items(), {});
  select(-1);
}

/// An item, or none with -1.
void PopUpButton::select(std::int64_t index) {
  const guint count = menu_->count();
  if (index >= 0) {
    dropDown().set_selected(static_cast<guint>(index));
    if (hasEmptyTitle()) titles_->remove(count);
  } else if (count > 0) {
    if (!hasEmptyTitle()) titles_->append("");
    dropDown().set_selected(count);
  }
  told_ = index;
}

/// A drop-down list tells twice of a change during which another item is selected.
bool PopUpButton::isUsersChange() {
  if (programSets()) return false;
  const std::int64_t selected = indexOfSelectedItem();
  return selected >= 0 && selected != std::exchange(told_, selected);
}

std::int64_t PopUpButton::indexOfSelectedItem() const { return selectedOf(menu_->count()); }

std::int64_t PopUpButton::selectedOf(guint count) const {
  const guint selected = dropDown().get_selected();
  return selected < count ? static_cast<std::int64_t>(selected) : -1;
}

void PopUpButton::selectItemAtIndex(std::int64_t index) {
  const ProgramSets guard(*this);
  select(menu_->itemAtIndex(index) ? index : -1);
}

std::shared_ptr<platform::View> viewOver(const Glib::RefPtr<Gtk::Widget>& widget) {
  const Gtk::Widget* const kind = widget.get();
  if (dynamic_cast<const Gtk::DropDown*>(kind) != nullptr) {
    return std::make_shared<PopUpButton>(widget);
  }
  if (dynamic_cast<const Gtk::Entry*>(kind) != nullptr) return std::make_shared<EntryField>(widget);
  if (dynamic_cast<const Gtk::Label*>(kind) != nullptr) return std::make_shared<LabelField>(widget);
  if (dynamic_cast<const Gtk::Notebook*>(kind) != nullptr ||
      dynamic_cast<const Gtk::Stack*>(kind) != nullptr) {
    return std::make_shared<TabView>(widget);
  }
  return std::make_shared<View>(widget);
}

}  // namespace cardpanels::gtk4
