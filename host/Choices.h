#pragma once

#include <cups/ppd.h>

#include <map>
#include <string>
#include <vector>

#include "host/Marks.h"

namespace cardpanels::host {

/// What the user chooses of an option.
struct Choice {
  const ppd_option_t* option;
  Mark mark;
};

/// Which choice has changed an option.
using Causes = std::map<const ppd_option_t*, const ppd_option_t*>;

/// Marks all of `choices`, of one option each, and changes other options as the PPD's constraints
/// ask; none of `choices` is changed for another one. Answers why that cannot be, in a sentence,
/// and leaves it to the caller to restore the marks; "" when it is done. `causes` gets whatever has
/// changed. The order of `choices` decides nothing but which one a sentence begins with.
std::string choose(Marks& marks, const std::vector<Choice>& choices, Causes& causes);

}  // namespace cardpanels::host
