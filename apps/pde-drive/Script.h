#pragma once

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Text.h"

namespace cardpanels::drive {

/// A command that cannot be carried out; the text tells why.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What a command consists of; a bare `nil` is absent.
using Words = std::vector<platform::Text>;

/// `line` without the blanks around it and without its comment, which a `#` at the start of a word
/// begins.
std::string withoutComment(std::string_view line);

/// The words of `text`, separated by blanks. Double quotes keep blanks in a word; inside them a
/// backslash escapes `"`, `\`, `n` (newline) and `t` (tab). Throws `CommandError` for a quote that
/// does not end and for another escape.
Words words(std::string_view text);

/// Throws `CommandError` unless there are `least` to `most` arguments; `SIZE_MAX` is no limit.
void expectCount(const Words& arguments, std::size_t least, std::size_t most);

/// The argument itself, which the caller keeps. Throws `CommandError` when it is absent.
const std::string& present(const platform::Text& argument);

/// How a command's result is told: `YES` or `NO`, and `nil` for what is absent.
std::string told(bool answer);
std::string told(const platform::Text& text);
template <class T>
std::string told(const std::shared_ptr<T>& object) {
  return object ? object->description() : "nil";
}

}  // namespace cardpanels::drive
