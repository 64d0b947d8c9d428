#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cardpanels::host {

/// One statement of a PPD file: `*keyword option/text: value`. The value may span lines.
struct PPDStatement {
  int line = 0;           // where it starts, from 1
  std::size_t start = 0;  // its first byte in the file
  std::string keyword;
  std::string option;
  std::string text;  // with `<…>` hex decoded, in the file's encoding
  std::string value;
};

/// The keyword of the option that `statement` opens, without an asterisk; "" when it opens none.
std::string openedOption(const PPDStatement& statement);

/// The statements of `bytes`, the whole contents of a PPD file, without comments. Throws `Error`
/// about the file `name` when it is no PPD, is in another encoding than a PPD can be, ends in the
/// middle of something, or has more options or choices than anybody reads: 4000 options, 2000
/// choices of one option.
std::vector<PPDStatement> ppdStatements(std::string_view bytes, const std::string& name);

/// Checks what libcups lets pass and a user would then see wrong: texts that are not in the
/// encoding that the file names. Throws `Error` about the file `name`.
void checkStatements(const std::vector<PPDStatement>& statements, const std::string& name);

}  // namespace cardpanels::host
