#pragma once

#include <cups/ppd.h>

#include <memory>

#include "platform/PopUpButton.h"
#include "platform/Text.h"
#include "plugin/choices/PDEChoice.h"

namespace cardpanels {

/// A new array with a wrapper per choice of `option`, in the PPD's order; empty pointer for a null
/// option. It is of use while the host's PPD stays open.
std::shared_ptr<ChoiceArray> ArrayFromPPDOption(ppd_option_t* option);

/// Replaces the pop-up's items by one per choice, in order: title and represented object. Selects
/// nothing itself. An absent pop-up or array is passed over.
void InitPopUpFromArray(const std::shared_ptr<platform::PopUpButton>& popUp,
                        const std::shared_ptr<ChoiceArray>& choices);

/// The first of `choices` with exactly that keyword or, for no keyword, the first that is its
/// option's default; empty when there is none.
std::shared_ptr<PDEChoice> FindChoiceForString(const platform::Text& keyword,
                                               const std::shared_ptr<ChoiceArray>& choices);

/// The option's name for people; nothing when it is not UTF-8. `option` must not be null.
platform::Text CreateOptionTitle(const ppd_option_t* option);

}  // namespace cardpanels
