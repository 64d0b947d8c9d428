#pragma once

#include <string>
#include <vector>

#include "platform/Text.h"

namespace cardpanels::dialog {

/// A caption that has a mnemonic: `_` stands before its letter, and `__` for `_`.
struct MnemonicCaption {
  std::string own;       // as the user-interface file has it
  platform::Text title;  // what stands in its place, without a mnemonic
  // Captions on different pages of the same tabs never show at once. Null for on no page.
  const void* tabs = nullptr;
  int page = 0;
};

/// The captions' texts, the titles where there are any, with a mnemonic for each that no other has
/// that shows at the same time, nor any of `besides`, captions outside of the panel. The letter is
/// the file's where the text has it and it is free, else the first free one of the text, else one
/// in parentheses after it. ASCII only. Without a free letter there is no mnemonic.
std::vector<std::string> withMnemonics(const std::vector<MnemonicCaption>& captions,
                                       const std::vector<std::string>& besides);

}  // namespace cardpanels::dialog
