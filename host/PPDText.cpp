#include "host/PPDText.h"

#include <cups/language.h>

#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include "host/Error.h"
#include "platform/ASCII.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::equalIgnoringCase;
using platform::filled;
using platform::isBlank;
using platform::lowered;
using platform::trimmed;

[[noreturn]] void fail(const std::string& name, int line, const std::string& reason) {
  throw Error::inLine(name, line, reason);
}

bool opensOption(const PPDStatement& statement) {
  return statement.keyword == "OpenUI" || statement.keyword == "JCLOpenUI";
}

bool closesOption(const PPDStatement& statement) {
  return statement.keyword == "CloseUI" || statement.keyword == "JCLCloseUI";
}

constexpr int kMostOptions = 4000;
constexpr int kMostChoices = 2000;

/// `*frontUV` and `frontUV` name the same option.
std::string optionKeyword(const std::string& name) { return name.substr(name[0] == '*' ? 1 : 0); }

/// Takes a PPD file apart by the rules of libcups' own reader.
class Reader {
 public:
  Reader(std::string_view bytes, const std::string& name)
      : size_(bytes.size()), rest_(bytes), name_(name) {}

  std::vector<PPDStatement> statements() {
    std::vector<PPDStatement> all;
    while (!rest_.empty()) {
      const int line = line_;
      const std::size_t start = size_ - rest_.size();
      const std::string text = readStatementText();
      if (text.size() < 2 || text[0] != '*' || text[1] == '%') continue;
      PPDStatement statement = parsed(text);
      statement.line = line;
      statement.start = start;
      if (!lastLineEnds_ && !isWhole(statement)) {
        fail(name_, line, _("The file ends inside this line."));
      }
      if (opensOption(statement)) openOption_ = openedOption(statement);
      if (statement.keyword != "End") all.push_back(std::move(statement));
    }
    return all;
  }

 private:
  std::string_view readLine() {
    // Many times as fast as find_first_of, and each byte comes by here.
    const auto* const end =
        std::find_if(rest_.begin(), rest_.end(), [](char c) { return c == '\n' || c == '\r'; });
    const std::string_view line(rest_.begin(), end);
    rest_.remove_prefix(line.size());
    if (rest_.empty()) {
      lastLineEnds_ = false;
      return line;
    }
    rest_.remove_prefix(rest_.substr(0, 2) == "\r\n" ? 2 : 1);
    ++line_;
    return line;
  }

  /// One line, or several when a quoted value spans them.
  std::string readStatementText() {
    const int start = line_;
    std::string text{readLine()};
    if (text.substr(0, 2) == "*%") return text;
    const std::size_t colon = text.find(':');
    bool quoted = colon != std::string::npos && hasOddQuotes(std::string_view(text).substr(colon));
    while (quoted) {
      if (rest_.empty()) fail(name_, start, _("The quoted value that starts here does not end."));
      const std::string_view line = readLine();
      quoted = !hasOddQuotes(line);
      text += '\n';
      text += line;
    }
    return text;
  }

  static bool hasOddQuotes(std::string_view text) {
    return std::count(text.begin(), text.end(), '"') % 2 != 0;
  }

  /// Whether a last line without a line end is certain to be complete.
  bool isWhole(const PPDStatement& statement) const {
    if (closesOption(statement)) return optionKeyword(statement.value) == openOption_;
    return statement.keyword == "End" || trimmed(statement.value).ends_with('"');
  }

  static PPDStatement parsed(const std::string& line) {
    PPDStatement statement;
    std::string_view rest = std::string_view(line).substr(1);
    statement.keyword = takeUntil(rest, [](char c) { return c == ':' || isBlank(c); });
    rest = skipBlanks(rest);
    statement.option = takeUntil(rest, [](char c) { return c == ':' || c == '/' || isBlank(c); });
    rest = skipBlanks(rest);
    if (!rest.empty() && rest[0] == '/') {
      rest.remove_prefix(1);
      statement.text = decoded(takeUntil(rest, [](char c) { return c == ':' || c == '\n'; }));
    }
    rest = skipBlanks(rest);
    if (!rest.empty() && rest[0] == ':') statement.value = trimmed(rest.substr(1));
    return statement;
  }

