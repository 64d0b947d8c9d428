#pragma once

#include <memory>
#include <string>

#include "platform/Bundle.h"
#include "platform/StringTable.h"

namespace cardpanels::headless {

/// A bundle whose user-interface files become views in memory. It reads the same GtkBuilder files
/// as a dialog with widgets does: combo boxes are pop-ups, entries and labels text fields,
/// notebooks and stacks tab views, all else plain views.
class HeadlessBundle final : public platform::Bundle {
 public:
  /// The bundle in folder `path`.
  explicit HeadlessBundle(std::string path);

  std::shared_ptr<platform::View> loadNibNamed_owner(
      const std::string& name, const std::shared_ptr<platform::NibOwner>& owner) override;
  platform::Text loadError() const override { return loadError_; }
  platform::Text localizedStringForKey_value_table(const std::string& key,
                                                   const platform::Text& value,
                                                   const platform::Text& table) override;
  std::string_view className() const override { return "Bundle"; }

 private:
  std::string path_;
  platform::StringTable strings_;
  platform::Text loadError_;
};

}  // namespace cardpanels::headless
