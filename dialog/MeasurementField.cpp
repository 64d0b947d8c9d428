#include "dialog/MeasurementField.h"

#include "dialog/Measurement.h"
#include "platform/Messages.h"

namespace cardpanels::dialog {

using platform::_;

MeasurementField::~MeasurementField() = default;

bool MeasurementField::holdsWrongText() const {
  const std::string typed = text();
  return isEditable() && !typed.empty() && !isMeasurement(typed);
}

void MeasurementField::textChanged(bool byUser) {
  edited_ = byUser;
  if (holdsWrongText()) {
    mark(
        _("This is no measurement. Type a number, and a unit if you like: in, cm, mm, px, or \" "
          "for inches. Examples: 0.5in, 12mm."));
  } else {
    mark({});
  }
}

void MeasurementField::endEdit() {
  if (!edited_) return;
  edited_ = false;
  const auto ended = editEnded_;  // it may end this field's page
  if (ended) ended();
}

}  // namespace cardpanels::dialog
