#pragma once

#include <cups/ppd.h>

#include <string>
#include <string_view>
#include <vector>

namespace cardpanels::host {

/// Whether `text` says of itself that it is a custom value.
bool isCustomText(std::string_view text);

/// The custom value `text` of `option` in the form that a job carries: `Custom.` and the value for
/// one parameter and for page sizes (`Custom.2x3.5in`), `{Name=value Name="a b"}` for several.
/// `text` may come with or without `Custom.`, and in braces. Throws `Error` with a sentence for the
/// user when the option takes none, or the text is outside a parameter's type or limits.
std::string checkedCustomValue(ppd_file_t* ppd, const ppd_option_t& option, std::string_view text);

/// The same in two steps, for parameters that are typed one by one; not for page sizes. What is
/// wrong with `value` for `parameter` of `option`, in a sentence for the user; "" when nothing is.
std::string parameterFault(ppd_file_t* ppd, const ppd_option_t& option,
                           const ppd_cparam_t& parameter, const std::string& value);

/// The custom value of `values` without fault, one for each parameter in the PPD's order.
std::string customValueOf(ppd_file_t* ppd, const ppd_option_t& option,
                          const std::vector<std::string>& values);

/// The values that `custom`, a custom value in the form that a job carries, has for the parameters,
/// in the PPD's order.
std::vector<std::string> parameterValues(ppd_file_t* ppd, const ppd_option_t& option,
                                         const std::string& custom);

}  // namespace cardpanels::host
