#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tests/support/PanelDriver.h"

namespace cardpanels::test {

/// One of a panel's twelve area slots: its option, its fields, and what a test types into them.
struct TypedArea {
  std::string key;
  std::vector<std::string> outlets;  // X, Y, Width, Height
  std::vector<std::string> parts;
};

/// The twelve slots of a panel in order, named `keyPrefix` + side + kind + number and side + kind +
/// `Field` + number + `_X` …; slot i is typed as `1.i in`, `2 mm`, `.i cm` and `i`.
std::vector<TypedArea> typedAreas(const std::string& keyPrefix,
                                  const std::vector<std::string>& kinds);

/// The commands that type the areas into `panel`'s fields.
std::string typing(const std::string& panel, const std::vector<TypedArea>& areas);

/// What one panel writes in a save pass, in its own words; `value` prints absent as `(null)`.
struct SavePassTexts {
  std::string passOperation;
  /// `fields` are the descriptions of the four fields.
  std::function<std::string(const std::string& key, const std::vector<std::string>& fields)> begin;
  std::function<std::string(const std::string& value)> end;
  std::function<std::string(const std::string& key, const std::string& value)> beginShow;
  std::function<std::string(const std::string& key, const std::string& value)> endShow;
  std::optional<std::string> carryOverAtStart;
};

/// What a save pass shall come to.
struct SavePass {
  std::string trace;
  std::string requests;
  std::vector<std::optional<std::string>> areas;
  std::vector<std::vector<std::string>> fields;
};

/// The pass of `saveValuesAndReturnError` with constraint handling over `areas`, where the host
/// refuses the keys in `refused`. `self` describes the panel; its fields are described
/// `<TextField: 0xN>` with N counted up from `firstField`, in hexadecimal, in slot order.
SavePass expectedSavePass(const SavePassTexts& texts, const std::vector<TypedArea>& areas,
                          const std::set<std::string>& refused, const std::string& self,
                          int firstField);

/// Types the areas, lets the host refuse, saves, and compares trace, requests, fields and areas.
void checkSavePass(const std::string& ppd, const std::string& panel, const SavePassTexts& texts,
                   const std::vector<TypedArea>& areas, const std::set<std::string>& refused);

/// `checkSavePass` with all granted, each single slot refused, and all refused.
void checkSavePasses(const std::string& ppd, const std::string& panel, const SavePassTexts& texts,
                     const std::vector<TypedArea>& areas);

}  // namespace cardpanels::test
