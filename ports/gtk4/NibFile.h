#pragma once

#include <memory>
#include <string>

#include "dialog/Captions.h"
#include "platform/NibOwner.h"
#include "platform/View.h"

namespace cardpanels::gtk4 {

/// Makes the widgets of the user-interface file at `path` and connects them with `owner`. A
/// control's tooltip there is the name that assistive technology tells. Answers the top view.
/// Captions are those of the file, and of `captions` where it has them. Throws
/// `std::runtime_error` that names file and id for what does not fit.
std::shared_ptr<platform::View> loadNibFile(const std::string& path,
                                            const std::shared_ptr<platform::NibOwner>& owner,
                                            const dialog::Captions& captions);

}  // namespace cardpanels::gtk4
