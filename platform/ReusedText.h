#pragma once

#include <string>

namespace cardpanels::platform {

/// An empty text to compose in, with the room that earlier ones have grown to, so that composing
/// takes nothing from the heap in the long run. Several may live at a time; the youngest ends
/// first. For the dialog's thread.
class ReusedText {
 public:
  ReusedText();
  ~ReusedText();
  ReusedText(const ReusedText&) = delete;
  ReusedText& operator=(const ReusedText&) = delete;

  std::string& operator*() const { return text_; }

 private:
  std::string& text_;
};

}  // namespace cardpanels::platform
