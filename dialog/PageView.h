#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <set>
#include <string>

#include "dialog/Notice.h"
#include "dialog/PresetRow.h"
#include "dialog/Summary.h"
#include "platform/View.h"

namespace cardpanels::dialog {

class CardPicture;

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

  /// Shows `picture` with `fields`, a view inside that section's, for as long as the page lives.
  virtual void addPicture(std::size_t section, const std::shared_ptr<CardPicture>& picture,
                          const std::shared_ptr<platform::View>& fields) = 0;

  /// Puts `text` there instead.
  virtual void fillSectionWithText(std::size_t section, const std::string& text) = 0;

  /// Marks the section's row with a sign that `why` explains, also to assistive technology; without
  /// `why` there is no sign.
  virtual void markRow(std::size_t section, const std::string& why) = 0;

  /// Makes the captions of these options bold in the section's view, and no others.
  virtual void emphasize(std::size_t section, const std::set<std::string>& keys) = 0;

  /// Shows `summary` in place of what the last section shows.
  virtual void showSummary(const Summary& summary) = 0;

  /// Shows `notices` in the bar in place of those before; there is no bar without any.
  virtual void showNotices(const Notices& notices) = 0;

  /// Shows the row of presets as `row` is; none without entries.
  virtual void showPresets(const PresetRow& row) = 0;

  /// Whether the user may put all back to the printer's defaults.
  virtual void allowReset(bool allowed) = 0;

  /// Has the main loop run `task` once when all else is done, unless this view has ended.
  virtual void later(std::function<void()> task) = 0;
};

}  // namespace cardpanels::dialog
