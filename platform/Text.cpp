#include "platform/Text.h"

#include <algorithm>
#include <cstdint>

namespace cardpanels::platform {
namespace {

constexpr char kHexDigits[] = "0123456789abcdef";

bool isPlain(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

void appendHex(std::string& line, unsigned char byte) {
  line += "\\x";
  line += kHexDigits[byte >> 4U];
  line += kHexDigits[byte & 0x0FU];
}

bool appendNamedEscape(std::string& line, char c) {
  switch (c) {
    case '\n': line += "\\n"; return true;
    case '\r': line += "\\r"; return true;
    case '\t': line += "\\t"; return true;
    default: return false;
  }
}

/// U+0080 to U+009F: terminals take them as commands.
bool isC1Control(std::string_view character) {
  return character.size() == 2 && character[0] == '\xC2' &&
         static_cast<unsigned char>(character[1]) < 0xA0;
}

constexpr bool isPrintableASCII(char c) { return c >= ' ' && c <= '~'; }

/// The length of `text`'s printable ASCII beginning. Nearly every line is no more than that: looked
/// at in blocks without a way out inside, which compilers turn into a few instructions.
std::size_t printableASCIILength(std::string_view text) {
  constexpr std::size_t kBlock = 16;
  std::size_t length = 0;
  for (; length + kBlock <= text.size(); length += kBlock) {
    const char* const block = text.data() + length;
    unsigned char escaped = 0;
    for (std::size_t i = 0; i < kBlock; ++i) escaped |= isPrintableASCII(block[i]) ? 0 : 1;
    if (escaped != 0) break;
  }
  while (length < text.size() && isPrintableASCII(text[length])) ++length;
  return length;
}

/// `text` from its first character that a line shows escaped; empty when there is none.
std::string_view afterPrintable(std::string_view text) {
  for (;;) {
    text.remove_prefix(printableASCIILength(text));
    const std::size_t length = utf8CharacterLength(text);
    if (length < 2 || isC1Control(text.substr(0, length))) return text;
    text.remove_prefix(length);
  }
}

void appendQuoted(std::string& out, std::string_view text) {
  out += '"';
  for (const char c : text) {
    if (c == '"' || c == '\\') out += '\\';
    out += c;
  }
  out += '"';
}

}  // namespace

Text stringWithCString(const char* bytes, StringEncoding encoding) {
  if (bytes == nullptr) return std::nullopt;
  const std::string_view view = bytes;
  const bool valid = encoding == StringEncoding::ascii
                         ? isASCII(view)
                         : encoding == StringEncoding::utf8 && isUTF8(view);
  if (!valid) return std::nullopt;
  return std::string(view);
}

const char* cStringUsingEncoding(const Text& text, StringEncoding encoding) {
  if (!text) return nullptr;
  const bool sayable = encoding == StringEncoding::ascii
                           ? isASCII(*text)
                           : encoding == StringEncoding::utf8 && isUTF8(*text);
  return sayable ? text->c_str() : nullptr;
}

std::size_t utf8CharacterLength(std::string_view bytes) {
  if (bytes.empty()) return 0;
  const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const auto first = at(0);
  if (first < 0x80) return 1;
  if (first < 0xC2 || first > 0xF4) return 0;
  const std::size_t length = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
  if (bytes.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((at(i) & 0xC0U) != 0x80U) return 0;
  }
  const auto second = at(1);
  if (first == 0xE0 && second < 0xA0) return 0;  // overlong
  if (first == 0xED && second > 0x9F) return 0;  // surrogates
  if (first == 0xF0 && second < 0x90) return 0;  // overlong
  if (first == 0xF4 && second > 0x8F) return 0;  // past U+10FFFF
  return length;
}

bool isUTF8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = utf8CharacterLength(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

bool isASCII(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string onOneLine(std::string whole) {
  std::string_view rest = afterPrintable(whole);
  if (rest.empty()) return whole;
  std::string line;
  line.reserve(whole.size() + 16);
  line.append(whole, 0, whole.size() - rest.size());
  while (!rest.empty()) {
    const std::string_view character =
        rest.substr(0, std::max<std::size_t>(utf8CharacterLength(rest), 1));
    if (!appendNamedEscape(line, character[0])) {
      for (const char c : character) appendHex(line, static_cast<unsigned char>(c));
    }
    rest.remove_prefix(character.size());
    const std::string_view next = afterPrintable(rest);
    line.append(rest, 0, rest.size() - next.size());
    rest = next;
  }
  return line;
}

std::string inQuotes(std::string_view text) {
  std::string result;
  appendQuoted(result, text);
  return result;
}

void appendQuotedUnlessPlain(std::string& out, std::string_view text) {
  const bool plain = !text.empty() && std::all_of(text.begin(), text.end(), isPlain);
  if (plain) {
    out += text;
  } else {
    appendQuoted(out, text);
  }
}

}  // namespace cardpanels::platform
