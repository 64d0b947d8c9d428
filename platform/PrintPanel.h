#pragma once

#include <memory>

#include "platform/Array.h"
#include "platform/Dictionary.h"
#include "platform/Object.h"
#include "platform/Text.h"
#include "platform/View.h"

namespace cardpanels::platform {

/// A panel of the print dialog. The host may call the operations in any order, all on the dialog's
/// thread. A panel that wants to know of printing also derives from `WillPrint`; one whose view
/// comes from a user-interface file also derives from `NibOwner`.
class PrintPanel : public Object {
 public:
  ~PrintPanel() override;

  /// The panel's view, loaded when it is not; empty when that fails. The caller shares it.
  virtual std::shared_ptr<View> panelView() = 0;

  /// The panel's name in the user's language.
  virtual Text panelName() = 0;

  /// What kind of panel this is, the same in every language.
  virtual Text panelKind() = 0;

  /// The keywords of the PPD options that the panel edits. Always the same array, the panel's own.
  virtual std::shared_ptr<StringArray> supportedPPDOptionKeys() = 0;

  /// Called whenever the panel's page is about to appear.
  virtual void willShow() = 0;

  /// Called before the page goes; a panel may store what was typed. Always true.
  virtual bool shouldHide() = 0;

  /// Whether the dialog may offer help. Always true.
  virtual bool shouldShowHelp() = 0;

  /// Tells the panel that the host changed the option `key` to `choice`. The controls follow at
  /// the next `updateUI`.
  virtual void PPDOptionKeyValueDidChange_ppdChoice(const Text& key, const Text& choice) = 0;

  /// Takes the job's values from the host's marks. Always true, and `error` is never written.
  virtual bool restoreValuesAndReturnError(Text* error) = 0;

  /// Hands the panel's values to the host, on Print. Always true, and `error` is never written.
  virtual bool saveValuesAndReturnError(Text* error) = 0;

  /// Takes the selections from the marks in the PPD.
  virtual void updateMarkedSelections() = 0;

  /// Shows the selections in the controls, once they are filled.
  virtual void updateUI() = 0;

  /// Fills the controls, once.
  virtual void initializeUI() = 0;

  /// Option titles and the titles of what is selected, for the dialog's summary. A new one a call.
  virtual std::shared_ptr<Dictionary> summaryInfo() = 0;
};

}  // namespace cardpanels::platform
