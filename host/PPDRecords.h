#pragma once

#include <cups/ppd.h>

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What a PPD's records say about its options, whatever is marked. Every record stays the PPD's.
/// Choices go by the names that their records carry: while panels look, that of a marked value is
/// the value itself (`Marks`).
namespace cardpanels::host {

/// The option of that keyword, in whatever case; null when there is none.
ppd_option_t* findOption(ppd_file_t* ppd, const std::string& key);

/// The PPD's options, in its order.
std::vector<ppd_option_t*> allOptions(ppd_file_t* ppd);

/// The page sizes.
std::span<ppd_size_t> sizesOf(ppd_file_t* ppd);

/// Whether the option of that keyword chooses the page size: libcups treats these two as one.
bool isPageSize(std::string_view keyword);
bool isPageSize(const ppd_option_t& option);

/// The option's choices, the choice `Custom` among them where there is one.
std::span<ppd_choice_t> choicesOf(const ppd_option_t& option);

/// The choice of that name, in whatever case; null when the option lists none.
ppd_choice_t* listedChoice(const ppd_option_t& option, std::string_view name);

/// The choice `Custom`, which stands for a value of one's own; null when the option lists none.
ppd_choice_t* customChoice(const ppd_option_t& option);

/// The parameters of `option`'s custom values, in the PPD's order; none when it takes no such
/// values.
std::vector<ppd_cparam_t*> parametersOf(ppd_file_t* ppd, const ppd_option_t& option);

/// How many these are.
int parameterCount(ppd_file_t* ppd, const ppd_option_t& option);

/// The option's title for people, its keyword when it has none. Points into the record.
const char* titleOf(const ppd_option_t& option);

/// The same of its choice `choice`: `choice` itself when it is not listed or has no title, and a
/// custom value as it was typed.
std::string titleOf(const ppd_option_t& option, std::string_view choice);

}  // namespace cardpanels::host
