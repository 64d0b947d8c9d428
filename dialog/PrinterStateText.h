#pragma once

#include <cups/ppd.h>

#include <string>

namespace cardpanels::dialog {

struct StateRead;

/// What a user must know of the printer's state before they print, in one line, such as `Printer
/// stopped · Ribbon empty`: reasons in the words of `ppd`, which may be null, else in ours, else in
/// those of the reason itself; what is worst first. Empty when there is nothing to know.
std::string stateLine(const StateRead& read, ppd_file_t* ppd);

}  // namespace cardpanels::dialog
