#pragma once

#include <memory>
#include <string>

#include "dialog/Captions.h"
#include "platform/Bundle.h"
#include "platform/StringTable.h"

namespace cardpanels::gtk3 {

/// A bundle whose user-interface files become GTK 3 widgets. Each loaded view is a `WidgetView`.
/// Loading needs a display; the string table does not.
class GtkBundle final : public platform::Bundle {
 public:
  /// The bundle in folder `path`. Panels have the captions of `captions` where that has them.
  explicit GtkBundle(std::string path, dialog::Captions captions = {});

  std::shared_ptr<platform::View> loadNibNamed_owner(
      const std::string& name, const std::shared_ptr<platform::NibOwner>& owner) override;
  platform::Text loadError() const override { return loadError_; }
  platform::Text localizedStringForKey_value_table(const std::string& key,
                                                   const platform::Text& value,
                                                   const platform::Text& table) override;
  std::string_view className() const override { return "Bundle"; }

 private:
  std::string path_;
  dialog::Captions captions_;
  platform::StringTable strings_;
  platform::Text loadError_;
};

}  // namespace cardpanels::gtk3
