#pragma once

#include <gtkmm/widget.h>

#include <functional>

namespace cardpanels::gtk3 {

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
  bool pressed(const GdkEventKey& event);
  const std::function<void()>* actionOf(const GdkEventKey& event) const;
  bool isForNotebook() const;

  Gtk::Widget& page_;
  Actions actions_;
  sigc::connection mapped_;
  sigc::connection unmapped_;
  sigc::connection keys_;
};

}  // namespace cardpanels::gtk3
