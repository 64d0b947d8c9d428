#include "dialog/Captions.h"

#include <utility>

#include "platform/Messages.h"

namespace cardpanels::dialog {
namespace {

using platform::_;
using platform::Text;

constexpr std::string_view kTitle = "title-";

/// With a place for the area's title.
const char* measurement(std::string_view part) {
  if (part == "X") return _("{area}, X");
  if (part == "Y") return _("{area}, Y");
  if (part == "Width") return _("{area}, width");
  if (part == "Height") return _("{area}, height");
  return "{area}";
}

}  // namespace

Captions captionsOf(const host::JobOptions& job, std::vector<std::string> buttons) {
  Captions captions;
  captions.title = [&job](const std::string& key) -> Text {
    if (!job.hasOption(key)) return std::nullopt;
    std::string title = job.optionTitle(key);
    // libcups takes the keyword where the PPD has no title.
    if (title == key) return std::nullopt;
    return title;
  };
  captions.besides = std::move(buttons);
  for (const char* text : {_("Change An_yway"), _("Cl_ose"), _("Pr_eset")})
    captions.besides.emplace_back(text);
  return captions;
}

Text titleByName(const Captions& captions, std::string_view name) {
  if (!captions.title || !name.starts_with(kTitle)) return std::nullopt;
  name.remove_prefix(kTitle.size());
  const std::size_t dash = name.find('-');
  Text title = captions.title(std::string(name.substr(0, dash)));
  if (!title || dash == std::string_view::npos) return title;
  return platform::filled(measurement(name.substr(dash + 1)), {{"area", *title}});
}

Text optionOfCaption(std::string_view name) {
  if (!name.starts_with(kTitle)) return std::nullopt;
  return std::string(name.substr(kTitle.size()));
}

}  // namespace cardpanels::dialog
