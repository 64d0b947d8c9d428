#include "ports/gtk3/PictureFrame.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace cardpanels::gtk3 {
namespace {

constexpr int kPictureSpacing = 12;

/// Puts `other` where `widget` stands in its grid. Assistive technology reads a grid's children by
/// when they came, the last one first, so those that are read before come again.
void replace(Gtk::Widget& widget, Gtk::Widget& other) {
  auto* const grid = dynamic_cast<Gtk::Grid*>(widget.get_parent());
  if (grid == nullptr) return;
  struct Cell {
    Gtk::Widget* child;
    int left, top, width, height;
  };
  std::vector<Cell> cells;
  for (Gtk::Widget* const child : grid->get_children()) {
    cells.push_back({child == &widget ? &other : child, grid->child_property_left_attach(*child),
                     grid->child_property_top_attach(*child), grid->child_property_width(*child),
                     grid->child_property_height(*child)});
    child->reference();
    if (child == &widget) break;
  }
  for (const Cell& cell : cells) grid->remove(cell.child == &other ? widget : *cell.child);
  std::reverse(cells.begin(), cells.end());
  for (const Cell& cell : cells) {
    grid->attach(*cell.child, cell.left, cell.top, cell.width, cell.height);
    (cell.child == &other ? widget : *cell.child).unreference();
  }
}

int naturalWidth(const Gtk::Widget& widget) {
  int least = 0;
  int natural = 0;
  widget.get_preferred_width(least, natural);
  return natural;
}

int leastWidth(const Gtk::Widget& widget) {
  int least = 0;
  int natural = 0;
  widget.get_preferred_width(least, natural);
  return least;
}

int heightOf(const Gtk::Widget& widget, int width) {
  int least = 0;
  int natural = 0;
  widget.get_preferred_height_for_width(width, least, natural);
  return natural;
}

}  // namespace

BesideOrAbove::BesideOrAbove() : Glib::ObjectBase("cardpanels_BesideOrAbove") {
  set_has_window(false);
  set_redraw_on_allocate(false);
}

void BesideOrAbove::hold(Gtk::Widget& first, Gtk::Widget& second) {
  first_ = &first;
  second_ = &second;
  first.set_parent(*this);
  second.set_parent(*this);
}

BesideOrAbove::~BesideOrAbove() { release(); }

void BesideOrAbove::release() {
  for (Gtk::Widget** child : {&first_, &second_}) {
    if (Gtk::Widget* const gone = std::exchange(*child, nullptr)) gone->unparent();
  }
}

void BesideOrAbove::on_remove(Gtk::Widget* widget) {
  for (Gtk::Widget** child : {&first_, &second_}) {
    if (*child != widget) continue;
    *child = nullptr;
    widget->unparent();
  }
}

void BesideOrAbove::forall_vfunc(gboolean /*includesInternals*/, GtkCallback callback,
                                 gpointer data) {
  if (first_ != nullptr) callback(first_->gobj(), data);
  if (second_ != nullptr) callback(second_->gobj(), data);
}

int BesideOrAbove::widthBeside(int width) const {
  const int room = width - kPictureSpacing - naturalWidth(*first_);
  return room >= leastWidth(*second_) ? std::min(room, naturalWidth(*second_)) : 0;
}

Gtk::SizeRequestMode BesideOrAbove::get_request_mode_vfunc() const {
  return Gtk::SIZE_REQUEST_HEIGHT_FOR_WIDTH;
}

void BesideOrAbove::get_preferred_width_vfunc(int& least, int& natural) const {
  least = natural = 0;
  for (const Gtk::Widget* const each : {first_, second_}) {
    if (each == nullptr || !each->get_visible()) continue;
    least = std::max(least, leastWidth(*each));
    natural += naturalWidth(*each) + (natural > 0 ? kPictureSpacing : 0);
  }
}

void BesideOrAbove::get_preferred_height_for_width_vfunc(int width, int& least,
                                                         int& natural) const {
  least = natural = 0;
  if (first_ == nullptr || second_ == nullptr) return;
  if (!first_->get_visible()) {
    natural = heightOf(*second_, width);
  } else if (const int beside = widthBeside(width)) {
    natural =
        std::max(heightOf(*first_, width - kPictureSpacing - beside), heightOf(*second_, beside));
  } else {
    natural = heightOf(*second_, width) + kPictureSpacing + heightOf(*first_, width);
  }
  least = natural;
}

void BesideOrAbove::get_preferred_height_vfunc(int& least, int& natural) const {
  int width = 0;
  int wide = 0;
  get_preferred_width_vfunc(width, wide);
  get_preferred_height_for_width_vfunc(width, least, natural);
}

void BesideOrAbove::on_size_allocate(Gtk::Allocation& allocation) {
  set_allocation(allocation);
  if (first_ == nullptr || second_ == nullptr) return;
  Gtk::Allocation one = allocation;
  Gtk::Allocation other = allocation;
  if (first_->get_visible()) {
    if (const int beside = widthBeside(allocation.get_width())) {
      const bool isRightToLeft = get_direction() == Gtk::TEXT_DIR_RTL;
      const int wide = allocation.get_width() - kPictureSpacing - beside;
      one.set_width(wide);
      other.set_width(beside);
      (isRightToLeft ? one : other)
          .set_x(allocation.get_x() + kPictureSpacing + (isRightToLeft ? beside : wide));
    } else {
      other.set_height(heightOf(*second_, allocation.get_width()));
      one.set_y(allocation.get_y() + other.get_height() + kPictureSpacing);
      one.set_height(std::max(1, allocation.get_height() - other.get_height() - kPictureSpacing));
    }
    first_->size_allocate(one);
  }
  second_->size_allocate(other);
}

PictureFrame::PictureFrame(std::shared_ptr<dialog::CardPicture> picture, Gtk::Widget& fields)
    : fields_(fields), view_(std::move(picture), dynamic_cast<Gtk::Notebook*>(&fields)) {
  replace(fields, both_);
  both_.hold(fields, view_);
  view_.show();
  view_.setChanged([this] { update(); });
  both_.set_no_show_all();
  update();
}

PictureFrame::~PictureFrame() {
  both_.release();
  replace(both_, fields_);
}

void PictureFrame::update() { both_.set_visible(view_.picture().scene().isShown); }

}  // namespace cardpanels::gtk3
