// The interfaces' destructors stand here, so that host and plug-in share one type record of each
// and can find one another's optional interfaces.
#include "platform/AreaStrings.h"
#include "platform/Bundle.h"
#include "platform/CallbackObject.h"
#include "platform/ConstraintHandling.h"
#include "platform/Menu.h"
#include "platform/PlugIn.h"
#include "platform/PopUpButton.h"
#include "platform/PrintPanel.h"
#include "platform/TabView.h"
#include "platform/TextField.h"
#include "platform/View.h"
#include "platform/WillPrint.h"

namespace cardpanels::platform {

View::~View() = default;
Menu::~Menu() = default;
PopUpButton::~PopUpButton() = default;
TextField::~TextField() = default;
TabView::~TabView() = default;
Bundle::~Bundle() = default;
CallbackObject::~CallbackObject() = default;
ConstraintHandling::~ConstraintHandling() = default;
PrintPanel::~PrintPanel() = default;
WillPrint::~WillPrint() = default;
PlugIn::~PlugIn() = default;
AreaStrings::~AreaStrings() = default;

}  // namespace cardpanels::platform
