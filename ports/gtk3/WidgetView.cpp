#include "ports/gtk3/WidgetView.h"

#include <string>

#include "ports/gtk/HandlerErrors.h"

namespace cardpanels::gtk3 {
namespace {

struct Connection {
  std::weak_ptr<platform::View> sender;
  platform::ActionTarget action;
};

void deleteConnection(gpointer connection, GClosure* /*closure*/) {
  delete static_cast<Connection*>(connection);
}

void fire(GClosure* closure, GValue* /*result*/, guint /*count*/, const GValue* /*arguments*/,
          gpointer /*hint*/, gpointer /*data*/) {
  const Connection connection = *static_cast<const Connection*>(closure->data);
  const auto sender = connection.sender.lock();
  const auto* view = dynamic_cast<const WidgetView*>(sender.get());
  if (view == nullptr || view->programSets()) return;
  try {
    connection.action.fire(sender);
  } catch (...) {
    gtk::reportHandlerError();
  }
}

}  // namespace

WidgetView::~WidgetView() = default;

void WidgetView::setWidgetHidden(bool hidden) {
  // A later show_all() around this view does not bring it back.
  widget().set_no_show_all(hidden);
  widget().set_visible(!hidden);
}

bool WidgetView::carriesTag(std::int64_t tag) const {
  return widget().get_name() == "tag-" + std::to_string(tag);
}

std::shared_ptr<platform::View> WidgetView::subviewWithTag(std::int64_t tag) const {
  for (const auto& view : subviews_) {
    if (auto found = view->viewWithTag(tag)) return found;
  }
  return nullptr;
}

void connectAction(const std::shared_ptr<platform::View>& sender, const char* signal,
                   const platform::ActionTarget& action) {
  const auto& view = dynamic_cast<const WidgetView&>(*sender);
  GClosure* const closure = g_closure_new_simple(sizeof(GClosure), new Connection{sender, action});
  g_closure_add_finalize_notifier(closure, closure->data, deleteConnection);
  g_closure_set_marshal(closure, fire);
  g_signal_connect_closure(view.widget().gobj(), signal, closure, FALSE);
}

}  // namespace cardpanels::gtk3
