#pragma once

#include <memory>

#include "dialog/CardPicture.h"

namespace cardpanels::gtk3 {

class CardView;

/// Has assistive technology see `view` as a group with a child for each area of `picture`: its name
/// in words, what is wrong with it, where it is on the screen, whether it is chosen, and the
/// actions to go to its fields and to clear it. To be called before anything asks for the view's
/// accessible object.
void useCardAccessible(CardView& view, std::shared_ptr<dialog::CardPicture> picture);

/// Tells assistive technology what has changed in the picture.
void updateCardAccessible(CardView& view);

/// The picture is about to end; what assistive technology still holds answers nothing any more.
void releaseCardAccessible(CardView& view);

}  // namespace cardpanels::gtk3
