#pragma once

#include <string>
#include <vector>

namespace cardpanels::test {

struct TestChoice {
  std::string keyword;
  std::string text;
};

/// A pick-one option of a test's PPD.
struct TestOption {
  std::string keyword;
  std::string text;
  std::vector<TestChoice> choices;
  /// The default's keyword, "" for the first choice; `Default…` lines are left out for "-".
  std::string defaultChoice;
};

/// A small PPD with page sizes and `options`; `lines` (each ended) stand before the options.
std::string testPPD(const std::vector<TestOption>& options, const std::string& lines = {});

/// `keyword` with `count` choices `Choice0`, `Choice1`, … titled "Choice 0", "Choice 1", …
TestOption testOption(const std::string& keyword, const std::string& text, int count,
                      const std::string& defaultChoice = {});

/// `keyword` with the choice `Default` and one string parameter of 0 to 83 characters.
std::string testAreaOption(const std::string& keyword);

/// `cardLaminate`, "Card Laminate", with None, Front, Back and Both; None is the default.
TestOption laminateOption();

}  // namespace cardpanels::test
