#include "ports/gtk3/CardPage.h"

#include <glibmm/main.h>
#include <gtkmm/dialog.h>
#include <gtkmm/separator.h>

#include <exception>
#include <utility>

#include "platform/Messages.h"
#include "platform/TextField.h"
#include "ports/gtk3/WidgetView.h"

namespace cardpanels::gtk3 {
namespace {

using platform::_;

constexpr int kRowPadding = 8;
constexpr int kBorder = 18;
constexpr int kMinimumMessageHeight = 54;
constexpr int kMaximumMessageHeight = 120;
constexpr int kMinimumContentWidth = 300;
constexpr int kMinimumContentHeight = 150;

Gtk::Label* newText(const Glib::ustring& text) {
  auto* const label = Gtk::make_managed<Gtk::Label>(text);
  label->set_line_wrap();
  label->set_line_wrap_mode(Pango::WRAP_WORD_CHAR);
  label->property_margin() = kBorder;
  return label;
}

}  // namespace

CardPage::CardPage(host::PanelDriver& driver)
    : Gtk::Box(Gtk::ORIENTATION_VERTICAL), page_(new dialog::Page(driver, *this)) {
  addMessageBar();
  if (page_->sections().empty()) {
    pack_start(*newText(dialog::Page::nothingToChoose()), Gtk::PACK_EXPAND_WIDGET);
  } else {
    addSections();
  }
  page_->start();
  show_all_children();
}

CardPage::~CardPage() {
  page_.reset();
  // The views may live on with their panels.
  for (Gtk::ScrolledWindow* frame : frames_) frame->remove();
}

void CardPage::addMessageBar() {
  messageLabel_.set_line_wrap();
  messageLabel_.set_line_wrap_mode(Pango::WRAP_WORD_CHAR);
  messageLabel_.set_xalign(0);
  messageLabel_.show();
  auto* const scroller = Gtk::make_managed<Gtk::ScrolledWindow>();
  scroller->set_policy(Gtk::POLICY_NEVER, Gtk::POLICY_AUTOMATIC);
  scroller->set_overlay_scrolling(false);  // a bar that always shows tells that there is more
  scroller->set_propagate_natural_height(true);
  scroller->set_min_content_height(kMinimumMessageHeight);
  scroller->set_max_content_height(kMaximumMessageHeight);
  scroller->set_hexpand();
  scroller->add(messageLabel_);
  scroller->show();
  dynamic_cast<Gtk::Container&>(*messageBar_.get_content_area()).add(*scroller);
  insistButton_ = messageBar_.add_button(_("Change An_yway"), Gtk::RESPONSE_ACCEPT);
  for (auto* button : {insistButton_, messageBar_.add_button(_("Cl_ose"), Gtk::RESPONSE_CLOSE)}) {
    button->set_valign(Gtk::ALIGN_CENTER);
  }
  // Below each other, so that the message has room in a small window.
  dynamic_cast<Gtk::Box&>(*messageBar_.get_action_area())
      .set_orientation(Gtk::ORIENTATION_VERTICAL);
  messageBar_.signal_response().connect(sigc::mem_fun(*this, &CardPage::messageAnswered));
  messageBar_.set_no_show_all();
  pack_start(messageBar_, Gtk::PACK_SHRINK);
}

void CardPage::addSections() {
  auto* const scroller = Gtk::make_managed<Gtk::ScrolledWindow>();
  scroller->set_policy(Gtk::POLICY_NEVER, Gtk::POLICY_AUTOMATIC);
  scroller->get_style_context()->add_class("sidebar");
  scroller->add(sidebar_);
  sidebar_.set_selection_mode(Gtk::SELECTION_BROWSE);
  sidebar_.get_accessible()->set_name(_("Card options"));

  auto* const columns = Gtk::make_managed<Gtk::Box>();
  columns->pack_start(*scroller, Gtk::PACK_SHRINK);
  columns->pack_start(*Gtk::make_managed<Gtk::Separator>(Gtk::ORIENTATION_VERTICAL),
                      Gtk::PACK_SHRINK);
  columns->pack_start(stack_, Gtk::PACK_EXPAND_WIDGET);
  pack_start(*columns, Gtk::PACK_EXPAND_WIDGET);

  for (const auto& section : page_->sections()) addSection(section.name);
  frames_.back()->add(summary_);
  sidebar_.signal_row_selected().connect(sigc::mem_fun(*this, &CardPage::rowSelected));
}

void CardPage::addSection(const std::string& name) {
  auto* const label = Gtk::make_managed<Gtk::Label>(name);
  label->set_xalign(0);
  label->property_margin() = kRowPadding;
  auto* const row = Gtk::make_managed<Gtk::ListBoxRow>();
  row->add(*label);
  row->get_accessible()->set_name(name);
  sidebar_.append(*row);
  auto* const frame = Gtk::make_managed<Gtk::ScrolledWindow>();
  frame->set_min_content_width(kMinimumContentWidth);
  frame->set_min_content_height(kMinimumContentHeight);
  frame->set_overlay_scrolling(false);
  stack_.add(*frame);
  frames_.push_back(frame);
}

/// The list box repeats itself when it gets the focus; the page takes no notice.
void CardPage::rowSelected(Gtk::ListBoxRow* row) {
  if (row != nullptr) page_->select(static_cast<std::size_t>(row->get_index()));
}

void CardPage::on_map() {
  page_->appear();
  Gtk::Box::on_map();
}

void CardPage::on_unmap() {
  page_->disappear();
  Gtk::Box::on_unmap();
}

void CardPage::showSection(std::size_t section) {
  stack_.set_visible_child(*frames_[section]);
  sidebar_.select_row(*sidebar_.get_row_at_index(static_cast<int>(section)));
}

void CardPage::fillSection(std::size_t section, const std::shared_ptr<platform::View>& view) {
  frames_[section]->add(dynamic_cast<WidgetView&>(*view).widget());
  frames_[section]->show_all();
}

void CardPage::fillSectionWithText(std::size_t section, const std::string& text) {
  frames_[section]->add(*newText(text));
  frames_[section]->show_all();
}

void CardPage::showSummary(const dialog::Summary& summary) { summary_.display(summary); }

void CardPage::showMessage(const dialog::Message& message) {
  messageLabel_.set_text(message.text);
  messageBar_.set_message_type(message.kind == dialog::Message::Kind::error ? Gtk::MESSAGE_ERROR
                                                                            : Gtk::MESSAGE_WARNING);
  insistButton_->set_visible(message.offersInsisting);
  messageBar_.set_visible(!message.text.empty());
}

/// The slot ends with this object, which sigc tracks.
void CardPage::later(std::function<void()> task) {
  Glib::signal_idle().connect_once(sigc::bind(sigc::mem_fun(*this, &CardPage::perform), task));
}

void CardPage::perform(const std::function<void()>& task) { task(); }

void CardPage::messageAnswered(int response) {
  if (response == Gtk::RESPONSE_ACCEPT) {
    page_->insist();
  } else {
    page_->closeMessage();
  }
}

}  // namespace cardpanels::gtk3
