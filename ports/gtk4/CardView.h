#pragma once

#include <gtkmm/drawingarea.h>
#include <gtkmm/eventcontrollerfocus.h>
#include <gtkmm/eventcontrollermotion.h>
#include <gtkmm/gesturedrag.h>
#include <gtkmm/notebook.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "dialog/CardPicture.h"
#include "ports/cairo/CardDrawing.h"
#include "ports/gtk4/AreaWidgets.h"
#include "ports/gtk4/TabOrder.h"

namespace cardpanels::gtk4 {

/// Draws the picture of one side of the card, and hands mouse and keys on to it. It is one stop of
/// Tab.
class CardView final : public FocusMover, public Gtk::DrawingArea {
 public:
  /// The tabs of the fields, those to include first, follow the chosen area; null for none. They
  /// must outlive this.
  CardView(std::shared_ptr<dialog::CardPicture> picture, Gtk::Notebook* fields);
  ~CardView() override;

  dialog::CardPicture& picture() { return *picture_; }

  /// Takes the focus away from the picture before that leaves its window, which would keep it.
  void letFocusGo() { areas_.letFocusGo(); }

  /// Who else learns that the picture has changed.
  void setChanged(std::function<void()> changed) { changed_ = std::move(changed); }

 protected:
  Gtk::SizeRequestMode get_request_mode_vfunc() const override;
  void measure_vfunc(Gtk::Orientation orientation, int room, int& least, int& natural,
                     int& leastBaseline, int& naturalBaseline) const override;
  void size_allocate_vfunc(int width, int height, int baseline) override;

 private:
  bool moveFocus(GtkDirectionType direction) override;
  void addControllers();
  void draw(const Cairo::RefPtr<Cairo::Context>& context, int width, int height);
  void follow();
  double line() const;
  void beginDrag(double x, double y);
  void drag(double x, double y);
  void showCursor(double x, double y);

  std::shared_ptr<dialog::CardPicture> picture_;
  Gtk::Notebook* fields_;
  AreaWidgets areas_;
  Glib::RefPtr<Gtk::GestureDrag> drag_;
  Glib::RefPtr<Gtk::EventControllerMotion> motion_;
  Glib::RefPtr<Gtk::EventControllerFocus> focus_;
  std::string chosen_;  // the last one whose fields were shown
  std::string cursor_;
  std::function<void()> changed_;
  cairo::CardStyle style_;
  cairo::CardDrawing drawing_;
};

}  // namespace cardpanels::gtk4
