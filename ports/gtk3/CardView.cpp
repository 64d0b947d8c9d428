#include "ports/gtk3/CardView.h"

#include <gdkmm/cursor.h>
#include <gdkmm/window.h>
#include <gtk/gtk.h>

#include <utility>

#include "ports/gtk/PictureKeys.h"
#include "ports/gtk/PictureStyle.h"
#include "ports/gtk3/CardAccessible.h"

namespace cardpanels::gtk3 {
namespace {

bool isMainButton(const GdkEventButton& event) {
  return event.type == GDK_BUTTON_PRESS && event.button == GDK_BUTTON_PRIMARY;
}

}  // namespace

CardView::CardView(std::shared_ptr<dialog::CardPicture> picture, Gtk::Notebook* fields)
    : Glib::ObjectBase("cardpanels_CardView"), picture_(std::move(picture)), fields_(fields) {
  set_can_focus();
  add_events(Gdk::BUTTON_PRESS_MASK | Gdk::BUTTON_RELEASE_MASK | Gdk::POINTER_MOTION_MASK |
             Gdk::KEY_PRESS_MASK);
  useCardAccessible(*this, picture_);
  picture_->setChanged([this] { follow(); });
  if (fields_ != nullptr) {
    fields_->signal_switch_page().connect(sigc::track_obj(
        [this](Gtk::Widget* /*page*/, guint number) { picture_->drawExcludes(number == 1); },
        *this));
  }
}

CardView::~CardView() {
  picture_->setChanged({});
  releaseCardAccessible(*this);
}

double CardView::line() const {
  return gtk::lineHeight(GTK_WIDGET(const_cast<CardView*>(this)->gobj()));
}

void CardView::follow() {
  queue_draw();
  updateCardAccessible(*this);
  if (changed_) changed_();
  if (picture_->chosen() == chosen_) return;
  chosen_ = picture_->chosen();
  const dialog::CardShape* const shape = picture_->chosenShape();
  if (shape != nullptr && fields_ != nullptr) fields_->set_current_page(shape->include ? 0 : 1);
}

void CardView::setRoom() {
  const Gtk::Allocation place = get_allocation();
  picture_->setRoom(place.get_width(), place.get_height(), line());
}

void CardView::on_size_allocate(Gtk::Allocation& allocation) {
  Gtk::DrawingArea::on_size_allocate(allocation);
  setRoom();
}

void CardView::on_style_updated() {
  Gtk::DrawingArea::on_style_updated();
  gtk::takeTheme(GTK_WIDGET(gobj()), style_);
  setRoom();
}

bool CardView::on_draw(const Cairo::RefPtr<Cairo::Context>& context) {
  style_.chosen = picture_->chosen();
  style_.hasFocus = has_focus();
  drawing_.draw(context->cobj(), picture_->scene(), picture_->layout(), style_);
  writeWhy(context);
  return true;
}

void CardView::setGround(CardGround ground) {
  ground_ = std::move(ground);
  set_tooltip_text(ground_.why);
  picture_->tellBlank(ground_.why);
  style_.page = ground_.page.get();
  style_.colours = gtk::themeColours(GTK_WIDGET(gobj()), style_.page != nullptr);
  queue_draw();
}

/// At the foot of the blank card.
void CardView::writeWhy(const Cairo::RefPtr<Cairo::Context>& context) {
  if (ground_.why.empty()) return;
  const dialog::PictureBox& card = picture_->layout().card();
  const auto text = create_pango_layout(ground_.why);
  text->set_width(static_cast<int>(0.9 * card.width * Pango::SCALE));
  text->set_alignment(Pango::ALIGN_CENTER);
  int width = 0;
  int height = 0;
  text->get_pixel_size(width, height);
  const cairo::Colour& ink = style_.colours.ink;
  context->set_source_rgba(ink.red, ink.green, ink.blue, 0.7);
  context->move_to(card.left + 0.05 * card.width, card.bottom() - height - line() / 2);
  text->show_in_cairo_context(context);
}

Gtk::SizeRequestMode CardView::get_request_mode_vfunc() const {
  return Gtk::SIZE_REQUEST_HEIGHT_FOR_WIDTH;
}

void CardView::get_preferred_width_vfunc(int& least, int& natural) const {
  least = dialog::PictureLayout::leastWidth(line());
  natural = dialog::PictureLayout::naturalWidth(line());
}

void CardView::get_preferred_height_for_width_vfunc(int width, int& least, int& natural) const {
  least = natural = dialog::PictureLayout::heightAskedFor(picture_->scene().card, width, line());
}

void CardView::get_preferred_height_vfunc(int& least, int& natural) const {
  int width = 0;
  int wide = 0;
  get_preferred_width_vfunc(width, wide);
  get_preferred_height_for_width_vfunc(width, least, natural);
}

bool CardView::on_button_press_event(GdkEventButton* event) {
  if (!isMainButton(*event)) return Gtk::DrawingArea::on_button_press_event(event);
  grab_focus();
  picture_->press({event->x, event->y});
  return true;
}

bool CardView::on_button_release_event(GdkEventButton* event) {
  if (event->button != GDK_BUTTON_PRIMARY) return false;
  picture_->drop();
  return true;
}

bool CardView::on_motion_notify_event(GdkEventMotion* event) {
  picture_->drag({event->x, event->y});
  if ((event->state & GDK_BUTTON1_MASK) == 0) showCursor(picture_->cursor({event->x, event->y}));
  return true;
}

void CardView::showCursor(const char* name) {
  if (cursor_ == name || !get_window()) return;
  cursor_ = name;
  get_window()->set_cursor(Gdk::Cursor::create(get_display(), name));
}

bool CardView::on_key_press_event(GdkEventKey* event) {
  if (gtk::pressKey(*picture_, event->keyval, event->state)) return true;
  return Gtk::DrawingArea::on_key_press_event(event);
}

bool CardView::on_focus_in_event(GdkEventFocus* event) {
  const bool handled = Gtk::DrawingArea::on_focus_in_event(event);
  follow();
  return handled;
}

bool CardView::on_focus_out_event(GdkEventFocus* event) {
  const bool handled = Gtk::DrawingArea::on_focus_out_event(event);
  picture_->leave();
  return handled;
}

}  // namespace cardpanels::gtk3
