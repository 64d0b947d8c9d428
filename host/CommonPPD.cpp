#include "host/CommonPPD.h"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>

#include "host/PPDText.h"
#include "platform/ASCII.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

constexpr std::string_view kNewConstraint = "cupsUIConstraints";

bool isConstraint(const PPDStatement& statement) {
  return statement.keyword == "UIConstraints" || statement.keyword == "NonUIConstraints" ||
         statement.keyword == kNewConstraint;
}

/// What people read for a statement, in whatever encoding its file has.
std::string shownTitle(const PPDStatement& statement) {
  if (!statement.text.empty() && platform::isUTF8(statement.text)) return statement.text;
  return statement.option.substr(statement.option.starts_with('*') ? 1 : 0);
}

/// What decides whether two printers take the same.
std::string comparable(const PPDStatement& statement) {
  std::string text = statement.keyword + " " + statement.option + ":";
  for (const char c : statement.value) {
    if (!platform::isBlank(c) && c != '\n')
      text += c;
    else if (!text.ends_with(' '))
      text += ' ';
  }
  return text;
}

struct OptionFacts {
  std::string title;
  std::vector<const PPDStatement*> choices;
  std::set<std::string> names;      // theirs
  std::vector<std::string> custom;  // what describes custom values
};

/// A PPD's options by their keywords.
class PPDOptions {
 public:
  explicit PPDOptions(const NamedPPD& ppd)
      : text_(ppd.text), statements_(ppdStatements(ppd.text, ppd.name)) {
    for (const PPDStatement& each : statements_) {
      const std::string keyword = openedOption(each);
      if (keyword.empty() || find(keyword) != nullptr) continue;
      keywords_.push_back(keyword);
      options_[keyword].title = shownTitle(each);
    }
    for (const PPDStatement& each : statements_) add(each);
  }

  const std::vector<std::string>& keywords() const { return keywords_; }
  const std::vector<PPDStatement>& statements() const { return statements_; }

  const OptionFacts* find(const std::string& keyword) const {
    const auto found = options_.find(keyword);
    return found == options_.end() ? nullptr : &found->second;
  }

  /// Whatever stands in the file from `statement` to the next one.
  std::string_view textOf(const PPDStatement& statement) const {
    const bool isLast = &statement == &statements_.back();
    const std::size_t end = isLast ? text_.size() : (&statement + 1)->start;
    return std::string_view(text_).substr(statement.start, end - statement.start);
  }

 private:
  void add(const PPDStatement& statement) {
    const auto option = options_.find(statement.keyword);
    if (option != options_.end() && !statement.option.empty() &&
        option->second.names.insert(statement.option).second) {
      option->second.choices.push_back(&statement);
    }
    for (const std::string_view start : {"Custom", "ParamCustom"}) {
      if (!statement.keyword.starts_with(start)) continue;
      const auto custom = options_.find(statement.keyword.substr(start.size()));
      if (custom != options_.end()) custom->second.custom.push_back(comparable(statement));
    }
  }

  const std::string& text_;
  std::vector<PPDStatement> statements_;
  std::vector<std::string> keywords_;
  std::map<std::string, OptionFacts> options_;
};

/// Writes the first PPD with what all have.
class Writer {
 public:
  explicit Writer(const std::vector<NamedPPD>& ppds) {
    all_.reserve(ppds.size());
    for (const NamedPPD& each : ppds) all_.emplace_back(each);
    for (const std::string& each : first().keywords()) {
      auto names = commonNames(each);
      if (!names.empty()) common_.emplace(each, std::move(names));
    }
    hasNewConstraints_ = std::any_of(all_.begin(), all_.end(), [](const PPDOptions& each) {
      return std::any_of(each.statements().begin(), each.statements().end(),
                         [](const auto& one) { return one.keyword == kNewConstraint; });
    });
  }

  CommonPPD write() {
    for (const PPDStatement& each : first().statements()) writeStatement(each);
    addConstraints();
    return {std::move(text_), leftOut()};
  }

 private:
  const PPDOptions& first() const { return all_.front(); }

  /// The choices that the option has in every PPD.
  std::set<std::string> commonNames(const std::string& keyword) const {
    std::set<std::string> names = first().find(keyword)->names;
    for (const PPDOptions& each : all_) {
      const OptionFacts* const option = each.find(keyword);
      if (option == nullptr) return {};
      std::erase_if(names, [&](const std::string& name) { return !option->names.contains(name); });
    }
    return names;
  }

