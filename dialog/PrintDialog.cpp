#include "dialog/PrintDialog.h"

namespace cardpanels::dialog {

PrintDialog::~PrintDialog() = default;

}  // namespace cardpanels::dialog
