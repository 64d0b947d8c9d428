#pragma once

#include <gtkmm/drawingarea.h>
#include <gtkmm/notebook.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "dialog/CardPicture.h"
#include "ports/cairo/CardDrawing.h"

namespace cardpanels::gtk3 {

/// What the document has on one side of the card.
struct CardGround {
  std::shared_ptr<cairo_surface_t> page;  // fills the card; null where it is blank
  std::string why;                        // it is, in a sentence; "" where nothing is to be said
};

/// Draws the picture of one side of the card, and hands mouse and keys on to it. Assistive
/// technology finds an object for each area in it.
class CardView final : public Gtk::DrawingArea {
 public:
  /// The tabs of the fields, those to include first, follow the chosen area; null for none. They
  /// must outlive this.
  CardView(std::shared_ptr<dialog::CardPicture> picture, Gtk::Notebook* fields);
  ~CardView() override;

  dialog::CardPicture& picture() { return *picture_; }

  void setGround(CardGround ground);

  /// Who else learns that the picture has changed.
  void setChanged(std::function<void()> changed) { changed_ = std::move(changed); }

  /// How high a line of text is here, in pixels.
  double line() const;

 protected:
  bool on_draw(const Cairo::RefPtr<Cairo::Context>& context) override;
  Gtk::SizeRequestMode get_request_mode_vfunc() const override;
  void get_preferred_width_vfunc(int& least, int& natural) const override;
  void get_preferred_height_for_width_vfunc(int width, int& least, int& natural) const override;
  void get_preferred_height_vfunc(int& least, int& natural) const override;
  void on_size_allocate(Gtk::Allocation& allocation) override;
  void on_style_updated() override;
  bool on_button_press_event(GdkEventButton* event) override;
  bool on_button_release_event(GdkEventButton* event) override;
  bool on_motion_notify_event(GdkEventMotion* event) override;
  bool on_key_press_event(GdkEventKey* event) override;
  bool on_focus_in_event(GdkEventFocus* event) override;
  bool on_focus_out_event(GdkEventFocus* event) override;

 private:
  void follow();
  void setRoom();
  void writeWhy(const Cairo::RefPtr<Cairo::Context>& context);
  void showCursor(const char* name);

  std::shared_ptr<dialog::CardPicture> picture_;
  Gtk::Notebook* fields_;
  std::string chosen_;  // the last one whose fields were shown
  std::string cursor_;
  std::function<void()> changed_;
  cairo::CardStyle style_;
  cairo::CardDrawing drawing_;
  CardGround ground_;
};

}  // namespace cardpanels::gtk3
