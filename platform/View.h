#pragma once

#include <cstdint>
#include <memory>

#include "platform/Object.h"

namespace cardpanels::platform {

/// Something that a panel shows. A loaded view owns the controls inside it. Used on the dialog's
/// thread only.
class View : public Object {
 public:
  ~View() override;

  /// Hides the view and all inside it, or shows it again.
  virtual void setHidden(bool hidden) = 0;

  /// The view that carries `tag`, this one or one inside it; empty when there is none. Tags are
  /// 1 and above; a user-interface file gives view N the name `tag-N`.
  virtual std::shared_ptr<View> viewWithTag(std::int64_t tag) = 0;
};

}  // namespace cardpanels::platform
