#pragma once

#include <gtkmm/widget.h>

#include <memory>
#include <vector>

#include "dialog/CardPicture.h"

namespace cardpanels::gtk4 {

class AreaWidget;

/// The areas of a picture as assistive technology finds them: GTK tells it of widgets only, so
/// there is one for each area, which draws nothing and takes no clicks. The one of the chosen area
/// has the focus of the picture.
class AreaWidgets {
 public:
  /// Those of `picture` inside `view`, both of which must outlive this.
  AreaWidgets(Gtk::Widget& view, dialog::CardPicture& picture);
  AreaWidgets(const AreaWidgets&) = delete;
  AreaWidgets& operator=(const AreaWidgets&) = delete;
  ~AreaWidgets();

  /// Takes over what has changed in the picture.
  void update();

  /// Puts each where its area is; while the view is given its place.
  void place();

  /// Whether the focus is in the view.
  bool haveFocus() const;

  /// Gives it to the chosen area, or to the view while none is chosen. Whether that took it.
  bool takeFocus();

  /// Takes it away again, if it is in the view.
  void letFocusGo();

 private:
  void match();

  Gtk::Widget& view_;
  dialog::CardPicture& picture_;
  std::vector<std::unique_ptr<AreaWidget>> widgets_;  // in the order of the shapes
};

}  // namespace cardpanels::gtk4
