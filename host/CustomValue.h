#pragma once

#include <cups/ppd.h>

#include <string>
#include <string_view>

namespace cardpanels::host {

/// The custom value `text` of `option` in the form that a job carries: `Custom.` and the value for
/// one parameter and for page sizes (`Custom.2x3.5in`), `{Name=value Name="a b"}` for several.
/// `text` may come with or without `Custom.`, and in braces. Throws `Error` with a sentence for the
/// user when the option takes none, or the text is outside a parameter's type or limits.
std::string checkedCustomValue(ppd_file_t* ppd, const ppd_option_t& option, std::string_view text);

}  // namespace cardpanels::host
