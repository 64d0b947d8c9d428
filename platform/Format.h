#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "platform/Object.h"
#include "platform/Text.h"

namespace cardpanels::platform {

/// One typed argument of a format. It borrows what it shows, so it lives no longer than the call
/// that it is made for.
class Argument {
 public:
  enum class Kind { object, text, pointer, cString, integer };

  Argument(const Object* object) : kind_(Kind::object), pointer_(object), object_(object) {}
  template <std::derived_from<Object> T>
  Argument(const std::shared_ptr<T>& object) : Argument(static_cast<const Object*>(object.get())) {}
  Argument(const Text& text) : kind_(Kind::text) {
    if (text) setText(*text);
  }
  Argument(const std::string& text) : kind_(Kind::text) { setText(text); }
  Argument(std::string_view text) : kind_(Kind::text) { setText(text); }
  Argument(const void* pointer) : kind_(Kind::pointer), pointer_(pointer) {}
  Argument(const char* bytes) : kind_(Kind::cString) {
    if (bytes != nullptr) setText(bytes);
  }
  template <std::integral T>
  requires(!std::same_as<T, bool>) Argument(T integer)
      : kind_(Kind::integer), integer_(static_cast<std::int64_t>(integer)) {}
  Argument(bool) = delete;

  Kind kind() const { return kind_; }
  /// The object, null when it is absent or the argument is of another kind.
  const Object* object() const { return object_; }
  /// The address of an object or pointer, null for other kinds.
  const void* pointer() const { return pointer_; }
  /// Whether a text or C string is there.
  bool hasText() const { return text_.data() != nullptr; }
  std::string_view text() const { return text_; }
  std::int64_t integer() const { return integer_; }

 private:
  void setText(std::string_view text) { text_ = text; }

  Kind kind_;
  const void* pointer_ = nullptr;
  const Object* object_ = nullptr;
  std::string_view text_;
  std::int64_t integer_ = 0;
};

/// `arguments` in the places of `format`'s conversions: `%@` object or text, `%p` address,
/// `%s` C string, `%i` integer, `%%`; flags, widths and precisions by the rules of printf
/// (ISO C 7.21.6.1), `*` included. A conversion that has no argument, or one of another kind,
/// prints `(null)`, `0x0` or `0`; what is no conversion stands as it is. No conversion makes more
/// than `kMaximumFieldWidth` characters by its width or precision.
std::string formatted(std::string_view format, std::span<const Argument> arguments);

/// Appends what `formatted` answers.
void appendFormatted(std::string& out, std::string_view format,
                     std::span<const Argument> arguments);

/// The most characters that ISO C lets a program count on from one conversion.
constexpr int kMaximumFieldWidth = 4095;

/// `address` as `%p` prints it: `0x` and lower-case hexadecimal digits, `0x0` for null.
std::string addressText(const void* address);

/// Appends what `addressText` answers.
void appendAddress(std::string& out, const void* address);

}  // namespace cardpanels::platform
