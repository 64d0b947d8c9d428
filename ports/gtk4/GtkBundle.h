#pragma once

#include <memory>
#include <string>

#include "dialog/Captions.h"
#include "dialog/TextBundle.h"

namespace cardpanels::gtk4 {

/// A bundle whose user-interface files become GTK 4 widgets. Each loaded view is a `WidgetView`.
/// Loading needs a display; the string table does not.
class GtkBundle final : public dialog::TextBundle {
 public:
  /// The bundle in folder `path`. Panels have the captions of `captions` where that has them.
  explicit GtkBundle(std::string path, dialog::Captions captions = {});

  std::shared_ptr<platform::View> loadNibNamed_owner(
      const std::string& name, const std::shared_ptr<platform::NibOwner>& owner) override;

 private:
  dialog::Captions captions_;
};

}  // namespace cardpanels::gtk4
