#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "dialog/Summary.h"
#include "platform/View.h"

namespace cardpanels::dialog {

/// What the bar above a page's sections tells.
struct Message {
  enum class Kind { warning, error };

  std::string text;  // empty: there is no bar
  Kind kind = Kind::warning;
  bool offersInsisting = false;  // with a button to change the options anyway
};

/// The widgets of a page "Card", in a toolkit. A section is told by its place among the page's.
/// All functions are called on the dialog's thread.
class PageView {
 public:
  PageView() = default;
  PageView(const PageView&) = delete;
  PageView& operator=(const PageView&) = delete;
  virtual ~PageView();

  /// Selects the section's row and shows it in place of the one before.
  virtual void showSection(std::size_t section) = 0;

  /// Puts a panel's view into its section, for good.
  virtual void fillSection(std::size_t section, const std::shared_ptr<platform::View>& view) = 0;

  /// Puts `text` there instead.
  virtual void fillSectionWithText(std::size_t section, const std::string& text) = 0;

  /// Shows `summary` in place of what the last section shows.
  virtual void showSummary(const Summary& summary) = 0;

  /// Shows `message` in place of the one before.
  virtual void showMessage(const Message& message) = 0;

  /// Has the main loop run `task` once when all else is done, unless this view has ended.
  virtual void later(std::function<void()> task) = 0;
};

}  // namespace cardpanels::dialog
