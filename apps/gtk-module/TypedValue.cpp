#include "apps/gtk-module/TypedValue.h"

#include "apps/gtk-module/Widgets.h"

namespace cardpanels::gtkmodule {
namespace {

void setValue(GObject* option, const std::string& value) {
  g_object_set(option, "value", value.c_str(), nullptr);
}

}  // namespace

TypedValue::~TypedValue() {
  g_clear_weak_pointer(&field_);
  g_clear_weak_pointer(&choices_);
}

#if GTK_CHECK_VERSION(4, 0, 0)

namespace {

constexpr const char* kWasAsked = "cardpanels-was-asked";

/// Whether the field has the text of the choice that is selected.
bool showsChoice(GtkWidget* field, GtkWidget* choices) {
  void* const choice = gtk_drop_down_get_selected_item(GTK_DROP_DOWN(choices));
  if (choice == nullptr) return false;
  char* text = nullptr;
  g_object_get(choice, "string", &text, nullptr);
  const bool isText = g_strcmp0(text, gtk_editable_get_text(GTK_EDITABLE(field))) == 0;
  g_free(text);
  return isText;
}

}  // namespace

TypedValue::TypedValue(GtkWidget* widget) {
  if (widget == nullptr) return;
  forEachWidget(widget, [this](GtkWidget* each) {
    if (isOneOf(each, {GTK_TYPE_ENTRY})) g_set_weak_pointer(&field_, each);
    if (isOneOf(each, {GTK_TYPE_DROP_DOWN})) g_set_weak_pointer(&choices_, each);
  });
}

void TypedValue::forgetLost(GObject* option) {
  if (!exists() || g_object_get_data(option, kWasAsked) != nullptr) return;
  g_object_set_data(option, kWasAsked, this);
  if (!showsChoice(field_, choices_)) gtk_editable_set_text(GTK_EDITABLE(field_), "");
}

void TypedValue::set(GObject* option, const std::string& value) {
  if (exists()) gtk_editable_set_text(GTK_EDITABLE(field_), "");
  setValue(option, value);
  // GTK writes no choice that is selected already.
  if (exists() && *gtk_editable_get_text(GTK_EDITABLE(field_)) == '\0') {
    g_object_notify(G_OBJECT(choices_), "selected");
  }
}

#else

TypedValue::TypedValue(GtkWidget* /*widget*/) {}

void TypedValue::forgetLost(GObject* /*option*/) {}

void TypedValue::set(GObject* option, const std::string& value) { setValue(option, value); }

#endif

}  // namespace cardpanels::gtkmodule
