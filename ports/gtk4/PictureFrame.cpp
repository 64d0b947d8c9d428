#include "ports/gtk4/PictureFrame.h"

#include <gtkmm/grid.h>

#include <utility>

namespace cardpanels::gtk4 {
namespace {

/// Puts `other` where `widget` stands in its grid, and among those that assistive technology reads.
void replace(Gtk::Widget& widget, Gtk::Widget& other) {
  auto* const grid = dynamic_cast<Gtk::Grid*>(widget.get_parent());
  if (grid == nullptr) return;
  int left = 0;
  int top = 0;
  int width = 1;
  int height = 1;
  grid->query_child(widget, left, top, width, height);
  Gtk::Widget* const before = widget.get_prev_sibling();
  grid->remove(widget);
  grid->attach(other, left, top, width, height);
  if (before != nullptr) {
    other.insert_after(*grid, *before);
  } else {
    other.insert_at_start(*grid);
  }
}

dialog::PanelPart partOf(const Gtk::Widget& widget) {
  dialog::PanelPart part;
  int unused = 0;
  widget.measure(Gtk::Orientation::HORIZONTAL, -1, part.leastWidth, part.naturalWidth, unused,
                 unused);
  part.heightFor = [&widget](int width) {
    int least = 0;
    int natural = 0;
    int baseline = 0;
    widget.measure(Gtk::Orientation::VERTICAL, width, least, natural, baseline, baseline);
    return natural;
  };
  return part;
}

void place(Gtk::Widget& widget, const dialog::PartPlace& place) {
  widget.size_allocate({place.left, place.top, place.width, place.height}, -1);
}

}  // namespace

BesideOrAbove::BesideOrAbove() : Glib::ObjectBase("CardpanelsBesideOrAbove") {}

BesideOrAbove::~BesideOrAbove() { release(); }

void BesideOrAbove::hold(Gtk::Widget& first, Gtk::Widget& second) {
  first_ = &first;
  second_ = &second;
  first.set_parent(*this);
  second.set_parent(*this);
}

void BesideOrAbove::release() {
  for (Gtk::Widget** child : {&first_, &second_}) {
    if (Gtk::Widget* const gone = std::exchange(*child, nullptr)) gone->unparent();
  }
}

/// Nothing while it holds nothing.
std::optional<dialog::BesideOrAbove> BesideOrAbove::layout() const {
  if (first_ == nullptr || second_ == nullptr) return std::nullopt;
  std::optional<dialog::PanelPart> first;
  if (first_->get_visible()) first = partOf(*first_);
  return dialog::BesideOrAbove(std::move(first), partOf(*second_));
}

Gtk::SizeRequestMode BesideOrAbove::get_request_mode_vfunc() const {
  return Gtk::SizeRequestMode::HEIGHT_FOR_WIDTH;
}

void BesideOrAbove::measure_vfunc(Gtk::Orientation orientation, int room, int& least, int& natural,
                                  int& leastBaseline, int& naturalBaseline) const {
  leastBaseline = naturalBaseline = -1;
  least = natural = 0;
  const auto both = layout();
  if (!both) return;
  if (orientation == Gtk::Orientation::HORIZONTAL) {
    least = both->leastWidth();
    natural = both->naturalWidth();
  } else {
    least = natural = both->heightFor(room);
  }
}

void BesideOrAbove::size_allocate_vfunc(int width, int height, int /*baseline*/) {
  const auto both = layout();
  if (!both) return;
  const auto places = both->placesIn(width, height, get_direction() == Gtk::TextDirection::RTL);
  if (first_->get_visible()) place(*first_, places.first);
  place(*second_, places.second);
}

PictureFrame::PictureFrame(std::shared_ptr<dialog::CardPicture> picture, Gtk::Widget& fields)
    : fields_(fields), view_(std::move(picture), dynamic_cast<Gtk::Notebook*>(&fields)) {
  replace(fields, both_);
  both_.hold(fields, view_);
  view_.setChanged([this] { update(); });
  update();
}

PictureFrame::~PictureFrame() {
  view_.letFocusGo();
  both_.release();
  replace(both_, fields_);
}

void PictureFrame::update() { both_.set_visible(view_.picture().scene().isShown); }

}  // namespace cardpanels::gtk4
