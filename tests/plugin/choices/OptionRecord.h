#pragma once

#include <cups/ppd.h>

#include <cstring>
#include <string>
#include <vector>

namespace cardpanels::test {

/// A PPD option's record as CUPS would make it.
class OptionRecord {
 public:
  OptionRecord(const char* text, const char* defaultChoice,
               const std::vector<std::pair<std::string, std::string>>& choices)
      : choices_(choices.size()) {
    std::strncpy(option_.keyword, "option", sizeof option_.keyword - 1);
    std::strncpy(option_.text, text, sizeof option_.text - 1);
    std::strncpy(option_.defchoice, defaultChoice, sizeof option_.defchoice - 1);
    for (std::size_t i = 0; i < choices.size(); ++i) {
      std::strncpy(choices_[i].choice, choices[i].first.c_str(), sizeof choices_[i].choice - 1);
      std::strncpy(choices_[i].text, choices[i].second.c_str(), sizeof choices_[i].text - 1);
      choices_[i].option = &option_;
    }
    option_.num_choices = static_cast<int>(choices.size());
    option_.choices = choices_.data();
  }
  OptionRecord(const OptionRecord&) = delete;
  OptionRecord& operator=(const OptionRecord&) = delete;

  ppd_option_t* get() { return &option_; }
  ppd_choice_t* choice(std::size_t index) { return &choices_[index]; }

 private:
  ppd_option_t option_{};
  std::vector<ppd_choice_t> choices_;
};

}  // namespace cardpanels::test
