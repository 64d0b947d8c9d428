#include "platform/Format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace cardpanels::platform {
namespace {

constexpr std::string_view kAbsent = "(null)";

struct Conversion {
  bool leftJustified = false;
  bool zeroPadded = false;
  char sign = '\0';  // what stands before a number that is not negative
  int width = 0;
  std::optional<int> precision;
  char specifier = '\0';
};

/// Leaves alone what stands in `out` already: a description formats into the text that it is for.
class Formatter {
 public:
  Formatter(std::string& out, std::string_view format, std::span<const Argument> arguments)
      : out_(out), rest_(format), arguments_(arguments) {}

  void run() {
    for (;;) {
      const std::size_t percent = rest_.find('%');
      if (percent == std::string_view::npos) break;
      out_ += rest_.substr(0, percent);
      rest_.remove_prefix(percent);
      convertOne();
    }
    out_ += rest_;
  }

 private:
  /// `rest_` starts with a percent sign. What turns out to be no conversion stands as it is, and
  /// takes no argument.
  void convertOne() {
    const std::string_view start = rest_;
    const std::size_t argumentBefore = next_;
    rest_.remove_prefix(1);
    Conversion conversion;
    if (!rest_.starts_with('@')) readModifiers(conversion);
    if (!rest_.empty()) conversion.specifier = rest_.front();
    switch (conversion.specifier) {
      case '%': out_ += '%'; break;
      case '@': putObject(conversion); break;
      case 's': putText(conversion, textOf(take(), Argument::Kind::cString)); break;
      case 'p': putPointer(conversion); break;
      case 'i': putInteger(conversion, takeInteger()); break;
      default:
        next_ = argumentBefore;
        out_ += start.front();
        rest_ = start.substr(1);
        return;
    }
    rest_.remove_prefix(1);
  }

  void readModifiers(Conversion& conversion) {
    readFlags(conversion);
    readWidth(conversion);
    readPrecision(conversion);
  }

  void readFlags(Conversion& conversion) {
    for (; !rest_.empty(); rest_.remove_prefix(1)) {
      switch (rest_.front()) {
        case '-': conversion.leftJustified = true; break;
        case '0': conversion.zeroPadded = true; break;
        case '+': conversion.sign = '+'; break;
        case ' ':
          if (conversion.sign == '\0') conversion.sign = ' ';
          break;
        case '#': break;
        default: return;
      }
    }
  }

  void readWidth(Conversion& conversion) {
    int width = readNumber();
    if (width < 0) {
      conversion.leftJustified = true;
      width = -width;
    }
    conversion.width = width;
  }

  void readPrecision(Conversion& conversion) {
    if (rest_.empty() || rest_.front() != '.') return;
    rest_.remove_prefix(1);
    const int precision = readNumber();
    if (precision >= 0) conversion.precision = precision;
  }

  /// A number or `*`, within ±kMaximumFieldWidth; 0 where there is neither.
  int readNumber() {
    if (!rest_.empty() && rest_.front() == '*') {
      rest_.remove_prefix(1);
      const std::int64_t limit = kMaximumFieldWidth;
      return static_cast<int>(std::clamp(takeInteger(), -limit, limit));
    }
    int number = 0;
    for (; !rest_.empty() && rest_.front() >= '0' && rest_.front() <= '9'; rest_.remove_prefix(1)) {
      number = std::min(number * 10 + (rest_.front() - '0'), kMaximumFieldWidth);
    }
    return number;
  }

  const Argument* take() { return next_ < arguments_.size() ? &arguments_[next_++] : nullptr; }

  static std::string_view textOf(const Argument* argument, Argument::Kind kind) {
    const bool there = argument != nullptr && argument->kind() == kind && argument->hasText();
    return there ? argument->text() : kAbsent;
  }

  const void* takePointer() {
    const Argument* argument = take();
    return argument != nullptr ? argument->pointer() : nullptr;
  }

