#pragma once

#include <gtk/gtk.h>

#include <string>

namespace cardpanels::gtkmodule {

/// Where values of an option are typed that are none of its choices: a field beside a drop-down
/// list, as in GTK 4.18. When GTK shows such a value it empties the field first, takes the empty
/// text for the option's value, frees the former one, and writes that into the field: the value is
/// lost, unless the field was empty. GTK 3 and 4.8 have no such field.
class TypedValue {
 public:
  /// In `widget`, which shows the option; null for an option that none shows.
  explicit TypedValue(GtkWidget* widget);
  ~TypedValue();
  TypedValue(const TypedValue&) = delete;
  TypedValue& operator=(const TypedValue&) = delete;

  /// Empties `option` if GTK has shown it with a typed value, the first time that it is asked.
  void forgetLost(GObject* option);

  /// Sets `option`, which the widget shows.
  void set(GObject* option, const std::string& value);

 private:
  bool exists() const { return field_ != nullptr && choices_ != nullptr; }

  // Null when GTK has destroyed them.
  GtkWidget* field_ = nullptr;
  GtkWidget* choices_ = nullptr;
};

}  // namespace cardpanels::gtkmodule
