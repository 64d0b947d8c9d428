#pragma once

#include <cups/ppd.h>

#include <string>
#include <vector>

#include "host/JobOption.h"

/// `media`, under which programs name the size of the card, and perhaps where it comes from and
/// what it is made of, in place of the PPD's own options.
namespace cardpanels::host {

/// The PPD's own option for the size.
inline constexpr const char* kPageSize = "PageSize";

/// Whether `key` is `media` and the PPD has that under options of its own.
bool isMedia(ppd_file_t* ppd, const std::string& key);

/// Whether `key` is an option of the PPD, or `media` in place of some.
bool isOfPPD(ppd_file_t* ppd, const std::string& key);

/// What `value` of `media` asks for under the PPD's own options, each once: a size by the PPD's
/// name or a PWG one, a source, a type, or several of these with commas between them. Throws
/// `Error` with the part that this printer has nothing for.
std::vector<Option> optionsOfMedia(ppd_file_t* ppd, const std::string& value);

}  // namespace cardpanels::host
