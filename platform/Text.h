#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace cardpanels::platform {

/// A text that may be absent.
using Text = std::optional<std::string>;

/// The encodings that texts arrive in, with the platform's own numbers.
enum class StringEncoding : int { none = 0, ascii = 1, utf8 = 4 };

/// `bytes` as a text, or nothing when `bytes` is null or not valid in `encoding`.
Text stringWithCString(const char* bytes, StringEncoding encoding);

/// `text` as bytes of `encoding`, or nothing when it is absent or cannot be said in `encoding`.
/// The answer points into `text`.
const char* cStringUsingEncoding(const Text& text, StringEncoding encoding);

/// Whether `bytes` is well-formed UTF-8 (RFC 3629: no overlong forms, no surrogates).
bool isUTF8(std::string_view bytes);

/// The length in bytes of the well-formed UTF-8 character that `bytes` starts with, 0 if it starts
/// with none.
std::size_t utf8CharacterLength(std::string_view bytes);

/// Whether `bytes` is plain ASCII.
bool isASCII(std::string_view bytes);

/// `whole` on one line: control characters as backslash escapes, stray bytes as `\xNN`. Where there
/// are none, `whole` itself.
std::string onOneLine(std::string whole);

/// `text` in double quotes, with `"` and `\` escaped by a backslash.
std::string inQuotes(std::string_view text);

/// Appends `text` as an element of a collection's description: as it stands when it is made of
/// ASCII letters and digits, else `inQuotes`.
void appendQuotedUnlessPlain(std::string& out, std::string_view text);

}  // namespace cardpanels::platform
