#pragma once

#include <cups/ppd.h>

#include <string>
#include <vector>

#include "host/Marks.h"

/// What the user reads about the marks as they are: full sentences, in the user's language, by the
/// titles of options and choices.
namespace cardpanels::host {

/// That `option` cannot be what it is marked with because of what `partners` are marked with.
std::string refusal(const Marks& marks, const ppd_option_t& option,
                    const std::vector<ppd_option_t*>& partners);

/// That `option` and `other` cannot be chosen with these marks together, since the one takes the
/// mark of the other away.
std::string exclusion(const ppd_option_t& option, const Mark& mark, const ppd_option_t& other,
                      const Mark& otherMark);

/// That `option` was not changed to what it is marked with because of the values that other options
/// lose by it, which are among `changes`; empty when there are none.
std::string loss(const Marks& marks, const ppd_option_t& option,
                 const std::vector<MarkChange>& changes);

/// Which of `changes` befell other options because of what `option` is marked with, a sentence
/// each; empty when there are none.
std::string explanation(const Marks& marks, const ppd_option_t& option,
                        const std::vector<MarkChange>& changes);

/// Every conflict, a sentence each.
std::vector<std::string> allConflicts(const Marks& marks);

}  // namespace cardpanels::host