  bool allHave(const std::string& keyword) const { return common_.contains(keyword); }

  bool allHave(const std::string& keyword, const std::string& choice) const {
    const auto found = common_.find(keyword);
    return found != common_.end() && found->second.contains(choice);
  }

  bool allTakeTheSame(const std::string& keyword) const {
    return std::all_of(all_.begin(), all_.end(), [&](const PPDOptions& each) {
      return each.find(keyword)->custom == first().find(keyword)->custom;
    });
  }

  void writeStatement(const PPDStatement& statement) {
    const std::string opened = openedOption(statement);
    if (!opened.empty()) isSkipping_ = !allHave(opened);
    if (!isSkipping_ && isCommon(statement)) text_ += rewritten(statement);
    if (statement.keyword == "CloseUI" || statement.keyword == "JCLCloseUI") isSkipping_ = false;
  }

  /// Whether a statement outside of an option that some lack is about what all have.
  bool isCommon(const PPDStatement& statement) const {
    const std::string& keyword = statement.keyword;
    if (first().find(keyword) != nullptr)
      return allHave(keyword) && (statement.option.empty() || allHave(keyword, statement.option));
    for (const std::string_view start : {"Custom", "ParamCustom"}) {
      const std::string option = keyword.substr(keyword.starts_with(start) ? start.size() : 0);
      if (option != keyword && first().find(option) != nullptr)
        return allHave(option) && allTakeTheSame(option);
    }
    if (keyword == "ImageableArea" || keyword == "PaperDimension")
      return first().find("PageSize") == nullptr || allHave("PageSize", statement.option);
    return true;
  }

  std::string rewritten(const PPDStatement& statement) const {
    std::string text(first().textOf(statement));
    if (isConstraint(statement)) return constraint(statement, text);
    constexpr std::string_view kDefault = "Default";
    if (!statement.keyword.starts_with(kDefault)) return text;
    const std::string option = statement.keyword.substr(kDefault.size());
    if (first().find(option) == nullptr) return text;
    if (!allHave(option)) return {};
    const std::string value(platform::trimmed(statement.value));
    if (allHave(option, value)) return text;
    const auto& choices = first().find(option)->choices;
    const auto left = std::find_if(choices.begin(), choices.end(), [&](const PPDStatement* each) {
      return allHave(option, each->option);
    });
    return "*" + statement.keyword + ": " + (*left)->option + "\n";
  }

  /// libcups reads constraints of one kind only.
  std::string constraint(const PPDStatement& statement, const std::string& text) const {
    if (!hasNewConstraints_ || statement.keyword == kNewConstraint) return text;
    return "*" + std::string(kNewConstraint) + ": \"" +
           std::string(platform::trimmed(statement.value)) + "\"\n";
  }

  void addConstraints() {
    if (!text_.ends_with('\n')) text_ += '\n';
    std::set<std::string> known;
    for (const PPDOptions& ppd : all_) {
      for (const PPDStatement& each : ppd.statements()) {
        if (!isConstraint(each) || !known.insert(comparable(each)).second) continue;
        if (&ppd != &first()) text_ += constraint(each, std::string(ppd.textOf(each)));
      }
    }
  }

  std::vector<std::string> leftOut() const {
    std::vector<std::string> titles;
    std::set<std::string> known;
    for (const PPDOptions& ppd : all_) {
      for (const std::string& keyword : ppd.keywords()) {
        const OptionFacts& option = *ppd.find(keyword);
        const bool isThere = allHave(keyword);
        if (!isThere && known.insert(keyword).second) titles.push_back(option.title);
        if (!isThere) continue;
        for (const PPDStatement* each : option.choices) {
          if (!allHave(keyword, each->option) && known.insert(keyword + " " + each->option).second)
            titles.push_back(option.title + ": " + shownTitle(*each));
        }
      }
    }
    return titles;
  }

  std::vector<PPDOptions> all_;
  std::map<std::string, std::set<std::string>> common_;  // choices by option
  bool hasNewConstraints_ = false;
  std::string text_;
  bool isSkipping_ = false;
};

}  // namespace

CommonPPD commonPPD(const std::vector<NamedPPD>& ppds) { return Writer(ppds).write(); }

}  // namespace cardpanels::host