  template <typename Stop>
  static std::string takeUntil(std::string_view& rest, Stop stop) {
    const auto end = std::find_if(rest.begin(), rest.end(), stop);
    std::string taken(rest.begin(), end);
    rest.remove_prefix(taken.size());
    return taken;
  }

  static std::string_view skipBlanks(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    return text;
  }

  /// A text with its hex parts (`Gr<F6DF>e`) as bytes.
  static std::string decoded(std::string_view text) {
    std::string result;
    while (!text.empty()) {
      const std::size_t open = text.find('<');
      const std::size_t close = text.find('>', std::min(open, text.size()));
      result += text.substr(0, open);
      if (open == std::string_view::npos) break;
      if (open + 1 >= text.size() || digit(text[open + 1]) < 0) {
        result += '<';
        text.remove_prefix(open + 1);
        continue;
      }
      appendHex(result, text.substr(open + 1, close - open - 1));
      text.remove_prefix(close == std::string_view::npos ? text.size() : close + 1);
    }
    return result;
  }

  static void appendHex(std::string& result, std::string_view hex) {
    for (; hex.size() >= 2 && digit(hex[0]) >= 0 && digit(hex[1]) >= 0; hex.remove_prefix(2)) {
      result += static_cast<char>(digit(hex[0]) * 16 + digit(hex[1]));
    }
  }

  static int digit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    c = lowered(c);
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
  }

  const std::size_t size_;
  std::string_view rest_;
  const std::string& name_;
  int line_ = 1;
  bool lastLineEnds_ = true;
  std::string openOption_;
};

void checkEncoding(std::string_view bytes, const std::string& name) {
  if (trimmed(bytes).empty()) throw Error(name + ": " + _("The file is empty."));
  const std::string_view start = bytes.substr(0, 2);
  if (start == "\xFF\xFE" || start == "\xFE\xFF") {
    fail(name, 1, _("The file is in UTF-16; a PPD file must be in UTF-8."));
  }
  if (bytes.substr(0, 3) == "\xEF\xBB\xBF") {
    fail(name, 1,
         _("The file starts with a byte order mark; a PPD file must start with *PPD-Adobe."));
  }
  if (bytes.substr(0, 10) != "*PPD-Adobe") {
    fail(name, 1, _("This is not a PPD file: it does not start with *PPD-Adobe."));
  }
  const std::size_t zero = bytes.find('\0');
  if (zero == std::string_view::npos) return;
  const auto* const end = bytes.begin() + static_cast<std::ptrdiff_t>(zero);
  fail(name, 1 + static_cast<int>(std::count(bytes.begin(), end, '\n')),
       _("There is a zero byte in this line."));
}

/// Whether `statement` is one of those that stand between `opening` and its close. Some printers'
/// files forget a close and go on with something else; libcups reads these well.
bool belongsTo(const PPDStatement& opening, const PPDStatement& statement) {
  return &statement == &opening || statement.keyword == optionKeyword(opening.option) ||
         statement.keyword == "OrderDependency" || statement.keyword.substr(0, 7) == "Default";
}

void checkClosed(const std::vector<PPDStatement>& statements, const std::string& name) {
  const PPDStatement* option = nullptr;
  const PPDStatement* group = nullptr;
  for (const PPDStatement& each : statements) {
    if (opensOption(each)) option = &each;
    if (closesOption(each)) option = nullptr;
    if (each.keyword == "OpenGroup") group = &each;
    if (each.keyword == "CloseGroup") group = nullptr;
  }
  if (option != nullptr && !belongsTo(*option, statements.back())) option = nullptr;
  const PPDStatement* open = option != nullptr ? option : group;
  if (open == nullptr) return;
  const std::string subject =
      "*" + open->keyword + " " + (open == option ? open->option : open->value);
  fail(name, open->line,
       filled(_("{statement} is never closed; the file seems to be cut off."),
              {{"statement", subject}}));
}

