#pragma once

#include <cups/ppd.h>

#include "platform/Object.h"

namespace cardpanels::platform {

/// The host as the panels see it. A host with constraint handling also derives from
/// `ConstraintHandling`. Both are called on the dialog's thread only.
class CallbackObject : public Object {
 public:
  ~CallbackObject() override;

  /// The job's PPD, or null. It stays the host's, and stays open while a panel lives.
  virtual ppd_file_t* ppdFile() = 0;
};

}  // namespace cardpanels::platform
