#include "host/SavedOptions.h"

#include <cerrno>
#include <functional>
#include <system_error>
#include <utility>

#include "host/SavedLines.h"
#include "host/SharedFile.h"
#include "host/Variable.h"

namespace cardpanels::host {
namespace {

/// None of a file that cannot be read, as with libcups.
std::vector<SavedLine> linesOf(const std::string& path) {
  try {
    return savedLines(readFile(path));
  } catch (const std::system_error&) {
    return {};
  }
}

/// Has `change` work on the lines of the user's file.
void changeLines(const std::function<void(std::vector<SavedLine>& lines)>& change) {
  const std::string path = usersFile();
  if (path.empty()) throw std::system_error(ENOENT, std::generic_category());
  changeFile(path, [&](const std::string& content) {
    auto lines = savedLines(content);
    if (!lines.empty() && lines.back().text.back() != '\n') lines.back().text += '\n';
    change(lines);
    std::string changed;
    for (const SavedLine& each : lines) changed += each.text;
    return changed;
  });
}

/// What lines for one name say together.
struct Taken {
  bool isDefault = false;
  OptionList options = {};
  std::size_t at = 0;  // where the first one was, or the end
};

/// Takes the lines for `name` out.
Taken taken(std::vector<SavedLine>& lines, const QueueName& name) {
  Taken all{.at = lines.size()};
  for (std::size_t i = lines.size(); i-- > 0;) {
    if (lines[i].isFor(name)) all.at = i;
  }
  for (const SavedLine& each : lines) {
    if (!each.isFor(name)) continue;
    all.isDefault = all.isDefault || each.isDefault;
    all.options.count =
        cupsParseOptions(each.options.c_str(), all.options.count, &all.options.list);
  }
  std::erase_if(lines, [&](const SavedLine& each) { return each.isFor(name); });
  return all;
}

void put(std::vector<SavedLine>& lines, std::size_t at, SavedLine line) {
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), std::move(line));
}

}  // namespace

QueueName userDefault() {
  std::string name = variable("LPDEST");
  if (name.empty()) name = variable("PRINTER");
  const bool isUsual = name == "lp" && variable("LPDEST").empty();  // many have that from of old
  if (!name.empty() && !isUsual) return QueueName::parse(name);
  for (const std::string& path : {usersFile(), administratorsFile()}) {
    for (const SavedLine& each : linesOf(path)) {
      if (each.isDefault) return each.name;
    }
  }
  return {};
}

std::optional<OptionList> savedUnder(const QueueName& name) {
  std::optional<OptionList> saved;
  for (const std::string& path : {administratorsFile(), usersFile()}) {
    for (const SavedLine& each : linesOf(path)) {
      if (!each.isFor(name)) continue;
      if (!saved) saved.emplace();
      saved->count = cupsParseOptions(each.options.c_str(), saved->count, &saved->list);
    }
  }
  return saved;
}

void saveUnder(const QueueName& name, const std::vector<Option>& options,
               const std::vector<std::string>& dropped) {
  changeLines([&](std::vector<SavedLine>& lines) {
    Taken all = taken(lines, name);
    for (const std::string& each : dropped) all.options.remove(each);
    for (const Option& each : options) all.options.set(each);
    put(lines, all.at, savedLine(all.isDefault, name, all.options));
  });
}

void forgetUnder(const QueueName& name) {
  changeLines([&](std::vector<SavedLine>& lines) {
    const Taken gone = taken(lines, name);
    if (!gone.isDefault || name.instance.empty()) return;
    const QueueName queue{name.queue, ""};
    const Taken rest = taken(lines, queue);
    put(lines, rest.at, savedLine(true, queue, rest.options));
  });
}

}  // namespace cardpanels::host
