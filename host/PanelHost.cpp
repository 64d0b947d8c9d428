#include "host/PanelHost.h"

#include <algorithm>
#include <utility>

#include "host/Error.h"
#include "host/PlugInLibrary.h"
#include "platform/WillPrint.h"

namespace cardpanels::host {

/// Gathers what one operation has to tell, since a panel may send many requests in a row, and tells
/// the observer once, at the operation's end.
class PanelHost::Telling {
 public:
  explicit Telling(PanelHost& host) : host_(host), outer_(std::exchange(host.telling_, this)) {}
  Telling(const Telling&) = delete;
  Telling& operator=(const Telling&) = delete;

  ~Telling() {
    host_.telling_ = outer_;
    if (outer_ != nullptr) {
      outer_->requests_ += requests_;
      for (const std::string& message : messages_) outer_->add(message);
      if (insisted_) outer_->insisted_ = insisted_;
      return;
    }
    if (requests_ == 0 || host_.observer_ == nullptr) return;
    std::string text;
    for (const std::string& message : messages_) text += (text.empty() ? "" : "\n") + message;
    host_.observer_->tell(text, insisted_);
    host_.observer_->optionsChanged();
  }

  void note(const Option& option, const ChangeResult& result) {
    ++requests_;
    // Panels save areas also for a side that the printer lacks; the user has no part in that.
    if (!host_.job_.hasOption(option.key)) return;
    // What a granted one has changed besides stands in the job's list of changes.
    if (result.granted) return;
    add(result.message);
    if (result.losesValues) insisted_ = option;
  }

 private:
  void add(const std::string& message) {
    const bool known = std::find(messages_.begin(), messages_.end(), message) != messages_.end();
    if (!message.empty() && !known) messages_.push_back(message);
  }

  PanelHost& host_;
  Telling* outer_;
  int requests_ = 0;
  std::vector<std::string> messages_;
  std::optional<Option> insisted_;
};

PanelHost::PanelHost(const std::string& path, std::shared_ptr<platform::Bundle> bundle,
                     JobOptions& job)
    : job_(job),
      bundle_(std::move(bundle)),
      callback_(std::make_shared<ConstrainingHostCallback>(job)),
      plugIn_(loadPlugIn(path)) {
  plugIn_->initWithBundle(bundle_);
  callback_->setRequested(
      [this](const platform::Text& key, const platform::Text& choice, const ChangeResult& result) {
        requested({key.value_or(""), choice.value_or("")}, result);
      });
  const auto made = plugIn_->PDEPanelsForType_withHostInfo(platform::kPrinterModuleType, callback_);
  callback_->setPanels(made);
  if (made) panels_.assign(made->begin(), made->end());
  for (const Panel& panel : panels_) {
    const auto keys = panel->supportedPPDOptionKeys();
    for (const std::string& key : *keys) {
      if (!job_.hasOption(key)) continue;
      keys_[panel].push_back(key);
      claimedKeys_.insert(key);
    }
    panel->restoreValuesAndReturnError(nullptr);
    deliverLongValues(panel);
  }
}

PanelHost::~PanelHost() {
  callback_->setRequested(nullptr);
  callback_->setPanels(nullptr);
}

std::shared_ptr<platform::View> PanelHost::view(const Panel& panel) {
  auto view = panel->panelView();
  if (!view) throw Error(bundle_->loadError().value_or("the panel has no view"));
  return view;
}

void PanelHost::show(const Panel& panel) {
  const Telling telling(*this);
  shown_ = panel;
  fill(panel);
}

/// Fills the panel's controls, or shows the values in them anew.
void PanelHost::fill(const Panel& panel) {
  panel->willShow();
  // Filling reads all values from the PPD once more.
  if (ready_.insert(panel).second) deliverLongValues(panel);
}

/// The PPD's records have no room for these: the panel learns them as changes.
void PanelHost::deliverLongValues(const Panel& panel) {
  const auto values = job_.longValues();
  if (values.empty()) return;
  for (const Option& value : values) {
    panel->PPDOptionKeyValueDidChange_ppdChoice(value.key, value.value);
  }
  panel->updateUI();
}

void PanelHost::hide(const Panel& panel) {
  const Telling telling(*this);
  panel->shouldHide();
  if (shown_ == panel) shown_.reset();
}

void PanelHost::storeTyped(const Panel& panel) {
  const Telling telling(*this);
  if (const auto willPrint = std::dynamic_pointer_cast<platform::WillPrint>(panel)) {
    willPrint->shouldPrint();
  }
}

void PanelHost::print() {
  const Telling telling(*this);
  for (const Panel& panel : panels_) {
    // A panel saves what its fields show. One that was never shown would save empty fields over
    // the job's values.
    if (ready_.contains(panel)) continue;
    view(panel);
    fill(panel);
  }
  for (const Panel& panel : panels_) storeTyped(panel);
  for (const Panel& panel : panels_) panel->saveValuesAndReturnError(nullptr);
}

ChangeResult PanelHost::change(const std::string& key, const std::string& choice) {
  return change({key, choice}, Losing::refused);
}

ChangeResult PanelHost::insist(const std::string& key, const std::string& choice) {
  return change({key, choice}, Losing::allowed);
}

ChangeResult PanelHost::change(const Option& option, Losing losing) {
  const Telling telling(*this);
  ChangeResult result = job_.request(option.key, option.value, losing);
  callback_->tellPanels(result.changes);
  requested(option, result);
  if (shown_) shown_->updateUI();
  return result;
}

const std::vector<std::string>& PanelHost::keys(const Panel& panel) const {
  static const std::vector<std::string> kNone;
  const auto keys = keys_.find(panel);
  return keys == keys_.end() ? kNone : keys->second;
}

void PanelHost::reset() {
  const Telling telling(*this);
  follow(job_.reset(claimedKeys_));
}

std::vector<std::string> PanelHost::replace(const std::set<std::string>& keys,
                                            const std::vector<Option>& options) {
  const Telling telling(*this);
  auto replaced = job_.replace(keys, options);
  follow(replaced.changes);
  return std::move(replaced.leftOut);
}

/// Has panels and dialog follow changes that none of them asked for.
void PanelHost::follow(const std::vector<Option>& changes) {
  callback_->tellPanels(changes);
  refusals_.clear();
  if (shown_) shown_->updateUI();
  if (observer_ != nullptr) observer_->optionsChanged();
}

void PanelHost::requested(const Option& option, const ChangeResult& result) {
  if (result.granted) {
    refusals_.erase(option.key);
  } else if (job_.hasOption(option.key)) {
    refusals_[option.key] = result.message;
  }
  // Outside an operation of the host, a panel asks because the user changed something.
  Telling own(*this);
  own.note(option, result);
}

std::shared_ptr<platform::Dictionary> PanelHost::summary(const Panel& panel) const {
  return panel->summaryInfo();
}

}  // namespace cardpanels::host
