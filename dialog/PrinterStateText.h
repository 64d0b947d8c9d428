#pragma once

#include <cups/ppd.h>

#include <string>
#include <string_view>

namespace cardpanels::dialog {

struct StateRead;

/// A reason for a state, as IPP names it, in its own words: `com.example.lid-ajar` as "Lid ajar".
std::string wordsOf(std::string_view reason);

/// What a user must know of the printer's state before they print, in one line, such as `Printer
/// stopped · Ribbon empty`: reasons in the words of `ppd`, which may be null, else in ours, else in
/// those of the reason itself; what is worst first. Empty when there is nothing to know.
std::string stateLine(const StateRead& read, ppd_file_t* ppd);

}  // namespace cardpanels::dialog
