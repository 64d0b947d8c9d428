#include "ports/gtk3/HelpButton.h"

#include <glibmm/markup.h>
#include <gtkmm/popover.h>
#include <gtkmm/scrollbar.h>

#include <algorithm>
#include <utility>

#include "platform/Messages.h"
#include "ports/gtk3/RemoveChildren.h"

namespace cardpanels::gtk3 {
namespace {

using platform::_;

constexpr int kTextBorder = 12;
constexpr int kWidestLine = 50;  // characters
constexpr int kOutside = 60;     // of the window, around the text

}  // namespace

HelpButton::HelpButton(std::function<dialog::Help()> help)
    : help_(std::move(help)),
      scroller_(Gtk::make_managed<Gtk::ScrolledWindow>()),
      text_(Gtk::make_managed<Gtk::Label>()) {
  removeChildren(*this);  // the arrow
  add(*Gtk::make_managed<Gtk::Label>("?"));
  set_tooltip_text(_("Help (F1)"));
  get_accessible()->set_name(_("Help"));

  text_->set_line_wrap();
  text_->set_max_width_chars(kWidestLine);
  text_->set_xalign(0);
  text_->property_margin() = kTextBorder;
  scroller_->set_policy(Gtk::POLICY_NEVER, Gtk::POLICY_AUTOMATIC);
  scroller_->set_overlay_scrolling(false);
  scroller_->add(*text_);
  scroller_->show_all();
  auto* const popover = Gtk::make_managed<Gtk::Popover>();
  popover->get_accessible()->set_name(_("Help"));
  popover->add(*scroller_);
  set_direction(Gtk::ARROW_UP);
  set_popover(*popover);
}

void HelpButton::toggleHelp() {
  if (get_sensitive()) set_active(!get_active());
}

void HelpButton::on_toggled() {
  if (get_active()) {
    fill(help_());
    fitInWindow();
  }
  Gtk::MenuButton::on_toggled();
  if (get_active()) scroller_->grab_focus();
}

void HelpButton::fill(const dialog::Help& help) {
  Glib::ustring plain = help.title;
  Glib::ustring markup = "<b>" + Glib::Markup::escape_text(help.title) + "</b>";
  for (const std::string& paragraph : help.paragraphs) {
    plain += "\n\n" + paragraph;
    markup += "\n\n" + Glib::Markup::escape_text(paragraph);
  }
  text_->set_markup(markup);
  // What has the focus tells the text to assistive technology.
  scroller_->get_accessible()->set_name(plain);
}

/// The help is a part of the window, which cuts what does not fit.
void HelpButton::fitInWindow() {
  const auto& window = *get_toplevel();
  int least = 0;
  int natural = 0;
  scroller_->get_vscrollbar()->get_preferred_width(least, natural);
  const int bar = natural;
  text_->get_preferred_width(least, natural);
  const int width = std::min(natural, window.get_allocated_width() - kOutside - bar);
  text_->get_preferred_height_for_width(width, least, natural);
  scroller_->set_size_request(width + bar,
                              std::min(natural, window.get_allocated_height() - kOutside));
}

}  // namespace cardpanels::gtk3
