#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "dialog/PageTexts.h"
#include "dialog/PageView.h"
#include "dialog/PanelHelp.h"
#include "dialog/Presets.h"
#include "host/PanelDriver.h"
#include "platform/View.h"

namespace cardpanels::dialog {

class CardPicture;
class MeasurementField;
class TypedAreas;

/// What a dialog around the page must heed whatever it shows.
struct PageStatus {
  /// Why nothing may be printed, in a sentence; "" when it may.
  std::string wrong;
  /// What the user must know before they print, a sentence each.
  std::vector<std::string> pressing;
  /// The printer's state in a line; "" when there is nothing to know.
  std::string printer;
  bool operator==(const PageStatus&) const = default;

  bool isWrong() const { return !wrong.empty(); }

  /// What is told at the page's tab: what is wrong, else the rest, a line each; "" for nothing.
  std::string told() const;

  /// What is told outside of the page; while that is seen, its own bar tells what is pressing.
  std::string toldBeside(bool pageIsSeen) const { return pageIsSeen && !isWrong() ? "" : told(); }
};

/// The page "Card" of a print dialog: a section a panel and a summary of all as the last, and a bar
/// that tells what the user must know. This decides what the port's widgets, a `PageView`, show.
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

  /// The user goes on to the section below, or back to the one above; at the end nothing happens.
  void selectNext();
  void selectPrevious();

  /// What the user can read about the section that shows; no paragraphs where no help is offered.
  Help help() const;
  bool offersHelp() const;

  /// The page is about to be seen, or no longer to be.
  void appear();
  void disappear();

  /// To be called when options have changed: what the page tells of them is read again once this is
  /// done, since a panel learns what became of its own request only after the host has told of it.
  void optionsChanged();

  /// Tells what came of the user's last action, in place of what was told so; the empty text takes
  /// it away. With `insist`, the bar offers to change the options anyway, and calls it when the
  /// user does.
  void tell(const std::string& message, const std::function<void()>& insist = {});

  /// The same for an error.
  void tellError(const std::string& message);

  /// Tells `message` of what was done, with what undoes it.
  void tellDone(const std::string& message, const Notice::Answer& undo);

  /// Tells `message` until the user closes it.
  void keep(const std::string& message);

  /// Tells the printer's state in `line` for as long as it is that; "" for nothing to know.
  void tellState(const std::string& line);

  /// The user closes the bar: whatever can be closed is.
  void closeNotices();

  /// The user asks for the printer's defaults.
  void reset();

  /// Lets the user choose among the presets of `job`, and save it as one. To be called once, when
  /// the page has started.
  void offerPresets(Presets::Job job);

  /// Null while none are offered.
  Presets* presets() const { return presets_.get(); }

  /// Who learns that what `status` answers has changed; empty for nobody.
  void setStatusChanged(std::function<void()> changed) { statusChanged_ = std::move(changed); }
  const PageStatus& status() const { return status_; }

  /// The user presses Print: stores what was typed. False when that cannot be, or when there is
  /// something that the user shall see first; the bar tells, and the field that is wrong gets the
  /// focus. `anyway` is what the bar's "Print Anyway" does.
  bool mayPrint(const std::function<void()>& anyway);

 private:
  /// What a section shows once it was seen.
  struct Content {
    bool isLoaded = false;
    std::shared_ptr<platform::View> view;
    std::unique_ptr<TypedAreas> areas;  // none for a panel without fields
    std::vector<std::shared_ptr<CardPicture>> pictures = {};
  };

  /// What is told of the user's last action.
  struct Outcome {
    std::string text;
    Notice::Kind kind = Notice::Kind::warning;
    std::optional<Notice::Answer> answer;
  };

  void load(std::size_t section);
  std::unique_ptr<TypedAreas> areasOf(std::size_t section);
  TypedAreas* currentAreas() const;
  bool storesTyped();
  void addPictures(std::size_t section);
  void refreshPictures();
  bool hasOnlyGoodTexts();
  void tellUnknown(const std::vector<std::string>& sentences);
  void undo(const std::string& key);
  void readLater();
  void read();
  void showNotices();
  void updateStatus();
  PageTexts pageTexts() const;
  Notices notices();

  host::PanelDriver& driver_;
  PageView& view_;
  std::vector<Section> sections_;
  std::vector<Content> contents_;
  std::optional<std::size_t> current_;
  bool shown_ = false;    // whether the current panel is
  bool visible_ = false;  // whether the page is
  bool readsSoon_ = false;
  Outcome outcome_;
  std::vector<std::string> kept_;
  std::vector<std::string> unknown_;   // those of them that the chosen preset has brought
  std::vector<std::string> accepted_;  // concerns that the user prints with anyway
  std::function<void()> printAnyway_;  // offered in the bar while there are concerns
  PageStatus status_;
  std::function<void()> statusChanged_;
  std::unique_ptr<Presets> presets_;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);  // what is left for later asks
};

}  // namespace cardpanels::dialog
