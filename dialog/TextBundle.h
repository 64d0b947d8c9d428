#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/Bundle.h"
#include "platform/StringTable.h"

namespace cardpanels::dialog {

/// A bundle for panels that nobody looks at: it has their texts, and loads no user-interface file.
/// The bundles of toolkits add that.
class TextBundle : public platform::Bundle {
 public:
  /// The bundle in folder `path`.
  explicit TextBundle(std::string path);

  std::shared_ptr<platform::View> loadNibNamed_owner(
      const std::string& name, const std::shared_ptr<platform::NibOwner>& owner) override;
  platform::Text loadError() const override { return loadError_; }
  platform::Text localizedStringForKey_value_table(const std::string& key,
                                                   const platform::Text& value,
                                                   const platform::Text& table) override;
  std::string_view className() const override { return "Bundle"; }

 protected:
  /// The path of the user-interface file `name`; a toolkit with a form of its own has it in another
  /// `folder`.
  std::string viewFile(const std::string& name, const std::string& folder = "ui") const;

  void setLoadError(platform::Text error) { loadError_ = std::move(error); }

 private:
  std::string path_;
  platform::StringTable strings_;
  platform::Text loadError_;
};

}  // namespace cardpanels::dialog
