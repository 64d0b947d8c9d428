#pragma once

#include <functional>
#include <string>

#include "platform/Text.h"

namespace cardpanels::dialog {

/// What a field in which the user types a measurement does in every toolkit: a text that is none is
/// marked, and whoever stores texts is told when an edit ends. A port's field derives from this
/// beside `platform::TextField`; a page finds it by `dynamic_cast`.
class MeasurementField {
 public:
  static constexpr int kMaximumLength = 20;  // characters

  MeasurementField() = default;
  MeasurementField(const MeasurementField&) = delete;
  MeasurementField& operator=(const MeasurementField&) = delete;
  virtual ~MeasurementField();

  /// Whether the field holds a text that is no measurement. The empty text is fine.
  bool holdsWrongText() const;

  /// Who learns that the user has changed the text, and leaves it or presses Enter; empty for
  /// nobody.
  void setEditEnded(std::function<void()> ended) { editEnded_ = std::move(ended); }

  virtual std::string text() const = 0;

  /// What the user calls the field.
  virtual std::string caption() const = 0;

  virtual void takeFocus() = 0;

 protected:
  /// To be called by the port whenever the text is another.
  void textChanged(bool byUser);

  /// To be called by the port when the program has set the text, changed or not.
  void textSet() { edited_ = false; }

  /// To be called by the port when the user leaves the field or presses Enter.
  void endEdit();

 private:
  virtual bool isEditable() const = 0;

  /// Marks the field and tells `why`, also to assistive technology; nothing takes the mark away.
  virtual void mark(const platform::Text& why) = 0;

  bool edited_ = false;
  std::function<void()> editEnded_;
};

}  // namespace cardpanels::dialog
