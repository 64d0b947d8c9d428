#pragma once

namespace cardpanels::host {

/// The options that make a panel, panel by panel: a printer with none of them has no page. Known
/// here so that the printer's options tell it before anything else is loaded.
constexpr const char* kCardKeys[] = {
    "frontRibbon",  "backRibbon",    "frontResin",   "backResin",     "frontUV",
    "backUV",       "frontUVMAC",    "backUVMAC",    "frontPO",       "backPO",
    "cardLaminate", "frontRotation", "backRotation", "entryCardFlip", "magEncodeCardFlip"};

}  // namespace cardpanels::host
