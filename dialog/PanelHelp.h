#pragma once

#include <cups/ppd.h>

#include <string>
#include <vector>

#include "platform/PrintPanel.h"

namespace cardpanels::dialog {

using Paragraphs = std::vector<std::string>;

/// What the user can read about a section of the page "Card".
struct Help {
  std::string title;
  Paragraphs paragraphs;
};

/// What the panel's options do, by the titles that `ppd` gives them. `ppd` may be null.
Paragraphs panelHelp(platform::PrintPanel& panel, ppd_file_t* ppd);

Paragraphs summaryHelp();

}  // namespace cardpanels::dialog
