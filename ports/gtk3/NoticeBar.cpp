#include "ports/gtk3/NoticeBar.h"

#include <gtkmm/button.h>
#include <gtkmm/image.h>
#include <gtkmm/label.h>
#include <gtkmm/scrolledwindow.h>

#include <algorithm>

namespace cardpanels::gtk3 {
namespace {

using dialog::Notice;

constexpr int kMinimumHeight = 54;
constexpr int kMaximumHeight = 120;
constexpr int kSpacing = 6;

bool looksTheSame(const Notice& a, const Notice& b) {
  return a.kind == b.kind && a.text == b.text &&
         std::equal(a.answers.begin(), a.answers.end(), b.answers.begin(), b.answers.end(),
                    [](const auto& x, const auto& y) { return x.label == y.label; });
}

Gtk::MessageType typeOf(Notice::Kind kind) {
  switch (kind) {
    case Notice::Kind::information: return Gtk::MESSAGE_INFO;
    case Notice::Kind::warning: return Gtk::MESSAGE_WARNING;
    case Notice::Kind::error: break;
  }
  return Gtk::MESSAGE_ERROR;
}

const char* iconOf(Notice::Kind kind) {
  switch (kind) {
    case Notice::Kind::information: return "dialog-information-symbolic";
    case Notice::Kind::warning: return "dialog-warning-symbolic";
    case Notice::Kind::error: break;
  }
  return "dialog-error-symbolic";
}

}  // namespace

NoticeBar::NoticeBar() : rows_(Gtk::ORIENTATION_VERTICAL, kSpacing) {
  auto* const scroller = Gtk::make_managed<Gtk::ScrolledWindow>();
  scroller->set_policy(Gtk::POLICY_NEVER, Gtk::POLICY_AUTOMATIC);
  scroller->set_overlay_scrolling(false);  // a bar that always shows tells that there is more
  scroller->set_propagate_natural_height(true);
  scroller->set_min_content_height(kMinimumHeight);
  scroller->set_max_content_height(kMaximumHeight);
  scroller->set_hexpand();
  scroller->add(rows_);
  scroller->show_all();
  dynamic_cast<Gtk::Container&>(*get_content_area()).add(*scroller);
  set_no_show_all();
}

void NoticeBar::display(const dialog::Notices& notices) {
  const bool same =
      std::equal(notices.begin(), notices.end(), notices_.begin(), notices_.end(), looksTheSame);
  notices_ = notices;
  if (same) return;
  for (Gtk::Widget* row : rows_.get_children()) rows_.remove(*row);
  auto worst = Notice::Kind::information;
  for (std::size_t i = 0; i < notices_.size(); ++i) {
    worst = std::max(worst, notices_[i].kind);
    addRow(i);
  }
  set_message_type(typeOf(worst));
  set_visible(!notices_.empty());
}

void NoticeBar::addRow(std::size_t index) {
  const Notice& notice = notices_[index];
  auto* const row = Gtk::make_managed<Gtk::Box>(Gtk::ORIENTATION_HORIZONTAL, kSpacing);
  auto* const icon = Gtk::make_managed<Gtk::Image>();
  icon->set_from_icon_name(iconOf(notice.kind), Gtk::ICON_SIZE_BUTTON);
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
