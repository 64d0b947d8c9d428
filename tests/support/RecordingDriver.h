#pragma once

#include <array>
#include <map>
#include <memory>
#include <set>
#include <span>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "host/JobOptions.h"
#include "host/PPDFile.h"
#include "host/PanelDriver.h"
#include "platform/NibOwner.h"
#include "platform/PrintPanel.h"
#include "platform/TextField.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::test {

/// A panel of one field, which takes part in nothing.
class FieldPanel final : public platform::PrintPanel, public platform::NibOwner {
 public:
  explicit FieldPanel(std::string name) : name_(std::move(name)) {}

  std::shared_ptr<platform::View> panelView() override { return view; }
  platform::Text panelName() override { return name_; }
  platform::Text panelKind() override { return std::nullopt; }
  std::shared_ptr<platform::StringArray> supportedPPDOptionKeys() override { return nullptr; }
  void willShow() override {}
  bool shouldHide() override { return true; }
  bool shouldShowHelp() override { return offersHelp; }
  void PPDOptionKeyValueDidChange_ppdChoice(const platform::Text&, const platform::Text&) override {
  }
  bool restoreValuesAndReturnError(platform::Text*) override { return true; }
  bool saveValuesAndReturnError(platform::Text*) override { return true; }
  void updateMarkedSelections() override {}
  void updateUI() override {}
  void initializeUI() override {}
  std::shared_ptr<platform::Dictionary> summaryInfo() override { return nullptr; }
  std::string_view className() const override { return "FieldPanel"; }
  std::span<const platform::Outlet> outlets() const override {
    static constexpr std::array kOutlets{platform::outlet<&FieldPanel::view>("view"),
                                         platform::outlet<&FieldPanel::field>("field")};
    return kOutlets;
  }
  std::span<const platform::Action> actions() const override { return {}; }

  std::shared_ptr<platform::View> view;
  std::shared_ptr<platform::TextField> field;
  bool offersHelp = true;

 private:
  std::string name_;
};

/// Notes in order what the page asks of its driver.
class RecordingDriver final : public host::PanelDriver {
 public:
  /// Loads the view of a panel, for which it fills the outlets.
  using Load = void (*)(const std::shared_ptr<FieldPanel>& panel);

  explicit RecordingDriver(Load load) : load_(load) {}

  const std::vector<Panel>& panels() const override { return panels_; }
  const std::vector<std::string>& keys(const Panel& /*panel*/) const override { return keys_; }
  std::shared_ptr<platform::View> view(const Panel& panel) override {
    note("load", panel);
    if (fails) throw std::runtime_error("no field");
    load_(std::dynamic_pointer_cast<FieldPanel>(panel));
    return panel->panelView();
  }
  void show(const Panel& panel) override { note("show", panel); }
  void hide(const Panel& panel) override { note("hide", panel); }
  void storeTyped(const Panel& panel) override { note("store", panel); }
  std::shared_ptr<platform::Dictionary> summary(const Panel& panel) const override {
    auto entries = std::make_shared<platform::Dictionary>();
    if (tells) entries->setValueForKey(value, "Card " + *panel->panelName());
    return entries;
  }
  void print() override { calls_.emplace_back("print"); }
  host::ChangeResult change(const std::string& key, const std::string& choice) override {
    return job_.request(key, choice);
  }
  void reset() override { calls_.emplace_back("reset"); }
  std::vector<std::string> replace(const std::set<std::string>& keys,
                                   const std::vector<host::Option>& options) override {
    return job_.replace(keys, options).leftOut;
  }
  const std::map<std::string, std::string>& refusals() const override { return refusals_; }
  host::JobOptions& job() override { return job_; }

  void add(const std::string& name) { panels_.push_back(std::make_shared<FieldPanel>(name)); }
  FieldPanel& panel(std::size_t index) { return dynamic_cast<FieldPanel&>(*panels_[index]); }
  std::vector<std::string> calls() { return std::exchange(calls_, {}); }

  bool fails = false;
  std::string value = "None";
  bool tells = true;  // anything in the summary

 private:
  void note(const std::string& call, const Panel& panel) {
    calls_.push_back(call + " " + *panel->panelName());
  }

  Load load_;
  TemporaryFolder folder_;
  host::JobOptions job_{host::openPPD(folder_.write("card.ppd", testPPD({laminateOption()})))};
  std::vector<Panel> panels_;
  std::vector<std::string> keys_;
  std::map<std::string, std::string> refusals_;
  std::vector<std::string> calls_;
};

}  // namespace cardpanels::test
