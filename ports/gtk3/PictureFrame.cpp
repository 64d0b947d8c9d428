#include "ports/gtk3/PictureFrame.h"

#include <utility>
#include <vector>

namespace cardpanels::gtk3 {
namespace {

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

dialog::PanelPart partOf(const Gtk::Widget& widget) {
  dialog::PanelPart part;
  widget.get_preferred_width(part.leastWidth, part.naturalWidth);
  part.heightFor = [&widget](int width) {
    int least = 0;
    int natural = 0;
    widget.get_preferred_height_for_width(width, least, natural);
    return natural;
  };
  return part;
}

void place(Gtk::Widget& widget, const dialog::PartPlace& place, const Gtk::Allocation& room) {
  Gtk::Allocation allocation(room.get_x() + place.left, room.get_y() + place.top, place.width,
                             place.height);
  widget.size_allocate(allocation);
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

/// Nothing while it holds nothing.
std::optional<dialog::BesideOrAbove> BesideOrAbove::layout() const {
  if (first_ == nullptr || second_ == nullptr) return std::nullopt;
  std::optional<dialog::PanelPart> first;
  if (first_->get_visible()) first = partOf(*first_);
  return dialog::BesideOrAbove(std::move(first), partOf(*second_));
}

Gtk::SizeRequestMode BesideOrAbove::get_request_mode_vfunc() const {
  return Gtk::SIZE_REQUEST_HEIGHT_FOR_WIDTH;
}

void BesideOrAbove::get_preferred_width_vfunc(int& least, int& natural) const {
  const auto both = layout();
  least = both ? both->leastWidth() : 0;
  natural = both ? both->naturalWidth() : 0;
}

void BesideOrAbove::get_preferred_height_for_width_vfunc(int width, int& least,
                                                         int& natural) const {
  const auto both = layout();
  least = natural = both ? both->heightFor(width) : 0;
}

void BesideOrAbove::get_preferred_height_vfunc(int& least, int& natural) const {
  get_preferred_height_for_width_vfunc(0, least, natural);
}

void BesideOrAbove::on_size_allocate(Gtk::Allocation& allocation) {
  set_allocation(allocation);
  const auto both = layout();
  if (!both) return;
  const auto places = both->placesIn(allocation.get_width(), allocation.get_height(),
                                     get_direction() == Gtk::TEXT_DIR_RTL);
  if (first_->get_visible()) place(*first_, places.first, allocation);
  place(*second_, places.second, allocation);
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
