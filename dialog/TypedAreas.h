#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "dialog/CardAreas.h"
#include "dialog/MeasurementField.h"
#include "platform/NibOwner.h"
#include "platform/View.h"

namespace cardpanels::dialog {

/// The fields of one panel, in rows: four measurements that are stored together, as one area. A row
/// is stored when the focus leaves it or the user presses Enter in it, unless some text is no
/// measurement. An area that the host refuses stays in its row as it was typed, marked, until the
/// user types another or takes the stored one back.
class TypedAreas final : private FieldWatcher {
 public:
  /// What the rows need of their page.
  struct Client {
    /// Has the panel store all its fields.
    std::function<void()> store;
    /// Why the host refused areas at the last store, by the option's keyword.
    std::function<std::map<std::string, std::string>()> refusals;
    /// The measurements of the area that the host has for an option.
    std::function<AreaTexts(const std::string& key)> stored;
    /// Has the main loop run a task when all else is done.
    std::function<void(std::function<void()>)> later;
    /// Something was typed, stored or refused.
    std::function<void()> changed;
  };

  /// The rows of `owner`'s fields, which are those outlets that hold a `MeasurementField`.
  TypedAreas(platform::NibOwner& owner, Client client);
  ~TypedAreas() override;

  /// The first field, in the panel's order, whose text is no measurement; null for none.
  MeasurementField* firstWrong() const;

  /// The first field of an area that the host has refused; null for none.
  MeasurementField* firstRefused() const;

  /// Why the host refused that area; "" when it refused none.
  std::string refusal() const;

  /// Puts the area that the host has back into the refused rows.
  void takeStoredBack();

  /// To be called after the panel has stored its fields, or shown its values in them: what was
  /// refused meanwhile, or before, is put back into its row.
  void keepRefused();

  /// Stores what was typed, if anything was. Nothing happens while a text is wrong.
  void storeEdits();

  /// Types `texts` into the fields of an area, which are those of the option `key`, as one change.
  /// Nothing without such fields.
  void type(const std::string& key, const AreaTexts& texts);

  /// The user wants to type into that area: its first field takes the focus.
  void edit(const std::string& key);

  /// Whether there are fields for areas of `side`.
  bool hasFieldsFor(const AreaSide& side) const;

  /// What the fields show now.
  TypedTexts texts() const;

  /// The option of the area that the user is typing and has not given all measurements yet, "" for
  /// none.
  std::string areaBegun() const;

  void setUnitHelp(const std::string& help);

 private:
  struct Row {
    std::string key;  // the area's option, "" for fields that are none
    std::vector<MeasurementField*> fields;
    std::vector<std::string> typed;  // at the last store
    std::string refusal;             // why the host refused that, "" when it did not
  };

  void typed(MeasurementField& field) override;
  void left(MeasurementField& field) override;
  void entered(MeasurementField& field) override;

  Row& rowOf(const MeasurementField& field);
  Row* rowOf(const std::string& key);
  const Row* firstRefusedRow() const;
  static void takeRefusalAway(Row& row);
  void store();

  Client client_;
  std::vector<std::shared_ptr<platform::View>> views_;  // keep the fields
  std::vector<Row> rows_;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace cardpanels::dialog
