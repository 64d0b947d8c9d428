#include "dialog/PageTexts.h"

#include <algorithm>
#include <map>
#include <utility>

#include "dialog/AreaWarnings.h"
#include "dialog/CardAreas.h"
#include "dialog/CardText.h"
#include "dialog/MeasurementField.h"
#include "host/CardGeometry.h"
#include "host/JobOptions.h"
#include "host/MediaOption.h"
#include "platform/Messages.h"

namespace cardpanels::dialog {

using platform::_;
using platform::filled;

namespace {}  // namespace

std::string joined(const std::vector<std::string>& lines, const std::string& between) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : between) + line;
  return text;
}

std::string wrongText(const MeasurementField& field) {
  return filled(_("“{field}” is no measurement: “{text}”"),
                {{"field", field.caption()}, {"text", field.text()}});
}

std::string PageTexts::ruleChangeOf(const std::string& key) const {
  const auto& changes = job_.ruleChanges();
  const auto change = std::find_if(changes.begin(), changes.end(),
                                   [&key](const auto& each) { return each.key == key; });
  return change == changes.end() ? "" : change->sentence;
}

std::string PageTexts::remark(const Panel& panel) const {
  std::vector<std::string> sentences;
  for (const std::string& key : driver_.keys(panel)) {
    std::string sentence = ruleChangeOf(key);
    if (!sentence.empty()) sentences.push_back(std::move(sentence));
  }
  return joined(sentences, "\n");
}

std::set<std::string> PageTexts::differing(const Panel& panel) const {
  const auto all = job_.differingKeys();
  std::set<std::string> own;
  for (const std::string& key : driver_.keys(panel)) {
    if (std::find(all.begin(), all.end(), key) != all.end()) own.insert(key);
  }
  return own;
}

bool PageTexts::differsAnywhere() const {
  const auto& panels = driver_.panels();
  return std::any_of(panels.begin(), panels.end(),
                     [this](const Panel& panel) { return !differing(panel).empty(); });
}

std::vector<std::string> PageTexts::concerns() const {
  std::vector<std::string> all = job_.conflicts();
  const host::CardGeometry card = host::cardGeometry(job_);
  for (const AreaSide& side : areaSides()) {
    for (AreaWarning& warning : areaWarnings(job_, side, areasOf(job_, side, typed_), card)) {
      if (warning.key != begun_) all.push_back(std::move(warning.sentence));
    }
  }
  return all;
}

Summary PageTexts::summary() const {
  Summary summary{cardGroup()};
  for (const Panel& panel : driver_.panels()) summary.push_back(panelGroup(panel));
  SummaryGroup heeded{_("Before You Print"), {}};
  for (std::string& concern : concerns()) heeded.entries.push_back({.remark = std::move(concern)});
  summary.push_back(std::move(heeded));
  return summary;
}

SummaryGroup PageTexts::cardGroup() const {
  SummaryGroup group{_("Card"), {}};
  const std::string size = cardSizeText(host::cardGeometry(job_));
  if (!size.empty()) {
    const auto all = job_.differingKeys();
    group.entries.push_back(
        {.title = _("Size"),
         .value = size,
         .differs = std::find(all.begin(), all.end(), host::kPageSize) != all.end(),
         .remark = ruleChangeOf(host::kPageSize)});
  }
  return group;
}

/// The panel tells titles and choices; by the titles it is known which options these are.
SummaryGroup PageTexts::panelGroup(const Panel& panel) const {
  SummaryGroup group{panel->panelName().value_or(""), {}};
  const auto told = driver_.summary(panel);
  if (!told) return group;
  const std::set<std::string> differ = differing(panel);
  std::map<std::string, std::string> keys;
  for (const std::string& key : driver_.keys(panel)) keys.emplace(job_.optionTitle(key), key);
  for (const auto& [title, value] : *told) {
    const auto key = keys.find(title);
    const bool known = key != keys.end();
    group.entries.push_back({.title = title,
                             .value = value,
                             .differs = known && differ.contains(key->second),
                             .remark = known ? ruleChangeOf(key->second) : ""});
  }
  for (const AreaSide& side : areaSides()) {
    if (!hasDefinedAreas(job_, side)) continue;
    for (const CardArea& area : areasOf(job_, side, typed_)) {
      const auto& own = driver_.keys(panel);
      if (area.isEmpty() || std::find(own.begin(), own.end(), area.key) == own.end()) continue;
      group.entries.push_back({.title = job_.optionTitle(area.key),
                               .value = areaText(area),
                               .differs = differ.contains(area.key),
                               .remark = ruleChangeOf(area.key)});
    }
  }
  return group;
}

}  // namespace cardpanels::dialog
