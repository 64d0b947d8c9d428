#include "dialog/Page.h"

#include <exception>
#include <utility>

#include "dialog/MeasurementField.h"
#include "platform/Messages.h"
#include "platform/NibOwner.h"

namespace cardpanels::dialog {

using platform::_;

PageView::~PageView() = default;

Page::Page(host::PanelDriver& driver, PageView& view) : driver_(driver), view_(view) {
  if (driver.panels().empty()) return;
  for (const auto& panel : driver.panels()) {
    sections_.push_back({panel->panelName().value_or(""), panel});
  }
  sections_.push_back({_("Summary"), nullptr});
  contents_.resize(sections_.size());
}

Page::~Page() {
  disappear();
  // The fields may live on with their panels.
  for (const Content& content : contents_) {
    for (MeasurementField* field : content.fields) field->setEditEnded({});
  }
}

std::string Page::nothingToChoose() {
  return _("This printer has no card options. Print as usual.");
}

void Page::start() {
  if (sections_.empty()) return;
  select(0);
  readSummary();
}

void Page::select(std::size_t section) {
  if (section == current_) return;
  if (!hasOnlyGoodTexts()) {
    view_.showSection(*current_);
    return;
  }
  const bool visible = visible_;
  disappear();
  current_ = section;
  if (visible) appear();
  view_.showSection(section);
}

void Page::appear() {
  visible_ = true;
  if (shown_ || !current_ || !sections_[*current_].panel) return;
  load(*current_);
  shown_ = true;
  driver_.show(sections_[*current_].panel);
}

void Page::disappear() {
  visible_ = false;
  if (!std::exchange(shown_, false)) return;
  driver_.hide(sections_[*current_].panel);
}

void Page::load(std::size_t section) {
  Content& content = contents_[section];
  if (std::exchange(content.isLoaded, true)) return;
  try {
    content.view = driver_.view(sections_[section].panel);
    watchFields(section);
    view_.fillSection(section, content.view);
  } catch (const std::exception& error) {
    view_.fillSectionWithText(section, error.what());
  }
}

void Page::watchFields(std::size_t section) {
  const auto owner = std::dynamic_pointer_cast<platform::NibOwner>(sections_[section].panel);
  if (!owner) return;
  for (const platform::Outlet& outlet : owner->outlets()) {
    auto* const field = dynamic_cast<MeasurementField*>(outlet.view(*owner).get());
    if (field == nullptr) continue;
    contents_[section].fields.push_back(field);
    field->setEditEnded([this, section] { editEnded(section); });
  }
}

void Page::editEnded(std::size_t section) {
  if (firstWrong(section) == nullptr) driver_.storeTyped(sections_[section].panel);
}

MeasurementField* Page::firstWrong(std::size_t section) const {
  for (MeasurementField* field : contents_[section].fields) {
    if (field->holdsWrongText()) return field;
  }
  return nullptr;
}

bool Page::hasOnlyGoodTexts() {
  MeasurementField* const wrong = current_ ? firstWrong(*current_) : nullptr;
  if (wrong == nullptr) return true;
  tellError(platform::filled(_("“{field}” is no measurement: “{text}”"),
                             {{"field", wrong->caption()}, {"text", wrong->text()}}));
  wrong->takeFocus();
  return false;
}

void Page::optionsChanged() {
  if (std::exchange(readsSummary_, true)) return;
  view_.later([this] { readSummary(); });
}

void Page::readSummary() {
  readsSummary_ = false;
  Summary summary;
  for (const auto& panel : driver_.panels()) {
    if (auto entries = driver_.summary(panel)) {
      summary.push_back({panel->panelName().value_or(""), std::move(entries)});
    }
  }
  view_.showSummary(summary);
}

void Page::tell(const std::string& message, const std::function<void()>& insist) {
  insist_ = insist;
  view_.showMessage({message, Message::Kind::warning, insist_ != nullptr});
}

void Page::tellError(const std::string& message) {
  insist_ = nullptr;
  view_.showMessage({message, Message::Kind::error});
}

void Page::insist() {
  const auto insist = std::exchange(insist_, nullptr);
  tell({});
  if (insist) insist();
}

}  // namespace cardpanels::dialog