  std::int64_t takeInteger() {
    const Argument* argument = take();
    return argument != nullptr ? argument->integer() : 0;
  }

  void putObject(const Conversion& conversion) {
    const Argument* argument = take();
    if (argument != nullptr && argument->object() != nullptr) {
      const std::size_t start = out_.size();
      argument->object()->appendDescription(out_);
      fit(conversion, start);
    } else {
      putText(conversion, textOf(argument, Argument::Kind::text));
    }
  }

  void putText(const Conversion& conversion, std::string_view text) {
    const std::size_t start = out_.size();
    out_ += text;
    fit(conversion, start);
  }

  void putPointer(const Conversion& conversion) {
    const std::size_t start = out_.size();
    appendAddress(out_, takePointer());
    fit(conversion, start);
  }

  /// Cuts the text from `start` on to the conversion's precision, and pads it to its width.
  void fit(const Conversion& conversion, std::size_t start) {
    if (conversion.precision) {
      const std::string_view text = std::string_view(out_).substr(start);
      const auto precision = static_cast<std::size_t>(*conversion.precision);
      if (precision < text.size()) out_.resize(start + wholeCharacters(text, precision).size());
    }
    pad(conversion, start);
  }

  /// The first `bytes` bytes of `text`, without a character of it cut in two.
  static std::string_view wholeCharacters(std::string_view text, std::size_t bytes) {
    std::size_t end = 0;
    while (end < bytes) {
      const std::size_t length = std::max<std::size_t>(utf8CharacterLength(text.substr(end)), 1);
      if (end + length > bytes) break;
      end += length;
    }
    return text.substr(0, end);
  }

  void putInteger(const Conversion& conversion, std::int64_t value) {
    std::array<char, 24> digits{};
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    std::string_view number(digits.data(), static_cast<std::size_t>(end - digits.data()));
    const std::size_t start = out_.size();
    if (value < 0) {
      out_ += '-';
      number.remove_prefix(1);
    } else if (conversion.sign != '\0') {
      out_ += conversion.sign;
    }
    std::size_t digitCount = number.size();
    if (conversion.precision) {
      digitCount = std::max(digitCount, static_cast<std::size_t>(*conversion.precision));
      if (*conversion.precision == 0 && value == 0) digitCount = 0, number = {};
    } else if (conversion.zeroPadded && !conversion.leftJustified) {
      const auto width = static_cast<std::size_t>(conversion.width);
      digitCount = std::max(digitCount, width - std::min(width, out_.size() - start));
    }
    out_.append(digitCount - number.size(), '0');
    out_ += number;
    pad(conversion, start);
  }

  void pad(const Conversion& conversion, std::size_t start) {
    const auto width = static_cast<std::size_t>(conversion.width);
    const std::size_t length = out_.size() - start;
    if (length >= width) return;
    out_.insert(conversion.leftJustified ? out_.size() : start, width - length, ' ');
  }

  std::string& out_;
  std::string_view rest_;
  std::span<const Argument> arguments_;
  std::size_t next_ = 0;
};

}  // namespace

std::string formatted(std::string_view format, std::span<const Argument> arguments) {
  std::string text;
  appendFormatted(text, format, arguments);
  return text;
}

void appendFormatted(std::string& out, std::string_view format,
                     std::span<const Argument> arguments) {
  Formatter(out, format, arguments).run();
}

std::string addressText(const void* address) {
  std::string text;
  appendAddress(text, address);
  return text;
}

void appendAddress(std::string& out, const void* address) {
  std::array<char, 2 + 2 * sizeof(void*)> digits{'0', 'x'};
  char* const end = std::to_chars(digits.data() + 2, digits.data() + digits.size(),
                                  reinterpret_cast<std::uintptr_t>(address), 16)
                        .ptr;
  out.append(digits.data(), static_cast<std::size_t>(end - digits.data()));
}

}  // namespace cardpanels::platform
