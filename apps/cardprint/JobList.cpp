#include "apps/cardprint/JobList.h"

#include <cstddef>
#include <sstream>
#include <string_view>

#include "apps/cardprint/OptionArgument.h"
#include "host/Error.h"
#include "platform/ASCII.h"
#include "platform/Messages.h"

namespace cardpanels::cardprint {
namespace {

/// Takes a line apart as a shell does that knows quotes and backslashes alone.
class Words {
 public:
  explicit Words(std::string_view line) : rest_(line) {}

  std::vector<std::string> all() {
    std::vector<std::string> words;
    while (skipBlanks()) words.push_back(next());
    return words;
  }

 private:
  bool skipBlanks() {
    while (!rest_.empty() && platform::isBlank(rest_.front())) rest_.remove_prefix(1);
    return !rest_.empty();
  }

  char taken() {
    const char character = rest_.front();
    rest_.remove_prefix(1);
    return character;
  }

  std::string next() {
    std::string word;
    while (!rest_.empty() && !platform::isBlank(rest_.front())) {
      const char character = taken();
      if (character == '"' || character == '\'') {
        word += quoted(character);
      } else {
        word += character == '\\' && !rest_.empty() ? taken() : character;
      }
    }
    return word;
  }

  std::string quoted(char quote) {
    std::string text;
    while (!rest_.empty() && rest_.front() != quote) {
      const bool isEscape = quote == '"' && rest_.size() > 1 && rest_.front() == '\\' &&
                            (rest_[1] == '"' || rest_[1] == '\\');
      if (isEscape) rest_.remove_prefix(1);
      text += taken();
    }
    if (rest_.empty()) throw host::Error(platform::_("A quotation mark has no second one."));
    rest_.remove_prefix(1);
    return text;
  }

  std::string_view rest_;
};

JobLine jobIn(int number, std::string_view line) {
  JobLine job{number, {}, {}, {}};
  try {
    const auto words = Words(line).all();
    job.file = words.front();
    for (std::size_t i = 1; i < words.size(); ++i) {
      try {
        job.options.push_back(parseOption(words[i]));
      } catch (const host::Error& error) {
        job.faults.emplace_back(error.what());
      }
    }
  } catch (const host::Error& error) {
    job.faults.emplace_back(error.what());
  }
  return job;
}

}  // namespace

std::vector<JobLine> parseJobList(const std::string& text) {
  std::vector<JobLine> jobs;
  std::istringstream lines(text);
  int number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    const std::string_view whole = platform::trimmed(line);
    if (!whole.empty() && whole.front() != '#') jobs.push_back(jobIn(number, whole));
  }
  return jobs;
}

}  // namespace cardpanels::cardprint
