#include "host/SavedOptions.h"

#include <cups/file.h>
#include <pwd.h>
#include <strings.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string_view>
#include <system_error>

namespace cardpanels::host {
namespace {

/// A line of an `lpoptions` file.
struct Entry {
  bool isDefault = false;
  QueueName name;
  std::string options;
};

struct FileCloser {
  void operator()(cups_file_t* file) const { cupsFileClose(file); }
};

std::vector<Entry> entriesIn(const std::string& path) {
  const std::unique_ptr<cups_file_t, FileCloser> file(cupsFileOpen(path.c_str(), "r"));
  std::vector<Entry> entries;
  if (!file) return entries;
  std::array<char, 1UL << 16U> line{};
  char* value = nullptr;
  int number = 0;
  while (cupsFileGetConf(file.get(), line.data(), line.size(), &value, &number) != nullptr) {
    const bool isDefault = strcasecmp(line.data(), "default") == 0;
    if (value == nullptr || (!isDefault && strcasecmp(line.data(), "dest") != 0)) continue;
    const std::string_view text = value;
    const std::size_t end = std::min(text.find_first_of(" \t"), text.size());
    entries.push_back({isDefault, QueueName::parse(std::string(text.substr(0, end))),
                       std::string(text.substr(end))});
  }
  return entries;
}

std::string variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

std::string administratorsFile() {
  const std::string folder = variable("CUPS_SERVERROOT");
  return (folder.empty() ? "/etc/cups" : folder) + "/lpoptions";
}

/// Empty when the user has no home.
std::string usersFile() {
  std::string home = variable("HOME");
  if (home.empty()) {
    const passwd* const user = getpwuid(getuid());
    if (user != nullptr) home = user->pw_dir;
  }
  return home.empty() ? "" : home + "/.cups/lpoptions";
}

bool isSame(const QueueName& a, const QueueName& b) {
  return strcasecmp(a.queue.c_str(), b.queue.c_str()) == 0 &&
         strcasecmp(a.instance.c_str(), b.instance.c_str()) == 0;
}

/// As `cupsFileGetConf` and `cupsParseOptions` read it back.
std::string quotedValue(const std::string& value) {
  std::string quoted = "\"";
  for (const char c : value) {
    if (c == '\n') throw std::system_error(EINVAL, std::generic_category());
    if (c == '"' || c == '\'' || c == '\\' || c == '#') quoted += '\\';
    quoted += c;
  }
  return quoted + "\"";
}

std::string lineOf(const Entry& entry, const OptionList& options) {
  std::string line = (entry.isDefault ? "Default " : "Dest ") + entry.name.text();
  for (const Option& each : options.options())
    line += " " + each.key + "=" + quotedValue(each.value);
  return line + "\n";
}

/// Puts `text` in the place of the file at `path`, whole or not at all.
void replaceFile(const std::string& path, const std::string& text) {
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  std::string target = std::filesystem::weakly_canonical(path).string();
  std::string fresh = target + ".XXXXXX";
  const int file = mkstemp(fresh.data());
  if (file < 0) throw std::system_error(errno, std::generic_category());
  const bool isWritten =
      write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size()) &&
      fsync(file) == 0;
  const int number = errno;
  close(file);
  if (isWritten && rename(fresh.c_str(), target.c_str()) == 0) return;
  const std::error_code failure(isWritten ? errno : number, std::generic_category());
  unlink(fresh.c_str());
  throw std::system_error(failure);
}

}  // namespace

QueueName userDefault() {
  std::string name = variable("LPDEST");
  if (name.empty()) name = variable("PRINTER");
  const bool isUsual = name == "lp" && variable("LPDEST").empty();  // many have that from of old
  if (!name.empty() && !isUsual) return QueueName::parse(name);
  for (const std::string& path : {usersFile(), administratorsFile()}) {
    for (const Entry& each : entriesIn(path)) {
      if (each.isDefault) return each.name;
    }
  }
  return {};
}

std::optional<OptionList> savedUnder(const QueueName& name) {
  std::optional<OptionList> saved;
  for (const std::string& path : {administratorsFile(), usersFile()}) {
    for (const Entry& each : entriesIn(path)) {
      if (!isSame(each.name, name)) continue;
      if (!saved) saved.emplace();
      saved->count = cupsParseOptions(each.options.c_str(), saved->count, &saved->list);
    }
  }
  return saved;
}

void saveUnder(const QueueName& name, const std::vector<Option>& options) {
  const std::string path = usersFile();
  if (path.empty()) throw std::system_error(ENOENT, std::generic_category());
  std::string text;
  Entry kept{false, name, {}};
  OptionList all;
  for (const Entry& each : entriesIn(path)) {
    const OptionList saved = OptionList::parsed(each.options);
    if (!isSame(each.name, name)) {
      text += lineOf(each, saved);
      continue;
    }
    kept.isDefault = kept.isDefault || each.isDefault;
    for (const Option& option : saved.options()) all.set(option);
  }
  for (const Option& each : options) all.set(each);
  replaceFile(path, text + lineOf(kept, all));
}

}  // namespace cardpanels::host
