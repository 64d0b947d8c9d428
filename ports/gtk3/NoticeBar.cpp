#include "ports/gtk3/NoticeBar.h"

#include <glibmm/main.h>
#include <gtkmm/button.h>
#include <gtkmm/image.h>
#include <gtkmm/label.h>

#include <algorithm>

#include "ports/gtk3/RemoveChildren.h"

namespace cardpanels::gtk3 {
namespace {

using dialog::Notice;

constexpr int kMaximumHeight = 120;
constexpr int kSpacing = 6;

Gtk::MessageType typeOf(Notice::Kind kind) {
  switch (kind) {
    case Notice::Kind::information: return Gtk::MESSAGE_INFO;
    case Notice::Kind::warning: return Gtk::MESSAGE_WARNING;
    case Notice::Kind::error: break;
  }
  return Gtk::MESSAGE_ERROR;
}

}  // namespace

NoticeBar::NoticeBar() : rows_(Gtk::ORIENTATION_VERTICAL, kSpacing) {
  scroller_.set_policy(Gtk::POLICY_NEVER, Gtk::POLICY_AUTOMATIC);
  scroller_.set_overlay_scrolling(false);  // a bar that always shows tells that there is more
  scroller_.set_hexpand();
  rows_.set_valign(Gtk::ALIGN_CENTER);
  scroller_.add(rows_);
  scroller_.show_all();
  dynamic_cast<Gtk::Container&>(*get_content_area()).add(scroller_);
  set_no_show_all();
  rows_.signal_size_allocate().connect([this](Gtk::Allocation& given) { fit(given.get_width()); });
}

/// Makes all rows show if there are not too many. A scroller does not ask how high texts are once
/// they wrap at its width.
void NoticeBar::fit(int width) {
  int least = 0;
  int natural = 0;
  rows_.get_preferred_height_for_width(width, least, natural);
  const int height = std::min(natural, kMaximumHeight);
  if (height == scroller_.get_min_content_height()) return;
  // Not while sizes are given out; GTK may have destroyed the dialog before its page goes.
  fitting_.disconnect();
  fitting_ = Glib::signal_idle().connect([this, height] {
    if (scroller_.gobj() != nullptr) scroller_.set_min_content_height(height);
    return false;
  });
}

NoticeBar::~NoticeBar() { fitting_.disconnect(); }

void NoticeBar::display(const dialog::Notices& notices) {
  const bool same = dialog::lookTheSame(notices, notices_);
  notices_ = notices;
  if (same) return;
  removeChildren(rows_);
  for (std::size_t i = 0; i < notices_.size(); ++i) addRow(i);
  set_message_type(typeOf(dialog::worstKind(notices_)));
  set_visible(!notices_.empty());
}

void NoticeBar::addRow(std::size_t index) {
  const Notice& notice = notices_[index];
  auto* const row = Gtk::make_managed<Gtk::Box>(Gtk::ORIENTATION_HORIZONTAL, kSpacing);
  auto* const icon = Gtk::make_managed<Gtk::Image>();
  icon->set_from_icon_name(dialog::iconName(notice.kind), Gtk::ICON_SIZE_BUTTON);
  icon->set_valign(Gtk::ALIGN_START);
  row->pack_start(*icon, Gtk::PACK_SHRINK);
  auto* const label = Gtk::make_managed<Gtk::Label>(notice.text);
  label->set_line_wrap();
  label->set_line_wrap_mode(Pango::WRAP_WORD_CHAR);
  label->set_xalign(0);
  row->pack_start(*label, Gtk::PACK_EXPAND_WIDGET);
  for (std::size_t i = 0; i < notice.answers.size(); ++i) {
    auto* const button = Gtk::make_managed<Gtk::Button>(notice.answers[i].label, true);
    button->set_valign(Gtk::ALIGN_CENTER);
    button->get_accessible()->set_description(notice.text);
    button->signal_clicked().connect(
        sigc::bind(sigc::mem_fun(*this, &NoticeBar::answer), index, i));
    row->pack_start(*button, Gtk::PACK_SHRINK);
  }
  row->show_all();
  rows_.pack_start(*row, Gtk::PACK_SHRINK);
}

void NoticeBar::answer(std::size_t index, std::size_t answer) {
  const auto perform = notices_[index].answers[answer].perform;  // it may change the rows
  perform();
}

}  // namespace cardpanels::gtk3
