#include "ports/gtk4/SignalScope.h"

#include <utility>

#include "ports/gtk/HandlerErrors.h"
#include "ports/gtk4/WidgetView.h"

namespace {

/// GTK's scope of a builder, but for the functions that it looks up in C.
struct CardpanelsScope {
  GtkBuilderCScope parent;
  cardpanels::gtk4::SignalScope* signals;
};
struct CardpanelsScopeClass {
  GtkBuilderCScopeClass parent;
};

GClosure* createClosure(GtkBuilderScope* scope, GtkBuilder* /*builder*/, const char* handler,
                        GtkBuilderClosureFlags /*flags*/, GObject* /*object*/, GError** /*error*/) {
  return reinterpret_cast<CardpanelsScope*>(scope)->signals->closure(handler);
}

void takeClosures(gpointer scope, gpointer /*data*/) {
  static_cast<GtkBuilderScopeInterface*>(scope)->create_closure = createClosure;
}

GType scopeType() {
  static const GType type = [] {
    const GType made = g_type_register_static_simple(
        GTK_TYPE_BUILDER_CSCOPE, "CardpanelsScope", sizeof(CardpanelsScopeClass), nullptr,
        sizeof(CardpanelsScope), nullptr, static_cast<GTypeFlags>(0));
    const GInterfaceInfo scope{takeClosures, nullptr, nullptr};
    g_type_add_interface_static(made, GTK_TYPE_BUILDER_SCOPE, &scope);
    return made;
  }();
  return type;
}

}  // namespace

namespace cardpanels::gtk4 {

struct SignalScope::Connection {
  std::shared_ptr<const Views> views;
  platform::ActionTarget action;
};

SignalScope::SignalScope(std::shared_ptr<platform::NibOwner> owner) : owner_(std::move(owner)) {}

void SignalScope::give(GtkBuilder* builder) {
  auto* const scope = reinterpret_cast<CardpanelsScope*>(g_object_new(scopeType(), nullptr));
  scope->signals = this;
  gtk_builder_set_scope(builder, GTK_BUILDER_SCOPE(scope));
  g_object_unref(scope);
}

GClosure* SignalScope::closure(const std::string& handler) {
  handlers_.push_back(handler);
  const auto* const action = owner_->actionNamed(handler);
  auto* const connection =
      new Connection{views_, action == nullptr ? platform::ActionTarget()
                                               : platform::ActionTarget(owner_, *action)};
  GClosure* const made = g_closure_new_simple(sizeof(GClosure), connection);
  g_closure_add_finalize_notifier(made, connection, [](gpointer gone, GClosure* /*closure*/) {
    delete static_cast<Connection*>(gone);
  });
  g_closure_set_marshal(made, fire);
  return made;
}

void SignalScope::fire(GClosure* closure, GValue* /*result*/, guint /*count*/,
                       const GValue* arguments, gpointer /*hint*/, gpointer /*data*/) {
  const Connection connection = *static_cast<const Connection*>(closure->data);
  const auto found = connection.views->find(static_cast<GObject*>(g_value_get_object(arguments)));
  if (found == connection.views->end()) return;
  const auto sender = found->second.lock();
  auto* const view = dynamic_cast<WidgetView*>(sender.get());
  if (view == nullptr || !view->isUsersChange()) return;
  try {
    connection.action.fire(sender);
  } catch (...) {
    gtk::reportHandlerError();
  }
}

}  // namespace cardpanels::gtk4
