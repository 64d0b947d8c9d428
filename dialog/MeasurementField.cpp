#include "dialog/MeasurementField.h"

#include <algorithm>

#include "dialog/Measurement.h"
#include "platform/Messages.h"

namespace cardpanels::dialog {

using platform::_;

MeasurementField::~MeasurementField() = default;

bool MeasurementField::holdsWrongText() const {
  const std::string typed = text();
  return isEditable() && !typed.empty() && !isMeasurement(typed);
}

void MeasurementField::setUnitHelp(const std::string& help) {
  unitHelp_ = help;
  setHelp(help);
  judge();
}

void MeasurementField::judge() {
  if (!holdsWrongText()) {
    mark({});
    return;
  }
  std::string why =
      _("This is no measurement. Type a number, and a unit if you like: in, cm, mm, px, or \" "
        "for inches. Examples: 0.5in, 12mm.");
  if (!unitHelp_.empty()) why += " " + unitHelp_;
  mark(why);
}

void MeasurementField::type(const std::string& text) {
  setText(text);
  edited_ = true;
  judge();
}

void MeasurementField::textChanged(bool byUser) {
  edited_ = byUser;
  judge();
  if (byUser && watcher_ != nullptr) watcher_->typed(*this);
}

/// Half of Europe types 1,5cm: a comma can mean nothing else here, in whatever language.
void MeasurementField::correctComma() {
  std::string typed = text();
  if (!edited_ || typed.find(',') == std::string::npos) return;
  std::replace(typed.begin(), typed.end(), ',', '.');
  setText(typed);
  edited_ = true;
}

void MeasurementField::leave() {
  correctComma();
  if (watcher_ != nullptr) watcher_->left(*this);
}

void MeasurementField::enter() {
  correctComma();
  if (watcher_ != nullptr) watcher_->entered(*this);
}

}  // namespace cardpanels::dialog
