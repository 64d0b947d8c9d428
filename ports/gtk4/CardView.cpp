#include "ports/gtk4/CardView.h"

#include <gtkmm/eventcontrollerkey.h>

#include "dialog/PictureText.h"
#include "ports/gtk/PictureKeys.h"
#include "ports/gtk/PictureStyle.h"
#include "ports/gtk4/AccessibleName.h"

namespace cardpanels::gtk4 {

CardView::CardView(std::shared_ptr<dialog::CardPicture> picture, Gtk::Notebook* fields)
    : Glib::ObjectBase("CardpanelsCardView"),
      picture_(std::move(picture)),
      fields_(fields),
      areas_(*this, *picture_),
      drag_(Gtk::GestureDrag::create()),
      motion_(Gtk::EventControllerMotion::create()),
      focus_(Gtk::EventControllerFocus::create()) {
  property_accessible_role() = Gtk::Accessible::Role::GROUP;
  set_focusable();
  set_draw_func(sigc::mem_fun(*this, &CardView::draw));
  addControllers();
  picture_->setChanged([this] { follow(); });
  follow();
  if (fields_ != nullptr) {
    fields_->signal_switch_page().connect(sigc::track_object(
        [this](Gtk::Widget* /*page*/, guint number) { picture_->drawExcludes(number == 1); },
        *this));
  }
}

CardView::~CardView() { picture_->setChanged({}); }

void CardView::addControllers() {
  drag_->set_button(GDK_BUTTON_PRIMARY);
  drag_->signal_drag_begin().connect(sigc::mem_fun(*this, &CardView::beginDrag));
  drag_->signal_drag_update().connect(sigc::mem_fun(*this, &CardView::drag));
  drag_->signal_drag_end().connect(
      sigc::track_object([this](double /*x*/, double /*y*/) { picture_->drop(); }, *this));
  add_controller(drag_);
  motion_->signal_motion().connect(sigc::mem_fun(*this, &CardView::showCursor));
  add_controller(motion_);
  const auto keys = Gtk::EventControllerKey::create();
  const auto press = [this](guint key, guint /*code*/, Gdk::ModifierType state) {
    return gtk::pressKey(*picture_, key, static_cast<guint>(state));
  };
  keys->signal_key_pressed().connect(sigc::track_object(press, *this), false);
  add_controller(keys);
  focus_->signal_enter().connect(sigc::mem_fun(*this, &CardView::queue_draw));
  focus_->signal_leave().connect(sigc::track_object([this] { picture_->leave(); }, *this));
  add_controller(focus_);
}

double CardView::line() const {
  return gtk::lineHeight(const_cast<GtkWidget*>(Gtk::Widget::gobj()));
}

void CardView::follow() {
  queue_draw();
  const dialog::CardScene& scene = picture_->scene();
  setAccessibleName(*this, dialog::pictureName(scene));
  setAccessibleDescription(*this, dialog::pictureDescription(scene));
  areas_.update();
  if (changed_) changed_();
  if (picture_->chosen() == chosen_) return;
  chosen_ = picture_->chosen();
  const dialog::CardShape* const shape = picture_->chosenShape();
  if (shape != nullptr && fields_ != nullptr) fields_->set_current_page(shape->include ? 0 : 1);
}

void CardView::draw(const Cairo::RefPtr<Cairo::Context>& context, int width, int height) {
  gtk::takeTheme(Gtk::Widget::gobj(), style_);
  style_.chosen = picture_->chosen();
  style_.hasFocus = focus_->contains_focus();
  picture_->setRoom(width, height, line());
  drawing_.draw(context->cobj(), picture_->scene(), picture_->layout(), style_);
}

Gtk::SizeRequestMode CardView::get_request_mode_vfunc() const {
  return Gtk::SizeRequestMode::HEIGHT_FOR_WIDTH;
}

void CardView::measure_vfunc(Gtk::Orientation orientation, int room, int& least, int& natural,
                             int& leastBaseline, int& naturalBaseline) const {
  using dialog::PictureLayout;
  leastBaseline = naturalBaseline = -1;
  least = PictureLayout::leastWidth(line());
  natural = PictureLayout::naturalWidth(line());
  if (orientation == Gtk::Orientation::HORIZONTAL) return;
  const int width = room < 0 ? least : room;
  least = natural = PictureLayout::heightAskedFor(picture_->scene().card, width, line());
}

void CardView::size_allocate_vfunc(int width, int height, int baseline) {
  Gtk::DrawingArea::size_allocate_vfunc(width, height, baseline);
  picture_->setRoom(width, height, line());
  areas_.place();
}

bool CardView::moveFocus(GtkDirectionType /*direction*/) {
  return !areas_.haveFocus() && areas_.takeFocus();
}

void CardView::beginDrag(double x, double y) {
  drag_->set_state(Gtk::EventSequenceState::CLAIMED);
  grab_focus();
  picture_->press({x, y});
}

/// GTK counts from where it began.
void CardView::drag(double x, double y) {
  double startX = 0;
  double startY = 0;
  if (drag_->get_start_point(startX, startY)) picture_->drag({startX + x, startY + y});
}

void CardView::showCursor(double x, double y) {
  const auto held = motion_->get_current_event_state() & Gdk::ModifierType::BUTTON1_MASK;
  const char* const name = picture_->cursor({x, y});
  if (held != Gdk::ModifierType() || cursor_ == name) return;
  cursor_ = name;
  set_cursor(cursor_);
}

}  // namespace cardpanels::gtk4
