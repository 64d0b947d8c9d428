#include "tests/resources/SamplePPD.h"

#include <cups/cups.h>

#include <fstream>
#include <regex>
#include <span>
#include <stdexcept>

namespace cardpanels::test {
namespace {

template <typename Record>
std::span<Record> records(Record* first, int count) {
  return {first, static_cast<std::size_t>(count)};
}

bool isCustom(const ppd_choice_t& choice) { return std::string(choice.choice) == "Custom"; }

void addParameterTexts(ppd_file_t* file, const ppd_option_t& option, std::vector<PPDText>& texts) {
  ppd_coption_t* custom = ppdFindCustomOption(file, option.keyword);
  if (custom == nullptr) return;
  for (auto* parameter = ppdFirstCustomParam(custom); parameter != nullptr;
       parameter = ppdNextCustomParam(custom)) {
    texts.push_back(
        {std::string("ParamCustom") + option.keyword, parameter->name, parameter->text});
  }
}

void addOptionTexts(ppd_file_t* file, const ppd_option_t& option, std::vector<PPDText>& texts) {
  texts.push_back({"Translation", option.keyword, option.text});
  for (const auto& choice : records(option.choices, option.num_choices)) {
    if (isCustom(choice)) {
      texts.push_back({std::string("Custom") + option.keyword, "True", choice.text});
    } else {
      texts.push_back({option.keyword, choice.choice, choice.text});
    }
  }
  addParameterTexts(file, option, texts);
}

std::map<std::string, std::string> textsOfStatements(const std::string& path) {
  static const std::regex statement(R"(\*(\S+ [^/:"]+)/([^:]*):.*)");
  std::map<std::string, std::string> texts;
  std::ifstream file(path);
  std::smatch match;
  for (std::string line; std::getline(file, line);) {
    if (std::regex_match(line, match, statement)) texts[match[1]] = match[2];
  }
  return texts;
}

std::string pathOf(const std::string& name) {
  return CARDPANELS_SOURCE_DIR "/resources/ppd/" + name;
}

}  // namespace

SamplePPD::SamplePPD(const std::string& name)
    : file_(ppdOpenFile(pathOf(name).c_str())), textOfStatement_(textsOfStatements(pathOf(name))) {
  if (!file_) {
    int line = 0;
    const char* reason = ppdErrorString(ppdLastError(&line));
    throw std::runtime_error(name + ":" + std::to_string(line) + ": " + reason);
  }
  ppdMarkDefaults(file_.get());
}

std::vector<std::string> SamplePPD::options() const {
  std::vector<std::string> keywords;
  for (const auto& group : records(file_->groups, file_->num_groups)) {
    for (const auto& option : records(group.options, group.num_options)) {
      const std::string keyword = option.keyword;
      if (keyword != "PageSize" && keyword != "PageRegion") keywords.push_back(keyword);
    }
  }
  return keywords;
}

std::vector<std::string> SamplePPD::choices(const std::string& option) const {
  std::vector<std::string> keywords;
  const ppd_option_t* found = ppdFindOption(file_.get(), option.c_str());
  if (found == nullptr) return keywords;
  for (const auto& choice : records(found->choices, found->num_choices)) {
    if (!isCustom(choice)) keywords.emplace_back(choice.choice);
  }
  return keywords;
}

std::vector<PPDText> SamplePPD::texts() const {
  std::vector<PPDText> texts;
  for (const auto& group : records(file_->groups, file_->num_groups)) {
    const std::string name = group.name;
    // The group of options without a group is named and translated by CUPS.
    if (name != "General") texts.push_back({"Translation", name, group.text});
    for (const auto& option : records(group.options, group.num_options)) {
      addOptionTexts(file_.get(), option, texts);
    }
  }
  return texts;
}

std::string SamplePPD::translation(const std::string& language, const PPDText& text) const {
  const auto found = textOfStatement_.find(language + "." + text.keyword + " " + text.spec);
  return found == textOfStatement_.end() ? std::string() : found->second;
}

void SamplePPD::mark(const std::string& option, const std::string& choice) {
  ppdMarkOption(file_.get(), option.c_str(), choice.c_str());
}

SamplePPD::Resolution SamplePPD::choose(const std::string& option, const std::string& choice) {
  mark(option, choice);
  Resolution resolution{};
  resolution.conflict = ppdConflicts(file_.get()) > 0;
  int count = 0;
  cups_option_t* resolved = nullptr;
  resolution.resolved =
      cupsResolveConflicts(file_.get(), option.c_str(), choice.c_str(), &count, &resolved) != 0;
  for (const auto& each : records(resolved, count)) {
    if (each.name != option) resolution.changes[each.name] = each.value;
  }
  cupsFreeOptions(count, resolved);
  return resolution;
}

}  // namespace cardpanels::test
