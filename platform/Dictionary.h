#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "platform/Object.h"
#include "platform/Text.h"

namespace cardpanels::platform {

/// Texts by text, in the order in which their keys were first set.
/// Described as `{"Front UV" = None; }`.
class Dictionary final : public Object {
 public:
  using Entry = std::pair<std::string, std::string>;

  explicit Dictionary(std::size_t capacity = 0);

  /// Gives `key` the value `value`, in place of an earlier one.
  void setValueForKey(const std::string& value, const std::string& key);

  /// The value of `key`, or nothing.
  Text valueForKey(const std::string& key) const;

  std::size_t size() const { return entries_.size(); }
  bool empty() const { return entries_.empty(); }
  auto begin() const { return entries_.begin(); }
  auto end() const { return entries_.end(); }

  std::string_view className() const override { return "Dictionary"; }
  void appendDescription(std::string& out) const override;

 private:
  std::vector<Entry> entries_;
};

}  // namespace cardpanels::platform
