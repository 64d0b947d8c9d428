#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "dialog/PageView.h"
#include "host/PanelDriver.h"
#include "platform/View.h"

namespace cardpanels::dialog {

class MeasurementField;

/// The page "Card" of a print dialog: a section a panel and a summary of all as the last, and a bar
/// that tells the user of conflicts. This decides what the port's widgets, a `PageView`, show.
///
/// A panel is shown and hidden as its section appears and goes, also when the page itself does.
/// Views load when they are first seen; the page keeps them.
class Page {
 public:
  using Panel = host::PanelDriver::Panel;

  /// One row of the sidebar.
  struct Section {
    std::string name;
    Panel panel;  // empty for the summary
  };

  /// A page on `driver`'s panels, shown by `view`. Both must outlive it.
  Page(host::PanelDriver& driver, PageView& view);
  ~Page();
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;

  /// The sections from top to bottom; none when the printer has no panels. Always the same.
  const std::vector<Section>& sections() const { return sections_; }

  /// What stands in place of the sections when there are none.
  static std::string nothingToChoose();

  /// To be called once the view has a place for each section: shows the first one, and the summary.
  void start();

  /// The user has chosen a row. A section with a text that cannot be stored is not left.
  void select(std::size_t section);

  /// The page is about to be seen, or no longer to be.
  void appear();
  void disappear();

  /// To be called when options have changed: the summary is read again once this is done, since a
  /// panel learns what became of its own request only after the host has told of it.
  void optionsChanged();

  /// Shows `message` in the bar in place of what is there; the empty text takes the bar away. With
  /// `insist`, the bar offers to change the options anyway, and calls it when the user does.
  void tell(const std::string& message, const std::function<void()>& insist = {});

  /// The same for an error.
  void tellError(const std::string& message);

  /// The user closes the bar, or presses its button.
  void closeMessage() { tell({}); }
  void insist();

  /// Whether all that the user has typed can be stored. If not, the first field where it cannot is
  /// told and gets the focus. Such a text is not stored.
  bool hasOnlyGoodTexts();

 private:
  /// What a section shows once it was seen.
  struct Content {
    bool isLoaded = false;
    std::shared_ptr<platform::View> view;   // owns the fields
    std::vector<MeasurementField*> fields;  // in the order of the panel's outlets
  };

  void load(std::size_t section);
  void watchFields(std::size_t section);
  void editEnded(std::size_t section);
  MeasurementField* firstWrong(std::size_t section) const;
  void readSummary();

  host::PanelDriver& driver_;
  PageView& view_;
  std::vector<Section> sections_;
  std::vector<Content> contents_;
  std::optional<std::size_t> current_;
  bool shown_ = false;         // whether the current panel is
  bool visible_ = false;       // whether the page is
  bool readsSummary_ = false;  // soon
  std::function<void()> insist_;
};

}  // namespace cardpanels::dialog
