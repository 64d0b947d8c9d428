#include "ports/gtk4/NoticeBar.h"

#include <glibmm/main.h>
#include <gtkmm/adjustment.h>
#include <gtkmm/button.h>
#include <gtkmm/image.h>
#include <gtkmm/label.h>

#include <algorithm>

#include "ports/gtk4/AccessibleName.h"
#include "ports/gtk4/Children.h"

namespace cardpanels::gtk4 {
namespace {

using dialog::Notice;

constexpr int kMaximumHeight = 120;
constexpr int kSpacing = 6;

Gtk::MessageType typeOf(Notice::Kind kind) {
  switch (kind) {
    case Notice::Kind::information: return Gtk::MessageType::INFO;
    case Notice::Kind::warning: return Gtk::MessageType::WARNING;
    case Notice::Kind::error: break;
  }
  return Gtk::MessageType::ERROR;
}

}  // namespace

NoticeBar::NoticeBar() : rows_(Gtk::Orientation::VERTICAL, kSpacing) {
  scroller_.set_policy(Gtk::PolicyType::NEVER, Gtk::PolicyType::AUTOMATIC);
  scroller_.set_overlay_scrolling(false);  // a bar that always shows tells that there is more
  scroller_.set_hexpand();
  scroller_.set_child(rows_);
  add_child(scroller_);
  set_visible(false);
  scroller_.get_vadjustment()->signal_changed().connect(sigc::mem_fun(*this, &NoticeBar::fit));
}

NoticeBar::~NoticeBar() { fitting_.disconnect(); }

/// Makes all rows show if there are not too many. A scroller does not ask how high texts are once
/// they wrap at its width; its adjustment tells.
void NoticeBar::fit() {
  const int height =
      std::min(static_cast<int>(scroller_.get_vadjustment()->get_upper()), kMaximumHeight);
  if (height <= scroller_.get_min_content_height()) return;
  fitting_.disconnect();  // not while sizes are given out
  fitting_ = Glib::signal_idle().connect([this, height] {
    scroller_.set_min_content_height(height);
    return false;
  });
}

void NoticeBar::display(const dialog::Notices& notices) {
  const bool same = dialog::lookTheSame(notices, notices_);
  notices_ = notices;
  if (same) return;
  removeChildren(rows_);
  scroller_.set_min_content_height(-1);
  for (std::size_t i = 0; i < notices_.size(); ++i) addRow(i);
  set_message_type(typeOf(dialog::worstKind(notices_)));
  set_visible(!notices_.empty());
}

void NoticeBar::addRow(std::size_t index) {
  const Notice& notice = notices_[index];
  auto* const row = Gtk::make_managed<Gtk::Box>(Gtk::Orientation::HORIZONTAL, kSpacing);
  auto* const icon = Gtk::make_managed<Gtk::Image>();
  icon->set_from_icon_name(dialog::iconName(notice.kind));
  icon->set_valign(Gtk::Align::START);
  row->append(*icon);
  auto* const label = Gtk::make_managed<Gtk::Label>(notice.text);
  label->set_wrap();
  label->set_wrap_mode(Pango::WrapMode::WORD_CHAR);
  label->set_xalign(0);
  label->set_hexpand();
  row->append(*label);
  for (std::size_t i = 0; i < notice.answers.size(); ++i) {
    auto* const button = Gtk::make_managed<Gtk::Button>(notice.answers[i].label, true);
    button->set_valign(Gtk::Align::CENTER);
    setAccessibleDescription(*button, notice.text);
    button->signal_clicked().connect(
        sigc::bind(sigc::mem_fun(*this, &NoticeBar::answer), index, i));
    row->append(*button);
  }
  rows_.append(*row);
}

void NoticeBar::answer(std::size_t index, std::size_t answer) {
  const auto perform = notices_[index].answers[answer].perform;  // it may change the rows
  perform();
}

}  // namespace cardpanels::gtk4
