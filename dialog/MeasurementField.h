#pragma once

#include <string>

#include "platform/Text.h"

namespace cardpanels::dialog {

class MeasurementField;

/// Who learns what the user does in a field.
class FieldWatcher {
 public:
  FieldWatcher() = default;
  FieldWatcher(const FieldWatcher&) = delete;
  FieldWatcher& operator=(const FieldWatcher&) = delete;
  virtual ~FieldWatcher() = default;

  /// The user has changed the text.
  virtual void typed(MeasurementField& field) = 0;

  /// The focus goes from the field; where to is known when all else is done.
  virtual void left(MeasurementField& field) = 0;

  /// The user has pressed Enter.
  virtual void entered(MeasurementField& field) = 0;
};

/// What a field in which the user types a measurement does in every toolkit: a text that is none is
/// marked, and a decimal comma becomes the point once the field is left. A port's field derives
/// from this beside `platform::TextField`; a page finds it by `dynamic_cast`.
class MeasurementField {
 public:
  static constexpr int kMaximumLength = 20;  // characters

  MeasurementField() = default;
  MeasurementField(const MeasurementField&) = delete;
  MeasurementField& operator=(const MeasurementField&) = delete;
  virtual ~MeasurementField();

  /// Null for nobody. The watcher stays the caller's.
  void setWatcher(FieldWatcher* watcher) { watcher_ = watcher; }

  /// Whether the field holds a text that is no measurement. The empty text is fine.
  bool holdsWrongText() const;

  /// Whether the user has changed the text since the program set it, or since `settle`.
  bool isEdited() const { return edited_; }

  /// What was typed is stored.
  void settle() { edited_ = false; }

  /// Marks the field if its text is no measurement, and takes any other mark away.
  void judge();

  /// Marks the field, whatever its text, and tells `why`, until it is judged again.
  void reject(const std::string& why) { mark(why); }

  /// Does what the user would who types `text`, without telling the watcher.
  void type(const std::string& text);

  /// What else a field's tooltip tells, in a sentence: how large a number without a unit is.
  void setUnitHelp(const std::string& help);

  virtual std::string text() const = 0;

  /// Shows `text`; the user has not typed it.
  virtual void setText(const std::string& text) = 0;

  /// What the user calls the field.
  virtual std::string caption() const = 0;

  virtual bool hasFocus() const = 0;
  virtual void takeFocus() = 0;

 protected:
  /// To be called by the port whenever the text is another.
  void textChanged(bool byUser);

  /// To be called by the port when the program has set the text, changed or not.
  void textSet() { edited_ = false; }

  /// To be called by the port when the focus goes, and when the user presses Enter.
  void leave();
  void enter();

 private:
  virtual bool isEditable() const = 0;

  /// Marks the field and tells `why`, also to assistive technology; nothing takes the mark away.
  virtual void mark(const platform::Text& why) = 0;

  /// What the tooltip of a field without a mark tells.
  virtual void setHelp(const std::string& help) = 0;

  void correctComma();

  FieldWatcher* watcher_ = nullptr;
  bool edited_ = false;
  std::string unitHelp_;
};

}  // namespace cardpanels::dialog
