#pragma once

#include <string>
#include <vector>

namespace cardpanels::dialog {

enum class Gravity { fact, warning, error };

/// Something that the writer of a PPD should know.
struct Finding {
  int line = 0;  // where it stands, 0 for no place
  Gravity gravity = Gravity::fact;
  std::string text;
};

/// What the panels make of the PPD at `path`, in sentences, and what libcups' own test says of it:
/// which panels appear comes first, then what stands in the file, by lines. Throws `host::Error`
/// for a PPD that cannot be used at all.
std::vector<Finding> checkPPD(const std::string& path);

}  // namespace cardpanels::dialog
