#pragma once

#include <algorithm>
#include <string_view>

/// Characters whatever the locale: all but ASCII letters, digits and blanks stand for themselves.
namespace cardpanels::platform {

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

constexpr bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

constexpr char lowered(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr char raised(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// CUPS compares keywords so.
constexpr bool equalIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lowered(x) == lowered(y); });
}

constexpr bool startsIgnoringCase(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() && equalIgnoringCase(text.substr(0, prefix.size()), prefix);
}

/// `text` without the blanks around it.
constexpr std::string_view trimmed(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace cardpanels::platform
