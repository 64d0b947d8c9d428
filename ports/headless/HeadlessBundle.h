#pragma once

#include <memory>
#include <string>

#include "dialog/TextBundle.h"

namespace cardpanels::headless {

/// A bundle whose user-interface files become views in memory. It reads the same GtkBuilder files
/// as a dialog with widgets does: combo boxes are pop-ups, entries and labels text fields,
/// notebooks and stacks tab views, all else plain views.
class HeadlessBundle final : public dialog::TextBundle {
 public:
  using TextBundle::TextBundle;

  std::shared_ptr<platform::View> loadNibNamed_owner(
      const std::string& name, const std::shared_ptr<platform::NibOwner>& owner) override;
};

}  // namespace cardpanels::headless
