#include "dialog/Mnemonics.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "platform/ASCII.h"

namespace cardpanels::dialog {
namespace {

constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz0123456789";

bool isLetter(char c) { return kLetters.find(platform::lowered(c)) != std::string_view::npos; }

/// The letter after the mark, 0 for none.
char letterOf(std::string_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '_') continue;
    if (caption[++i] != '_') return isLetter(caption[i]) ? platform::lowered(caption[i]) : '\0';
  }
  return '\0';
}

std::string withoutMark(std::string_view caption) {
  std::string text;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '_' && i + 1 < caption.size()) ++i;
    text += caption[i];
  }
  return text;
}

/// `text` as a caption with the mark at `place`, with none when that is past its end.
std::string marked(std::string_view text, std::size_t place) {
  std::string caption;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (i == place || text[i] == '_') caption += '_';
    caption += text[i];
  }
  return caption;
}

/// Where `letter` stands, at the start of a word where it does; the end for nowhere.
std::size_t find(std::string_view text, char letter) {
  std::size_t first = text.size();
  for (std::size_t i = text.size(); i-- > 0;) {
    if (platform::lowered(text[i]) != letter) continue;
    const bool startsWord = i == 0 || !isLetter(text[i - 1]);
    const bool foundStart = first < text.size() && !isLetter(text[first - 1]);
    if (startsWord || !foundStart) first = i;
  }
  return first;
}

/// Hands out letters.
class Letters {
 public:
  void take(const MnemonicCaption& caption, char letter) { taken_.push_back({&caption, letter}); }
  void takeOutside(char letter) { taken_.push_back({nullptr, letter}); }

  bool isFree(const MnemonicCaption& caption, char letter) const {
    return letter != '\0' && std::none_of(taken_.begin(), taken_.end(), [&](const Taken& each) {
             return each.letter == letter &&
                    (each.by == nullptr || showTogether(*each.by, caption));
           });
  }

  /// The first free one of `text`, 0 for none.
  char firstFree(const MnemonicCaption& caption, std::string_view text) const {
    for (const char c : text) {
      const char letter = platform::lowered(c);
      if (isLetter(letter) && isFree(caption, letter)) return letter;
    }
    return '\0';
  }

 private:
  struct Taken {
    const MnemonicCaption* by;  // null for one outside
    char letter;
  };

  static bool showTogether(const MnemonicCaption& a, const MnemonicCaption& b) {
    return a.tabs == nullptr || a.tabs != b.tabs || a.page == b.page;
  }

  std::vector<Taken> taken_;
};

}  // namespace

std::vector<std::string> withMnemonics(const std::vector<MnemonicCaption>& captions,
                                       const std::vector<std::string>& besides) {
  Letters letters;
  for (const std::string& each : besides) letters.takeOutside(letterOf(each));

  std::vector<std::string> texts(captions.size());
  // The letters that users know come first.
  for (std::size_t i = 0; i < captions.size(); ++i) {
    const auto& [own, title, tabs, page] = captions[i];
    const char letter = letterOf(own);
    if (!letters.isFree(captions[i], letter)) continue;
    if (title && find(*title, letter) == title->size()) continue;
    letters.take(captions[i], letter);
    texts[i] = title ? marked(*title, find(*title, letter)) : own;
  }
  for (std::size_t i = 0; i < captions.size(); ++i) {
    if (!texts[i].empty()) continue;
    const std::string text = captions[i].title.value_or(withoutMark(captions[i].own));
    const char own = letterOf(captions[i].own);
    char letter = letters.firstFree(captions[i], text);
    if (letter != '\0') {
      texts[i] = marked(text, find(text, letter));
    } else {
      letter = letters.isFree(captions[i], own) ? own : letters.firstFree(captions[i], kLetters);
      texts[i] = marked(text, text.size());
      if (letter != '\0') {
        texts[i] += std::string("(_") + platform::raised(letter) + ")";
      }
    }
    letters.take(captions[i], letter);
  }
  return texts;
}

}  // namespace cardpanels::dialog
