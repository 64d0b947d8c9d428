#pragma once

#include <gtk/gtkunixprint.h>

#include <array>

namespace cardpanels::gtkmodule {

/// Keeps the user of GTK's print dialog from printing while something is wrong. GTK itself makes
/// Print sensitive and insensitive as printers come and go, and goes on to have its way when this
/// lets go.
class PrintGuard {
 public:
  /// Over `dialog`, which must outlive this.
  explicit PrintGuard(GtkPrintUnixDialog* dialog);
  ~PrintGuard();
  PrintGuard(const PrintGuard&) = delete;
  PrintGuard& operator=(const PrintGuard&) = delete;

  /// Makes Print and Preview insensitive, or as GTK wants them.
  void hold(bool held);

 private:
  struct Button {
    GtkWidget* widget = nullptr;  // null when the dialog lacks it
    bool wanted = false;          // what GTK wants
  };

  void sensitivityChanged(GtkWidget* widget);
  bool takesJobs() const;

  GtkPrintUnixDialog* dialog_;
  std::array<Button, 2> buttons_;  // Print and Preview
  bool held_ = false;
  bool setting_ = false;  // a change is our own
};

}  // namespace cardpanels::gtkmodule
