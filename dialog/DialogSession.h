#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "dialog/PresetWork.h"
#include "dialog/PrintDialog.h"
#include "dialog/StateWatch.h"
#include "host/JobOptions.h"
#include "host/PPDFile.h"
#include "host/PanelHost.h"

namespace cardpanels::dialog {

/// What came of reading a queue: its PPD and the user's saved options, or why there is none.
struct QueueRead {
  host::PPDFile ppd;
  std::string error = {};
  std::vector<host::Option> savedOptions = {};
  std::vector<host::Option> serverOptions = {};  // what the server adds to jobs without them
  std::string differences = {};                  // of a class's printers, a sentence; "" for none
  bool isElsewhere = false;                      // the PPD is another than the dialog's
};

/// Begins to read a queue's PPD, and calls back once, later and on the caller's thread, unless what
/// it answers was destroyed before.
using ReadQueue = std::function<std::shared_ptr<void>(const std::string& queue,
                                                      std::function<void(QueueRead)> done)>;

using MakePanels = std::function<std::unique_ptr<host::PanelHost>(host::JobOptions& job)>;

/// Keeps the panels of a print dialog's printer and the dialog's own options in step, for as long
/// as the dialog lives.
class DialogSession : private host::PanelObserver {
 public:
  /// `dialog` must outlive this.
  DialogSession(PrintDialog& dialog, ReadQueue readQueue, WatchState watchState,
                MakePanels makePanels, WorkOnPresets presets);
  ~DialogSession() override;

  /// The dialog shows the options of `queue` from now on, which has card options; empty for none.
  void selectPrinter(const std::string& queue);

  /// Options or the page size may have changed in the dialog: panels follow where the printer's
  /// rules allow it, else the dialog is set back and the user is told.
  void dialogChanged();

  /// The dialog is about to print: stores what was typed, and brings all to the dialog's options.
  void print();

  /// Whether panels are there and nothing that is chosen conflicts.
  bool knowsNoConflict() const;

 private:
  void leave();
  void forget();
  void queueRead(QueueRead read);
  void startPanels(QueueRead read);
  void offerPresets(std::vector<host::Option> serverOptions);
  std::vector<std::string> bringOptionsElsewhere(const std::vector<host::Option>& saved);
  std::vector<host::Option> firstValues(const std::vector<host::Option>& saved) const;
  void tellCarriedOver(const std::vector<host::Option>& saved);
  bool isMarked(const host::Option& option) const;
  bool isTyped(const host::Option& option) const;
  bool differs(const host::Option& option) const;
  std::vector<host::Option> differences() const;
  void follow(const host::Option& option);
  void followPageSize();
  void bringToDialog();
  void bringPreset(const std::string& copies);
  std::string setBack(const host::Option& kept);
  std::string cannotBe(const host::Option& wanted) const;
  void optionsChanged() override;
  void tell(const std::string& message, const std::optional<host::Option>& insisted) override;
  void tellOutcome();

  PrintDialog& dialog_;
  ReadQueue readQueue_;
  WatchState watchState_;
  MakePanels makePanels_;
  WorkOnPresets workOnPresets_;
  std::string queue_;
  std::shared_ptr<void> reading_;
  std::shared_ptr<void> watching_;  // the printer's state
  std::unique_ptr<host::JobOptions> job_;
  std::unique_ptr<host::PanelHost> panels_;
  Page* page_ = nullptr;                          // the dialog's, on the panels
  std::map<std::string, std::string> leftAlone_;  // typed in the dialog, no value of the printer's
  bool following_ = false;                        // changes are on their way here
  std::string outcome_;                           // what the user is told once they are here
  std::optional<host::Option> insisted_;
};

}  // namespace cardpanels::dialog
