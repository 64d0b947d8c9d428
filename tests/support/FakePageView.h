#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "dialog/PageView.h"

namespace cardpanels::test {

/// A page's widgets in memory, which keep what they are told to show.
class FakePageView final : public dialog::PageView {
 public:
  void showSection(std::size_t section) override { shown = section; }
  void fillSection(std::size_t section, const std::shared_ptr<platform::View>& /*view*/) override {
    filled[section] = "view";
  }
  void addPicture(std::size_t section, const std::shared_ptr<dialog::CardPicture>& picture,
                  const std::shared_ptr<platform::View>& /*fields*/) override {
    pictures[section].push_back(picture);
  }
  void fillSectionWithText(std::size_t section, const std::string& text) override {
    filled[section] = text;
  }
  void markRow(std::size_t section, const std::string& why) override { marks[section] = why; }
  void emphasize(std::size_t section, const std::set<std::string>& keys) override {
    bold[section] = keys;
  }
  void showSummary(const dialog::Summary& now) override { summary = now; }
  void showNotices(const dialog::Notices& now) override { notices = now; }
  void showPresets(const dialog::PresetRow& now) override { presets = now; }
  void allowReset(bool allowed) override { resets = allowed; }
  void later(std::function<void()> task) override { tasks_.push_back(std::move(task)); }

  /// Runs what was left for later, as a main loop does.
  void rest() {
    while (!tasks_.empty()) {
      for (const auto& task : std::exchange(tasks_, {})) task();
    }
  }

  /// What the bar tells, a text a notice.
  std::vector<std::string> texts() const {
    std::vector<std::string> all;
    for (const auto& notice : notices) all.push_back(notice.text);
    return all;
  }

  /// The user presses that button of the notice with that text; false when there is none.
  bool answer(const std::string& text, const std::string& label) {
    for (const auto& notice : notices) {
      for (const auto& each : notice.answers) {
        if (notice.text != text || each.label != label) continue;
        const auto perform = each.perform;
        perform();
        rest();
        return true;
      }
    }
    return false;
  }

  /// The value that the summary tells under a title, "" when it does not.
  std::string summaryOf(const std::string& title) const {
    for (const auto& group : summary) {
      for (const auto& entry : group.entries) {
        if (entry.title == title) return entry.value;
      }
    }
    return "";
  }

  std::size_t shown = 0;
  std::map<std::size_t, std::string> filled;
  std::map<std::size_t, std::vector<std::shared_ptr<dialog::CardPicture>>> pictures;
  std::map<std::size_t, std::string> marks;
  std::map<std::size_t, std::set<std::string>> bold;
  dialog::Summary summary;
  dialog::Notices notices;
  dialog::PresetRow presets;
  bool resets = false;

 private:
  std::vector<std::function<void()>> tasks_;
};

}  // namespace cardpanels::test
