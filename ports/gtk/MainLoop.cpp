#include "ports/gtk/MainLoop.h"

#include <glib.h>

#include <utility>

#include "ports/gtk/HandlerErrors.h"

namespace cardpanels::gtk {
namespace {

using Task = std::function<void()>;

gboolean run(gpointer task) {
  try {
    (*static_cast<Task*>(task))();
  } catch (...) {
    reportHandlerError();
  }
  return G_SOURCE_REMOVE;
}

void forget(gpointer task) { delete static_cast<Task*>(task); }

}  // namespace

void postToMainLoop(Task task) {
  g_idle_add_full(G_PRIORITY_DEFAULT, run, new Task(std::move(task)), forget);
}

}  // namespace cardpanels::gtk