/// Stops what would keep libcups busy for minutes, and a dialog as long.
void checkCounts(const std::vector<PPDStatement>& statements, const std::string& name) {
  int options = 0;
  std::string option;
  std::map<std::string, int> choices;
  for (const PPDStatement& each : statements) {
    if (opensOption(each)) {
      option = openedOption(each);
      if (++options <= kMostOptions) continue;
      fail(name, each.line,
           filled(_("The file has more than {count} options."),
                  {{"count", std::to_string(kMostOptions)}}));
    } else if (closesOption(each)) {
      option.clear();
    } else if (!option.empty() && each.keyword == option && ++choices[option] > kMostChoices) {
      fail(name, each.line,
           filled(_("The option {option} has more than {count} choices."),
                  {{"option", option}, {"count", std::to_string(kMostChoices)}}));
    }
  }
}

/// The encodings that libcups knows by PPD name.
cups_encoding_t encodingNamed(const std::string& value) {
  const std::string_view name = trimmed(value);
  constexpr std::array<std::pair<std::string_view, cups_encoding_t>, 6> known = {{
      {"ISOLatin1", CUPS_ISO8859_1},
      {"ISOLatin2", CUPS_ISO8859_2},
      {"ISOLatin5", CUPS_ISO8859_5},
      {"JIS83-RKSJ", CUPS_JIS_X0213},
      {"MacStandard", CUPS_MAC_ROMAN},
      {"WindowsANSI", CUPS_WINDOWS_1252},
  }};
  for (const auto& [each, encoding] : known) {
    if (equalIgnoringCase(each, name)) return encoding;
  }
  return CUPS_UTF8;
}

/// `de.Translation`, `pt_BR.frontUV`: these are UTF-8 whatever the file's encoding.
bool isTranslation(std::string_view keyword) {
  const std::size_t point = keyword.find('.');
  return point == 2 || (point == 5 && keyword[2] == '_');
}

/// Texts that libcups takes as UTF-8 without converting them.
bool isTakenAsItIs(const PPDStatement& statement) {
  return isTranslation(statement.keyword) || statement.keyword.substr(0, 6) == "Custom" ||
         statement.keyword.substr(0, 11) == "ParamCustom";
}

class Checker {
 public:
  explicit Checker(const std::string& name) : name_(name) {}

  void check(const PPDStatement& statement) {
    if (statement.keyword == "LanguageEncoding") encoding_ = encodingNamed(statement.value);
    if (opensOption(statement)) option_ = openedOption(statement);
    if (isShown(statement)) checkText(statement);
    if (closesOption(statement)) option_.clear();
  }

 private:
  /// Whether people see the statement's text.
  bool isShown(const PPDStatement& statement) const {
    if (statement.text.empty()) return false;
    return opensOption(statement) || isTakenAsItIs(statement) || statement.keyword == option_;
  }

  void checkText(const PPDStatement& statement) const {
    if (platform::isASCII(statement.text)) return;
    const bool isUTF8 = platform::isUTF8(statement.text);
    const std::string subject = "*" + statement.keyword + " " + statement.option;
    if (!isUTF8 && (encoding_ == CUPS_UTF8 || isTakenAsItIs(statement))) {
      fail(name_, statement.line,
           filled(_("The text of {statement} is not UTF-8."), {{"statement", subject}}));
    }
    if (isUTF8 && !encoding_ && !isTakenAsItIs(statement)) {
      fail(name_, statement.line,
           filled(_("The text of {statement} is in UTF-8, but no *LanguageEncoding: UTF-8 stands "
                    "before it."),
                  {{"statement", subject}}));
    }
  }

  const std::string& name_;
  std::optional<cups_encoding_t> encoding_;
  std::string option_;
};

}  // namespace

std::string openedOption(const PPDStatement& statement) {
  return opensOption(statement) ? optionKeyword(statement.option) : "";
}

std::vector<PPDStatement> ppdStatements(std::string_view bytes, const std::string& name) {
  checkEncoding(bytes, name);
  auto statements = Reader(bytes, name).statements();
  checkClosed(statements, name);
  checkCounts(statements, name);
  return statements;
}

void checkStatements(const std::vector<PPDStatement>& statements, const std::string& name) {
  Checker checker(name);
  for (const PPDStatement& statement : statements) checker.check(statement);
}

}  // namespace cardpanels::host
