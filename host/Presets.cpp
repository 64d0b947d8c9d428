#include "host/Presets.h"

#include <strings.h>

#include <algorithm>
#include <string_view>
#include <system_error>
#include <utility>

#include "host/Error.h"
#include "host/MediaOption.h"
#include "host/SavedLines.h"
#include "host/SavedOptions.h"
#include "host/SharedFile.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::filled;

constexpr std::size_t kLongestName = 127;  // that CUPS takes, in bytes
constexpr std::string_view kForbidden = " /\\?'\"#";
constexpr char kLastControl = 0x1F;
constexpr char kDelete = 0x7F;

/// A file that cannot be read is left out, as with libcups.
std::string administratorsLines() {
  try {
    return readFile(administratorsFile());
  } catch (const std::system_error&) {
    return {};
  }
}

std::string usersLines() {
  const std::string path = usersFile();
  try {
    return path.empty() ? "" : readFile(path);
  } catch (const std::system_error& error) {
    throw Error(filled(_("{file} cannot be read: {reason}"),
                       {{"file", path}, {"reason", error.code().message()}}));
  }
}

void add(std::vector<Preset>& presets, const SavedLine& line, bool isLocked) {
  auto preset = std::find_if(presets.begin(), presets.end(), [&](const Preset& each) {
    return strcasecmp(each.name.c_str(), line.name.instance.c_str()) == 0;
  });
  if (preset == presets.end()) preset = presets.insert(presets.end(), {line.name.instance});
  preset->isLocked = isLocked;
  OptionList options(preset->options);
  options.count = cupsParseOptions(line.options.c_str(), options.count, &options.list);
  preset->options = options.options();
}

/// Does `action` with what is saved under `name`; its failure becomes `sentence`.
template <typename Action>
void changing(const QueueName& name, const char* sentence, Action action) {
  try {
    action();
  } catch (const std::system_error& error) {
    throw Error(filled(sentence, {{"queue", platform::onOneLine(name.text())},
                                  {"reason", error.code().message()}}));
  }
}

}  // namespace

std::vector<Preset> presetsOf(const std::string& queue) {
  std::vector<Preset> presets(1);
  const std::string own = usersLines();
  for (const SavedLine& each : savedLines(administratorsLines())) {
    if (each.isFor(queue)) add(presets, each, true);
  }
  for (const SavedLine& each : savedLines(own)) {
    if (each.isFor(queue)) add(presets, each, false);
  }
  std::sort(presets.begin(), presets.end(), [](const Preset& a, const Preset& b) {
    return strcasecmp(a.name.c_str(), b.name.c_str()) < 0;
  });
  return presets;
}

std::string presetNameFault(const std::string& name) {
  if (name.empty()) return _("A preset needs a name.");
  if (!platform::isUTF8(name)) return _("A preset's name must be text in UTF-8.");
  for (const char c : name) {
    if ((c >= 0 && c <= kLastControl) || c == kDelete) {
      return _("A preset's name cannot have control characters.");
    }
    if (c == ' ') return _("A preset's name cannot have spaces.");
    if (kForbidden.find(c) != std::string_view::npos) {
      return filled(_("A preset's name cannot have the character {character}."),
                    {{"character", std::string(1, c)}});
    }
  }
  if (name.size() > kLongestName) return _("This name is too long for the print system.");
  return {};
}

void savePreset(const QueueName& name, const std::vector<Option>& options) {
  const bool hasSize = std::any_of(options.begin(), options.end(),
                                   [](const Option& each) { return each.key == kPageSize; });
  // The size under another name, which programs may prefer.
  const auto dropped =
      hasSize ? std::vector<std::string>{"media", "PageRegion"} : std::vector<std::string>();
  changing(name, _("The options of the queue {queue} cannot be saved: {reason}"),
           [&] { saveUnder(name, options, dropped); });
}

void deletePreset(const QueueName& name) {
  changing(name, _("The options of the queue {queue} cannot be deleted: {reason}"),
           [&] { forgetUnder(name); });
}

}  // namespace cardpanels::host
