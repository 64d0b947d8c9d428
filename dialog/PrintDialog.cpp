#include "apps/gtk3-module/PrintDialog.h"

namespace cardpanels::gtk3module {

PrintDialog::~PrintDialog() = default;

}  // namespace cardpanels::gtk3module
