#pragma once

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "dialog/Summary.h"
#include "dialog/TypedAreas.h"
#include "host/PanelDriver.h"

namespace cardpanels::dialog {

class MeasurementField;

/// `lines` with `between` between each two.
std::string joined(const std::vector<std::string>& lines, const std::string& between);

/// That the field's text is no measurement.
std::string wrongText(const MeasurementField& field);

/// What the page tells of a job, read off it as it is now.
class PageTexts {
 public:
  using Panel = host::PanelDriver::Panel;

  /// `typed` stands for the areas that are in it, whatever the job has. What the area of the
  /// option `begun` lacks is not told yet.
  PageTexts(host::PanelDriver& driver, TypedTexts typed, std::string begun)
      : driver_(driver), job_(driver.job()), typed_(std::move(typed)), begun_(std::move(begun)) {}

  /// What rules have changed of the panel's options, for its row; "" for nothing.
  std::string remark(const Panel& panel) const;

  /// The panel's options that differ from the printer's defaults.
  std::set<std::string> differing(const Panel& panel) const;

  /// Whether any panel has such an option.
  bool differsAnywhere() const;

  /// The card's size, what is chosen on each panel, its areas, and what is to be heeded.
  Summary summary() const;

  /// What cannot be right though it could be printed, a sentence each: conflicts, and areas.
  std::vector<std::string> concerns() const;

 private:
  std::string ruleChangeOf(const std::string& key) const;
  SummaryGroup cardGroup() const;
  SummaryGroup panelGroup(const Panel& panel) const;

  host::PanelDriver& driver_;
  const host::JobOptions& job_;
  TypedTexts typed_;
  std::string begun_;
};

}  // namespace cardpanels::dialog
