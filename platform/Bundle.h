#pragma once

#include <memory>
#include <string>

#include "platform/NibOwner.h"
#include "platform/Object.h"
#include "platform/Text.h"

namespace cardpanels::platform {

/// The plug-in's resources, and through them the host's toolkit. Called on the dialog's thread
/// only.
class Bundle : public Object {
 public:
  ~Bundle() override;

  /// Loads the user-interface file `name`: makes its views, fills `owner`'s outlets and aims the
  /// controls' actions at it. Answers the file's top view, which owns the others: what the caller
  /// and the owner's outlets keep of it decides what stays alive. Empty when the file cannot be
  /// read, when an id in it is no outlet, when an outlet or action is missing or of the wrong kind;
  /// then no outlet is filled and `loadError` tells why.
  virtual std::shared_ptr<View> loadNibNamed_owner(const std::string& name,
                                                   const std::shared_ptr<NibOwner>& owner) = 0;

  /// Why the last `loadNibNamed_owner` failed, with file and id; nothing when it did not.
  virtual Text loadError() const = 0;

  /// The text of `key` in the user's language from string table `table` (absent: the default one).
  /// A key that is not there answers `value`, or the key itself when `value` is absent.
  virtual Text localizedStringForKey_value_table(const std::string& key, const Text& value,
                                                 const Text& table) = 0;
};

}  // namespace cardpanels::platform
