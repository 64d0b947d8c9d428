#pragma once

#include <gtkmm/combobox.h>
#include <gtkmm/liststore.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace cardpanels::cardprint {

/// A pop-up of texts, each of which stands for a value. What the program sets is no user's choice.
class ChoiceBox : public Gtk::ComboBox {
 public:
  struct Item {
    std::string value;
    std::string text;  // empty for a line between
    bool operator==(const Item&) const = default;
  };

  /// Calls `chosen` with the value when the user chooses another one.
  explicit ChoiceBox(std::function<void(const std::string& value)> chosen);

  /// Shows `items` in place of those before, and one of them as chosen.
  void showItems(std::vector<Item> items, const std::optional<std::string>& value);

 private:
  void rowChanged();

  std::function<void(const std::string&)> chosen_;
  std::vector<Item> items_;
  Gtk::TreeModelColumnRecord columns_;
  Gtk::TreeModelColumn<Glib::ustring> text_;
  Glib::RefPtr<Gtk::ListStore> rows_;
  bool isShowing_ = false;
};

}  // namespace cardpanels::cardprint
