#include "ports/gtk4/HelpButton.h"

#include <glibmm/markup.h>

#include <utility>

#include "platform/Messages.h"
#include "ports/gtk4/AccessibleName.h"

namespace cardpanels::gtk4 {
namespace {

using platform::_;

constexpr int kTextBorder = 12;
constexpr int kWidestLine = 50;  // characters
constexpr int kGreatestHeight = 400;

}  // namespace

HelpButton::HelpButton(std::function<dialog::Help()> help)
    : help_(std::move(help)),
      popover_(Gtk::make_managed<Gtk::Popover>()),
      scroller_(Gtk::make_managed<Gtk::ScrolledWindow>()),
      text_(Gtk::make_managed<Gtk::Label>()) {
  set_child(*Gtk::make_managed<Gtk::Label>("?"));
  set_tooltip_text(_("Help (F1)"));
  setAccessibleName(*this, _("Help"));

  text_->set_wrap();
  text_->set_max_width_chars(kWidestLine);
  text_->set_xalign(0);
  text_->set_margin(kTextBorder);
  scroller_->set_policy(Gtk::PolicyType::NEVER, Gtk::PolicyType::AUTOMATIC);
  scroller_->set_overlay_scrolling(false);
  scroller_->set_propagate_natural_height();
  scroller_->set_max_content_height(kGreatestHeight);
  scroller_->set_focusable();
  scroller_->set_child(*text_);
  setAccessibleName(*popover_, _("Help"));
  popover_->set_child(*scroller_);
  set_direction(Gtk::ArrowType::UP);
  set_popover(*popover_);
  popover_->signal_show().connect([this] { fill(); });
}

void HelpButton::toggleHelp() {
  if (!get_sensitive()) return;
  if (popover_->get_visible()) {
    popdown();
  } else {
    popup();
  }
}

void HelpButton::fill() {
  const dialog::Help help = help_();
  Glib::ustring plain = help.title;
  Glib::ustring markup = "<b>" + Glib::Markup::escape_text(help.title) + "</b>";
  for (const std::string& paragraph : help.paragraphs) {
    plain += "\n\n" + paragraph;
    markup += "\n\n" + Glib::Markup::escape_text(paragraph);
  }
  text_->set_markup(markup);
  // What has the focus tells the text to assistive technology.
  setAccessibleName(*scroller_, plain);
  scroller_->grab_focus();
}

}  // namespace cardpanels::gtk4
