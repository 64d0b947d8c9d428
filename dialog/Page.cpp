#include "dialog/Page.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "dialog/CardPicture.h"
#include "dialog/CardText.h"
#include "dialog/PageTexts.h"
#include "dialog/TypedAreas.h"
#include "host/CardGeometry.h"
#include "host/JobOptions.h"
#include "platform/Messages.h"
#include "platform/NibOwner.h"

namespace cardpanels::dialog {

using platform::_;

PageView::~PageView() = default;

std::string PageStatus::told() const {
  if (isWrong()) return wrong;
  auto all = pressing;
  if (!printer.empty()) all.push_back(printer);
  return joined(all, "\n");
}

Page::Page(host::PanelDriver& driver, PageView& view) : driver_(driver), view_(view) {
  if (driver.panels().empty()) return;
  for (const auto& panel : driver.panels()) {
    sections_.push_back({panel->panelName().value_or(""), panel});
  }
  sections_.push_back({_("Summary"), nullptr});
  contents_.resize(sections_.size());
}

Page::~Page() {
  if (shown_) driver_.hide(sections_[*current_].panel);
}

std::string Page::nothingToChoose() {
  return _("This printer has no card options. Print as usual.");
}

void Page::start() {
  if (sections_.empty()) return;
  select(0);
  read();
}

void Page::select(std::size_t section) {
  if (section == current_) return;
  if (!storesTyped()) {
    view_.showSection(*current_);
    return;
  }
  const bool visible = visible_;
  disappear();
  current_ = section;
  if (visible) appear();
  view_.showSection(section);
}

void Page::selectNext() {
  if (current_ && *current_ + 1 < sections_.size()) select(*current_ + 1);
}

void Page::selectPrevious() {
  if (current_ && *current_ > 0) select(*current_ - 1);
}

bool Page::offersHelp() const {
  if (!current_) return false;
  const Panel& panel = sections_[*current_].panel;
  return !panel || panel->shouldShowHelp();
}

Help Page::help() const {
  if (!offersHelp()) return {};
  const Section& section = sections_[*current_];
  return {section.name,
          section.panel ? panelHelp(*section.panel, driver_.job().ppd()) : summaryHelp()};
}

void Page::appear() {
  visible_ = true;
  if (shown_ || !current_ || !sections_[*current_].panel) return;
  load(*current_);
  shown_ = true;
  driver_.show(sections_[*current_].panel);
  refreshPictures();
}

/// A panel that goes stores what its fields show, so one with a wrong text stays.
void Page::disappear() {
  visible_ = false;
  const TypedAreas* const areas = currentAreas();
  if (areas != nullptr && areas->firstWrong() != nullptr) return;
  if (std::exchange(shown_, false)) driver_.hide(sections_[*current_].panel);
}

void Page::load(std::size_t section) {
  Content& content = contents_[section];
  if (std::exchange(content.isLoaded, true)) return;
  try {
    content.view = driver_.view(sections_[section].panel);
    content.areas = areasOf(section);
    view_.fillSection(section, content.view);
    addPictures(section);
    readLater();
  } catch (const std::exception& error) {
    view_.fillSectionWithText(section, error.what());
  }
}

std::unique_ptr<TypedAreas> Page::areasOf(std::size_t section) {
  const Panel& panel = sections_[section].panel;
  const auto owner = std::dynamic_pointer_cast<platform::NibOwner>(panel);
  if (!owner) return nullptr;
  auto areas = std::make_unique<TypedAreas>(
      *owner, TypedAreas::Client{
                  .store = [this, panel] { driver_.storeTyped(panel); },
                  .refusals = [this] { return driver_.refusals(); },
                  .stored =
                      [this](const std::string& key) {
                        return areaTexts(driver_.job().marked(key).value_or(""));
                      },
                  .later = [this](std::function<void()> task) { view_.later(std::move(task)); },
                  .changed =
                      [this] {
                        showNotices();
                        updateStatus();
                        refreshPictures();
                      },
              });
  areas->setUnitHelp(unitHelp(host::cardGeometry(driver_.job())));
  return areas;
}

void Page::addPictures(std::size_t section) {
  Content& content = contents_[section];
  if (!content.areas) return;
  const auto& owner = dynamic_cast<platform::NibOwner&>(*sections_[section].panel);
  for (const AreaSide& side : areaSides()) {
    const platform::Outlet* const fields = owner.outletNamed(side.fields);
    if (fields == nullptr || !content.areas->hasFieldsFor(side)) continue;
    content.pictures.push_back(std::make_shared<CardPicture>(driver_.job(), side, *content.areas));
    view_.addPicture(section, content.pictures.back(), fields->view(owner));
  }
}

void Page::refreshPictures() {
  if (!current_) return;
  for (const auto& picture : contents_[*current_].pictures) picture->refresh();
}

TypedAreas* Page::currentAreas() const {
  return current_ ? contents_[*current_].areas.get() : nullptr;
}

bool Page::storesTyped() {
  if (TypedAreas* const areas = currentAreas()) areas->storeEdits();
  return hasOnlyGoodTexts();
}

bool Page::hasOnlyGoodTexts() {
  TypedAreas* const areas = currentAreas();
  if (areas == nullptr) return true;
  if (MeasurementField* const wrong = areas->firstWrong()) {
    tellError(wrongText(*wrong));
    wrong->takeFocus();
    return false;
  }
  if (MeasurementField* const refused = areas->firstRefused()) {
    refused->takeFocus();
    return false;
  }
  return true;
}

void Page::optionsChanged() { readLater(); }

void Page::readLater() {
  if (std::exchange(readsSoon_, true)) return;
  view_.later([this, alive = std::weak_ptr<bool>(alive_)] {
    if (!alive.expired()) read();
  });
}

void Page::read() {
  readsSoon_ = false;
  if (TypedAreas* const areas = currentAreas()) areas->keepRefused();
  const PageTexts texts = pageTexts();
  for (std::size_t i = 0; i < sections_.size(); ++i) {
    if (!sections_[i].panel) continue;
    view_.markRow(i, texts.remark(sections_[i].panel));
    if (contents_[i].isLoaded) view_.emphasize(i, texts.differing(sections_[i].panel));
  }
  view_.allowReset(texts.differsAnywhere());
  view_.showSummary(texts.summary());
  if (presets_) presets_->update();
  showNotices();
  updateStatus();
  refreshPictures();
}

PageTexts Page::pageTexts() const {
  // Only the panel that is shown keeps its fields up to date.
  const TypedAreas* const areas = shown_ ? currentAreas() : nullptr;
  if (areas == nullptr) return {driver_, {}, ""};
  return {driver_, areas->texts(), areas->areaBegun()};
}

void Page::tell(const std::string& message, const std::function<void()>& insist) {
  outcome_ = {message, Notice::Kind::warning, {}};
  if (insist) outcome_.answer = {_("Change An_yway"), insist};
  showNotices();
}

void Page::tellError(const std::string& message) {
  outcome_ = {message, Notice::Kind::error, {}};
  showNotices();
}

void Page::tellDone(const std::string& message, const Notice::Answer& undo) {
  outcome_ = {message, Notice::Kind::information, undo};
  showNotices();
}

void Page::keep(const std::string& message) {
  if (message.empty() || std::find(kept_.begin(), kept_.end(), message) != kept_.end()) return;
  kept_.push_back(message);
  showNotices();
}

void Page::tellState(const std::string& line) {
  if (line == status_.printer) return;
  status_.printer = line;
  showNotices();
  if (statusChanged_) statusChanged_();
}

void Page::showNotices() { view_.showNotices(notices()); }

Notices Page::notices() {
  Notices all;
  const auto close = [](std::function<void()> perform) {
    return Notice::Answer{_("Cl_ose"), std::move(perform)};
  };
  if (!outcome_.text.empty()) {
    Notice notice{outcome_.kind, outcome_.text, {}};
    if (outcome_.answer) {
      notice.answers.push_back({outcome_.answer->label, [this, perform = outcome_.answer->perform] {
                                  tell({});
                                  perform();
                                }});
    }
    notice.answers.push_back(close([this] { tell({}); }));
    all.push_back(std::move(notice));
  }
  TypedAreas* const areas = currentAreas();
  if (areas != nullptr && areas->firstRefused() != nullptr) {
    all.push_back({Notice::Kind::error, areas->refusal(), {{_("Take Stored Area Back"), [areas] {
                                                              areas->takeStoredBack();
                                                            }}}});
  }
  const auto concerned = pageTexts().concerns();
  if (!concerned.empty()) {
    Notice notice{Notice::Kind::warning, joined(concerned, "\n"), {}};
    if (printAnyway_) notice.answers.push_back({_("Print Anyway"), printAnyway_});
    all.push_back(std::move(notice));
  }
  for (const host::RuleChange& change : driver_.job().ruleChanges()) {
    all.push_back(
        {Notice::Kind::warning,
         change.sentence,
         {{_("Undo"), [this, key = change.key] { undo(key); }}, close([this, key = change.key] {
            driver_.job().closeRuleChange(key);
            read();
          })}});
  }
  if (!status_.printer.empty()) all.push_back({Notice::Kind::warning, status_.printer, {}});
  for (const std::string& text : kept_) {
    all.push_back({Notice::Kind::information, text, {close([this, text] {
                     std::erase(kept_, text);
                     showNotices();
                   })}});
  }
  return all;
}

void Page::undo(const std::string& key) {
  const auto& changes = driver_.job().ruleChanges();
  const auto change = std::find_if(changes.begin(), changes.end(),
                                   [&key](const auto& each) { return each.key == key; });
  if (change != changes.end()) driver_.change(key, std::string(change->from));
}

void Page::closeNotices() {
  outcome_ = {};
  kept_.clear();
  std::vector<std::string> keys;
  for (const auto& change : driver_.job().ruleChanges()) keys.push_back(change.key);
  for (const std::string& key : keys) driver_.job().closeRuleChange(key);
  read();
}

void Page::reset() {
  outcome_ = {};
  driver_.reset();
}

void Page::offerPresets(Presets::Job job) {
  presets_ = std::make_unique<Presets>(
      driver_, std::move(job),
      Presets::Client{
          .show = [this](const PresetRow& row) { view_.showPresets(row); },
          .storeTyped = [this] { return storesTyped(); },
          .tellUnknown = [this](const auto& sentences) { tellUnknown(sentences); },
          .tellError = [this](const std::string& message) { tellError(message); },
          .tellDone = [this](const std::string& message,
                             const Notice::Answer& undo) { tellDone(message, undo); },
      });
}

/// What was told of the preset before, and of the user's last action, is no longer so.
void Page::tellUnknown(const std::vector<std::string>& sentences) {
  outcome_ = {};
  for (const std::string& each : std::exchange(unknown_, sentences)) std::erase(kept_, each);
  for (const std::string& each : unknown_) keep(each);
}

void Page::updateStatus() {
  PageStatus now;
  if (const TypedAreas* const areas = currentAreas()) {
    if (const MeasurementField* const wrong = areas->firstWrong()) now.wrong = wrongText(*wrong);
    if (now.wrong.empty()) now.wrong = areas->refusal();
  }
  now.pressing = pageTexts().concerns();
  for (const auto& change : driver_.job().ruleChanges()) now.pressing.push_back(change.sentence);
  now.printer = status_.printer;
  if (now.pressing != status_.pressing) printAnyway_ = nullptr;
  if (now == status_) return;
  status_ = std::move(now);
  if (statusChanged_) statusChanged_();
}

bool Page::mayPrint(const std::function<void()>& anyway) {
  if (!hasOnlyGoodTexts()) return false;
  outcome_ = {};
  const auto changes = driver_.job().ruleChanges();
  driver_.print();
  read();
  if (!hasOnlyGoodTexts() || !outcome_.text.empty()) return false;
  if (driver_.job().ruleChanges() != changes) return false;
  const auto concerned = pageTexts().concerns();
  if (concerned.empty() || concerned == accepted_) return true;
  printAnyway_ = [this, concerned, anyway] {
    accepted_ = concerned;
    anyway();
  };
  showNotices();
  return false;
}

}  // namespace cardpanels::dialog
