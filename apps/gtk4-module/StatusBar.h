#pragma once

#include <gtk/gtk.h>

#include <functional>
#include <string>

namespace cardpanels::gtk4module {

/// A bar at the foot of a dialog that tells what is to be seen on the page Card, and shows it.
class StatusBar {
 public:
  /// In `dialog`, which must outlive this, or emit `destroy` no later than this is destroyed.
  /// `show` is what the bar's button does.
  StatusBar(GtkDialog* dialog, std::function<void()> show);
  ~StatusBar();
  StatusBar(const StatusBar&) = delete;
  StatusBar& operator=(const StatusBar&) = delete;

  /// Tells `text`; there is no bar without any.
  void tell(const std::string& text, GtkMessageType type);

 private:
  std::function<void()> show_;
  GtkWidget* bar_;  // kept
  GtkWidget* label_;
};

}  // namespace cardpanels::gtk4module
