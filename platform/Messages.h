#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace cardpanels::platform {

/// The gettext domain of all texts that people see.
inline constexpr const char* kTextDomain = "cardpanels";

/// Has all texts translated by the catalogues of the bundle in folder `bundle`, an absolute path. A
/// program calls it at its start, and chooses the language with `setlocale`.
void useCatalogues(const std::string& bundle);

/// `text` in the user's language, itself without a translation. xgettext collects the texts with
/// `--keyword=_`.
const char* _(const char* text);

/// `pattern` with each `{name}` replaced by its value, in whatever order a translation has them.
std::string filled(std::string_view pattern,
                   std::initializer_list<std::pair<std::string_view, std::string_view>> values);

}  // namespace cardpanels::platform
