#pragma once

#include <cups/ppd.h>

#include <array>
#include <string>
#include <vector>

namespace cardpanels::host {

class JobOptions;
struct PPDStatement;

/// X, Y, width and height, each a measurement.
using ChoiceArea = std::array<std::string, 4>;

/// Where on the card the choice lies that is marked of the option `key`, as the PPD's lines
/// `*cardpanelsArea OPTION.CHOICE: "X Y WIDTH HEIGHT"` tell, in their order. None for a choice that
/// has no such line, for an unknown option, and where nothing is marked.
std::vector<ChoiceArea> choiceAreas(const JobOptions& job, const std::string& key);

/// Checks `*cardpanelsOrigin` and `*cardpanelsArea` in the statements of `ppd`. Throws `Error`
/// about the file `name`, with the line, for an origin that is no corner, an option or choice that
/// the PPD does not have, and what are not four measurements, the last two above 0.
void checkCardLines(const std::vector<PPDStatement>& statements, ppd_file_t* ppd,
                    const std::string& name);

}  // namespace cardpanels::host
