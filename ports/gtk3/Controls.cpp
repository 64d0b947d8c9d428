#include "ports/gtk3/Controls.h"

#include <gtkmm/cellrenderertext.h>
#include <gtkmm/cellview.h>
#include <gtkmm/cssprovider.h>
#include <gtkmm/notebook.h>
#include <gtkmm/stack.h>

#include "ports/gtk3/EntryMark.h"

namespace cardpanels::gtk3 {
namespace {

constexpr int kTitleColumn = 0;
constexpr int kFewestCharacters = 8;
/// A pop-up with more choices opens as a list. GTK's menu makes widgets for each, and looks through
/// all of them for each row that is added.
constexpr std::size_t kMostMenuItems = 60;

bool leaveToParent(GdkEventScroll* /*event*/, Gtk::Widget* widget) {
  g_signal_stop_emission_by_name(widget->gobj(), "scroll-event");
  return false;
}

Glib::RefPtr<Gtk::CssProvider> listAppearance() {
  static const auto provider = [] {
    auto made = Gtk::CssProvider::create();
    made->load_from_data("combobox { -GtkComboBox-appears-as-list: 1; }");
    return made;
  }();
  return provider;
}

}  // namespace

TabView::TabView(const Glib::RefPtr<Gtk::Widget>& tabs) : Viewed(tabs) {
  if (dynamic_cast<Gtk::Notebook*>(&widget()) == nullptr) return;
  // While a notebook loses its pages at its end, GTK looks up the tabs of pages that have gone,
  // with a critical warning, when assistive technology listens. A notebook without tabs is spared.
  g_signal_connect(widget().gobj(), "destroy", G_CALLBACK(+[](GtkNotebook* notebook, gpointer) {
                     gtk_notebook_set_show_tabs(notebook, FALSE);
                   }),
                   nullptr);
}

EntryField::EntryField(const Glib::RefPtr<Gtk::Widget>& entry_) : Viewed(entry_) {
  help_ = entry().get_tooltip_text();
  if (entry().get_max_length() == 0) entry().set_max_length(kMaximumLength);
  entry().signal_changed().connect(sigc::mem_fun(*this, &EntryField::changed));
  entry().signal_activate().connect(sigc::mem_fun(*this, &EntryField::activated));
  entry().signal_focus_out_event().connect(sigc::mem_fun(*this, &EntryField::focusLeft));
}

void EntryField::changed() { textChanged(!programSets()); }

void EntryField::setStringValue(const platform::Text& text) {
  const ProgramSets guard(*this);
  entry().set_text(text.value_or(""));
  textSet();
}

std::string EntryField::caption() const { return entry().get_accessible()->get_name(); }

void EntryField::mark(const platform::Text& why) { markEntry(entry(), why, help_); }

void EntryField::activated() {
  const auto self = shared_from_this();  // its page may let it go
  enter();
}

bool EntryField::focusLeft(GdkEventFocus* /*event*/) {
  const auto self = shared_from_this();
  leave();
  return false;
}

void Menu::addItem(const std::shared_ptr<platform::MenuItem>& item) {
  if (!item) return;
  items_.push_back(item);
  const Glib::ustring title = item->title().value_or("");
  rows_->append()->set_value(kTitleColumn, title);
}

std::shared_ptr<platform::MenuItem> Menu::itemAtIndex(std::int64_t index) {
  const bool there = index >= 0 && index < static_cast<std::int64_t>(items_.size());
  return there ? items_[static_cast<std::size_t>(index)] : nullptr;
}

void Menu::clear() {
  items_.clear();
  rows_->clear();
}

PopUpButton::PopUpButton(const Glib::RefPtr<Gtk::Widget>& comboBox_) : Viewed(comboBox_) {
  const auto rows = Glib::RefPtr<Gtk::ListStore>::cast_dynamic(comboBox().get_model());
  menu_ = std::make_shared<Menu>(rows);
  rows->signal_row_inserted().connect(
      sigc::hide(sigc::hide(sigc::mem_fun(*this, &PopUpButton::grown))));
  // A long title is cut where the window is small.
  for (auto* cell : comboBox().get_cells()) {
    if (auto* text = dynamic_cast<Gtk::CellRendererText*>(cell)) {
      text->property_ellipsize() = Pango::ELLIPSIZE_END;
      text->property_width_chars() = kFewestCharacters;
    }
  }
  // Turning the wheel over a pop-up scrolls the page and does not change the job.
  comboBox().signal_scroll_event().connect(sigc::bind(sigc::ptr_fun(&leaveToParent), &comboBox()),
                                           false);
}

void PopUpButton::grown() {
  if (opensAsList_ || comboBox().get_model()->children().size() <= kMostMenuItems) return;
  opensAsList_ = true;
  const auto style = comboBox().get_style_context();
  style->add_provider(listAppearance(), GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
  // By itself GTK would not look before the next frame, when the menu has all its widgets: asking
  // for a colour works the style out.
  style->get_color(style->get_state());
  g_signal_emit_by_name(comboBox().gobj(), "style-updated");
  // The pop-up is as wide as its chosen title, for GTK would lay out all titles to know the widest;
  // the list may be wider.
  dynamic_cast<Gtk::CellView&>(*comboBox().get_child()).set_fit_model(false);
  comboBox().set_popup_fixed_width(false);
}

void PopUpButton::removeAllItems() {
  const ProgramSets guard(*this);
  menu_->clear();
}

std::int64_t PopUpButton::indexOfSelectedItem() const { return comboBox().get_active_row_number(); }

void PopUpButton::selectItemAtIndex(std::int64_t index) {
  const ProgramSets guard(*this);
  comboBox().set_active(menu_->itemAtIndex(index) ? static_cast<int>(index) : -1);
}

std::shared_ptr<platform::View> viewOver(const Glib::RefPtr<Gtk::Widget>& widget) {
  const Gtk::Widget* const kind = widget.operator->();
  if (dynamic_cast<const Gtk::ComboBoxText*>(kind) != nullptr) {
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

}  // namespace cardpanels::gtk3
