#pragma once

#include <gtkmm/eventcontrollerkey.h>
#include <gtkmm/widget.h>
#include <sigc++/connection.h>

#include <functional>

namespace cardpanels::gtk4 {

/// The keys that do something wherever the focus is in the window of a page.
class PageKeys {
 public:
  struct Actions {
    std::function<void()> previous;  // Ctrl+Page Up
    std::function<void()> next;      // Ctrl+Page Down
    std::function<void()> help;      // F1
  };

  /// The keys work while `page`, which must outlive this, is mapped. Ctrl+Page Up and Down stay
  /// those of a notebook that `page` is in, where the focus is in that but not in `page`.
  PageKeys(Gtk::Widget& page, Actions actions);
  ~PageKeys();
  PageKeys(const PageKeys&) = delete;
  PageKeys& operator=(const PageKeys&) = delete;

 private:
  void connect();
  void disconnect();
  bool pressed(guint key, Gdk::ModifierType state);
  const std::function<void()>* actionOf(guint key, Gdk::ModifierType state) const;
  bool isForNotebook() const;

  Gtk::Widget& page_;
  Actions actions_;
  Glib::RefPtr<Gtk::EventControllerKey> keys_;
  GtkWidget* window_ = nullptr;  // that has them, kept
  sigc::connection mapped_;
  sigc::connection unmapped_;
  sigc::connection pressed_;
};

}  // namespace cardpanels::gtk4
