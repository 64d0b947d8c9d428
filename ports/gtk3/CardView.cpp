#include "ports/gtk3/CardView.h"

#include <gdk/gdkkeysyms.h>
#include <gdkmm/cursor.h>
#include <gdkmm/window.h>
#include <pangomm/context.h>
#include <pangomm/font.h>
#include <pangomm/fontmetrics.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <utility>

#include "ports/gtk3/CardAccessible.h"

namespace cardpanels::gtk3 {
namespace {

using dialog::PictureKey;

constexpr double kLeastLines = 14;  // the picture's width in lines of text
constexpr double kNaturalLines = 20;
constexpr double kMostLines = 22;

std::optional<PictureKey> pictureKey(guint key) {
  using Key = PictureKey;
  static const std::map<guint, Key> keys{
      {GDK_KEY_Left, Key::left},
      {GDK_KEY_KP_Left, Key::left},
      {GDK_KEY_Right, Key::right},
      {GDK_KEY_KP_Right, Key::right},
      {GDK_KEY_Up, Key::up},
      {GDK_KEY_KP_Up, Key::up},
      {GDK_KEY_Down, Key::down},
      {GDK_KEY_KP_Down, Key::down},
      {GDK_KEY_Page_Up, Key::previous},
      {GDK_KEY_Page_Down, Key::next},
      {GDK_KEY_Home, Key::first},
      {GDK_KEY_End, Key::last},
      {GDK_KEY_Insert, Key::create},
      {GDK_KEY_Delete, Key::clear},
      {GDK_KEY_KP_Delete, Key::clear},
      {GDK_KEY_BackSpace, Key::clear},
      {GDK_KEY_Return, Key::edit},
      {GDK_KEY_KP_Enter, Key::edit},
      {GDK_KEY_Escape, Key::release},
  };
  const auto found = keys.find(key);
  if (found == keys.end()) return std::nullopt;
  return found->second;
}

cairo::Colour themeColour(const Gtk::Widget& widget, const char* name, const char* otherwise) {
  Gdk::RGBA colour;
  if (!widget.get_style_context()->lookup_color(name, colour)) colour.set(otherwise);
  return {colour.get_red(), colour.get_green(), colour.get_blue()};
}

/// A page of the document is as white as paper, whatever the theme.
cairo::CardColours themeColours(const Gtk::Widget& widget, bool hasPage) {
  constexpr cairo::Colour kWhite{1, 1, 1};
  const cairo::Colour ink = themeColour(widget, "theme_text_color", "black");
  const cairo::Colour onCard = hasPage ? cairo::Colour() : ink;
  return {.card = hasPage ? kWhite : themeColour(widget, "theme_base_color", "white"),
          .ink = ink,
          .onCard = onCard,
          .area = cairo::readable(themeColour(widget, "theme_selected_bg_color", "blue"), onCard),
          .error = cairo::readable(themeColour(widget, "error_color", "red"), onCard)};
}

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

double CardView::line() {
  const auto context = get_pango_context();
  const auto metrics = context->get_metrics(context->get_font_description());
  return (metrics.get_ascent() + metrics.get_descent()) / double{Pango::SCALE};
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
  style_.colours = themeColours(*this, style_.page != nullptr);
  const auto context = get_pango_context();
  // The one that Pango takes, where the theme's is not installed.
  const auto font = context->load_font(context->get_font_description());
  if (font) style_.fontFamily = font->describe().get_family();
  style_.fontSize = 0.8 * line();
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
  style_.colours = themeColours(*this, style_.page != nullptr);
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
  const double lines = const_cast<CardView*>(this)->line();
  least = static_cast<int>(std::ceil(kLeastLines * lines));
  natural = static_cast<int>(std::ceil(kNaturalLines * lines));
}

void CardView::get_preferred_height_for_width_vfunc(int width, int& least, int& natural) const {
  const double lines = const_cast<CardView*>(this)->line();
  const double used = std::min<double>(width, kMostLines * lines);
  least = natural = static_cast<int>(std::ceil(std::min(
      dialog::PictureLayout::heightFor(picture_->scene().card, used, lines), kMostLines * lines)));
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
  const auto key = pictureKey(event->keyval);
  const dialog::PictureModifiers held{.fine = (event->state & GDK_CONTROL_MASK) != 0,
                                      .resizes = (event->state & GDK_SHIFT_MASK) != 0};
  const bool isElsewhere =
      (event->state & GDK_MOD1_MASK) != 0 ||
      (held.fine && (event->keyval == GDK_KEY_Page_Up || event->keyval == GDK_KEY_Page_Down));
  if (key && !isElsewhere && picture_->press(*key, held)) return true;
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
