#include "apps/cardprint-dialog/GtkWindows.h"

#include <gtkmm/main.h>

#include "apps/cardprint-dialog/CardDialog.h"
#include "apps/cardprint-dialog/ToolkitErrors.h"
#include "dialog/Captions.h"
#include "host/Error.h"
#include "platform/Messages.h"
#include "ports/gtk3/GtkBundle.h"

namespace cardpanels::cardprint {

using platform::_;

GtkWindows::GtkWindows() {
  if (gtk_init_check(nullptr, nullptr) == FALSE) {
    throw host::Error(_("There is no display to show the dialog on; --no-dialog needs none."));
  }
  Gtk::Main::init_gtkmm_internals();
}

std::shared_ptr<platform::Bundle> GtkWindows::bundle(const std::string& path,
                                                     const host::JobOptions& job) {
  return std::make_shared<gtk3::GtkBundle>(path,
                                           dialog::captionsOf(job, {_("_Cancel"), _("_Print")}));
}

Choice GtkWindows::choose(DialogJob& job, const std::string& told) {
  return withoutToolkitErrors([&] {
    CardDialog dialog(job, waiter_, told);
    auto output = dialog.choose();
    return Choice{std::move(output), dialog.error()};
  });
}

}  // namespace cardpanels::cardprint
