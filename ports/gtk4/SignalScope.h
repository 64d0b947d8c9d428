#pragma once

#include <gtk/gtk.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/NibOwner.h"
#include "platform/View.h"

namespace cardpanels::gtk4 {

/// Connects the signals of a user-interface file with an owner's actions while a builder reads it.
class SignalScope {
 public:
  explicit SignalScope(std::shared_ptr<platform::NibOwner> owner);

  /// To be called before `builder` reads its file; this must outlive that.
  void give(GtkBuilder* builder);

  /// Makes what the user does with the widget `sender` fire with `view`, which is held weakly.
  void setView(GObject* sender, const std::shared_ptr<platform::View>& view) {
    (*views_)[sender] = view;
  }

  /// The handlers that the file names, also those that are no actions.
  const std::vector<std::string>& handlers() const { return handlers_; }

  /// A closure for a signal that `handler` shall answer; for the builder.
  GClosure* closure(const std::string& handler);

 private:
  using Views = std::map<GObject*, std::weak_ptr<platform::View>>;
  struct Connection;

  static void fire(GClosure* closure, GValue* result, guint count, const GValue* arguments,
                   gpointer hint, gpointer data);

  std::shared_ptr<platform::NibOwner> owner_;
  std::shared_ptr<Views> views_ = std::make_shared<Views>();
  std::vector<std::string> handlers_;
};

}  // namespace cardpanels::gtk4
