#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/JobOptions.h"

namespace cardpanels::dialog {

/// A field for a value of one's own, or for one of several that make it up.
struct ValueField {
  std::string title;
  std::string name;  // the title behind that of the option, for who hears it alone
  bool isSecret = false;
  std::string text = {};   // what is marked, "" for nothing
  std::string fault = {};  // what is wrong with what is typed, "" for nothing
};

/// An option of the PPD as a pop-up shows it.
struct OptionRow {
  struct Item {
    std::string choice;
    std::string title;
  };

  std::string key;
  std::string title;
  std::vector<Item> items;
  std::optional<std::size_t> chosen;    // nothing when no choice is marked
  std::optional<std::size_t> own = {};  // the item that stands for a value of one's own
  std::vector<ValueField> fields = {};  // for that
};

/// The row of `key`: its choices, and the one for a value of one's own, if it takes any. A page
/// size of one's own cannot be typed: its row has the value in place of that choice if one is
/// marked. Throws `host::Error` when the PPD has no such option.
OptionRow optionRow(const host::JobOptions& job, const std::string& key);

/// The rows of what the PPD has beyond the options `claimed` and the card's size, in its order;
/// without those that leave no choice.
std::vector<OptionRow> otherOptions(const host::JobOptions& job,
                                    const std::set<std::string>& claimed);

/// One of these options while the user changes it. A value of one's own that is not right yet is
/// kept here, and the job has what it had.
class OtherOption {
 public:
  /// The option `key` of `job`, which must outlive this; `change` asks for another value of it.
  OtherOption(const host::JobOptions& job, std::string key,
              std::function<void(const std::string& value)> change);

  /// As the user sees it now.
  OptionRow row() const;

  /// The user chooses an item. That for a value of one's own changes nothing yet.
  void choose(const std::string& choice);

  /// The user has changed a field's text.
  void type(std::size_t field, const std::string& text);

  /// The user goes on to another field, or elsewhere: the job gets the value if it is right.
  /// Otherwise what is wrong is told, but not of empty fields, which may come next.
  void leave() { store(false); }

  /// The user is done: the same, and empty fields are told too. Answers the first field that is
  /// wrong, nothing when none is.
  std::optional<std::size_t> finish() { return store(true); }

  /// What was typed and the job did not get is forgotten.
  void forget() { typed_.reset(); }

 private:
  struct Typed {
    std::vector<std::string> texts;
    std::vector<std::string> faults;
  };

  Typed& typed();
  std::optional<std::size_t> store(bool isDone);

  const host::JobOptions& job_;
  std::string key_;
  std::function<void(const std::string&)> change_;
  std::optional<Typed> typed_;  // while the user types a value
};

}  // namespace cardpanels::dialog
