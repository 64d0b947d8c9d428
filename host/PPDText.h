#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cardpanels::host {

/// One statement of a PPD file: `*keyword option/text: value`. The value may span lines.
struct PPDStatement {
  int line = 0;  // where it starts, from 1
  std::string keyword;
  std::string option;
  std::string text;  // with `<…>` hex decoded, in the file's encoding
  std::string value;
};

/// The statements of `bytes`, the whole contents of a PPD file, without comments. Throws `Error`
/// about the file `name` when it is no PPD, is in another encoding than a PPD can be, or ends in
/// the middle of something.
std::vector<PPDStatement> ppdStatements(std::string_view bytes, const std::string& name);

/// Checks what libcups lets pass and a user would then see wrong: texts that are not in the
/// encoding that the file names, and options that stand there twice. Throws `Error` about the file
/// `name`.
void checkStatements(const std::vector<PPDStatement>& statements, const std::string& name);

}  // namespace cardpanels::host
