#pragma once

#include <string>

#include "platform/Text.h"
#include "platform/View.h"

namespace cardpanels::platform {

/// A line of text, for the user to edit or only to read (a label).
class TextField : public View {
 public:
  ~TextField() override;

  /// The text as it stands in the field now, UTF-8; "" when there is none.
  virtual std::string stringValue() const = 0;

  /// Shows `text`, nothing when it is absent.
  virtual void setStringValue(const Text& text) = 0;
};

}  // namespace cardpanels::platform
