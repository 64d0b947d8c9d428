#include "host/SavedLines.h"

#include <pwd.h>
#include <strings.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <system_error>

#include "host/Variable.h"

namespace cardpanels::host {
namespace {

constexpr std::string_view kSpaces = " \t\v\f\r\n";
constexpr std::size_t kLongestLine = 8190;  // that libcups reads as one

bool isSame(const std::string& a, const std::string& b) {
  return strcasecmp(a.c_str(), b.c_str()) == 0;
}

/// As cupsFileGetConf does it.
std::string withoutComment(std::string_view line) {
  std::string text;
  for (const char c : line) {
    if (c != '#') {
      text += c;
    } else if (!text.empty() && text.back() == '\\') {
      text.back() = c;
    } else {
      break;
    }
  }
  const std::size_t last = text.find_last_not_of(kSpaces);
  text.erase(last == std::string::npos ? 0 : last + 1);
  return text;
}

/// Takes the first word off `text`, and the spaces around it.
std::string takeWord(std::string& text) {
  text.erase(0, std::min(text.find_first_not_of(kSpaces), text.size()));
  const std::size_t end = std::min(text.find_first_of(kSpaces), text.size());
  std::string word = text.substr(0, end);
  text.erase(0, std::min(text.find_first_not_of(kSpaces, end), text.size()));
  return word;
}

SavedLine parsed(std::string line) {
  std::string rest = withoutComment(line);
  SavedLine read{std::move(line)};
  const std::string keyword = takeWord(rest);
  read.isDefault = isSame(keyword, "default");
  if (!read.isDefault && !isSame(keyword, "dest")) return read;
  read.name = QueueName::parse(takeWord(rest));
  read.options = std::move(rest);
  return read;
}

/// As cupsFileGetConf and cupsParseOptions read it back.
std::string quotedValue(const std::string& value) {
  std::string quoted = "\"";
  for (const char c : value) {
    if (c == '\n') throw std::system_error(EINVAL, std::generic_category());
    if (c == '"' || c == '\'' || c == '\\' || c == '#') quoted += '\\';
    quoted += c;
  }
  return quoted + "\"";
}

}  // namespace

std::string administratorsFile() {
  const std::string folder = variable("CUPS_SERVERROOT");
  return (folder.empty() ? "/etc/cups" : folder) + "/lpoptions";
}

std::string usersFile() {
  std::string home = variable("HOME");
  if (home.empty()) {
    const passwd* const user = getpwuid(getuid());
    if (user != nullptr) home = user->pw_dir;
  }
  return home.empty() ? "" : home + "/.cups/lpoptions";
}

bool SavedLine::isFor(const QueueName& other) const {
  return isFor(other.queue) && isSame(name.instance, other.instance);
}

bool SavedLine::isFor(const std::string& queue) const {
  return !name.queue.empty() && isSame(name.queue, queue);
}

std::vector<SavedLine> savedLines(const std::string& content) {
  std::vector<SavedLine> lines;
  for (std::size_t at = 0; at < content.size();) {
    const std::size_t end = std::min(content.find('\n', at), content.size() - 1) + 1;
    lines.push_back(parsed(content.substr(at, end - at)));
    at = end;
  }
  return lines;
}

SavedLine savedLine(bool isDefault, const QueueName& name, const OptionList& options) {
  std::string line = (isDefault ? "Default " : "Dest ") + name.text();
  for (const Option& each : options.options())
    line += " " + each.key + "=" + quotedValue(each.value);
  if (line.size() > kLongestLine) throw std::system_error(EMSGSIZE, std::generic_category());
  return parsed(line + "\n");
}

}  // namespace cardpanels::host
