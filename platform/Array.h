#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/Object.h"
#include "platform/Text.h"

namespace cardpanels::platform {

/// A growing, shared list of texts or of shared objects. Described as `(frontUV, "a b")`.
template <class Element>
class Array final : public Object {
 public:
  explicit Array(std::size_t capacity = 0) { elements_.reserve(capacity); }
  explicit Array(std::vector<Element> elements) : elements_(std::move(elements)) {}

  std::size_t size() const { return elements_.size(); }
  bool empty() const { return elements_.empty(); }
  const Element& operator[](std::size_t index) const { return elements_[index]; }
  auto begin() const { return elements_.begin(); }
  auto end() const { return elements_.end(); }

  void append(Element element) { elements_.push_back(std::move(element)); }

  /// Takes every element that equals `element` out.
  void remove(const Element& element) { std::erase(elements_, element); }

  std::string_view className() const override { return "Array"; }

  void appendDescription(std::string& out) const override {
    out += '(';
    for (std::size_t i = 0; i < elements_.size(); ++i) {
      if (i > 0) out += ", ";
      appendQuotedUnlessPlain(out, elementText(elements_[i]));
    }
    out += ')';
  }

 private:
  static const std::string& elementText(const std::string& element) { return element; }
  template <class Item>
  static std::string elementText(const std::shared_ptr<Item>& element) {
    return element ? element->description() : "(null)";
  }

  std::vector<Element> elements_;
};

using StringArray = Array<std::string>;

}  // namespace cardpanels::platform
