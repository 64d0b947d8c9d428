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
    : Gtk::Box(Gtk::ORIENTATION_VERTICAL), driver_(driver) {
  addMessageBar();
  if (driver_.panels().empty()) {
    addNothingToChoose();
  } else {
    addSections();
    readSummary();
  }
  show_all_children();
}

CardPage::~CardPage() {
  disappear();
  // The views may live on with their panels.
  for (const Section& section : sections_) section.frame->remove();
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
  messageBar_.signal_response().connect(sigc::mem_fun(*this, &CardPage::answerMessage));
  messageBar_.set_no_show_all();
  pack_start(messageBar_, Gtk::PACK_SHRINK);
}

void CardPage::addNothingToChoose() {
  pack_start(*newText(_("This printer has no card options. Print as usual.")),
             Gtk::PACK_EXPAND_WIDGET);
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

  sections_.reserve(driver_.panels().size() + 1);
  for (const auto& panel : driver_.panels()) addSection(panel->panelName().value_or(""), panel);
  addSection(_("Summary"), nullptr);
  sections_.back().frame->add(summary_);
  sidebar_.signal_row_selected().connect(sigc::mem_fun(*this, &CardPage::rowSelected));
  sidebar_.select_row(*sidebar_.get_row_at_index(0));
}

void CardPage::addSection(const std::string& name, const host::PanelDriver::Panel& panel) {
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
  sections_.push_back({panel, frame, nullptr});
}

void CardPage::rowSelected(Gtk::ListBoxRow* row) {
  if (row == nullptr) return;
  Section* const selected = &sections_[static_cast<std::size_t>(row->get_index())];
  if (selected == current_) return;  // the list box repeats itself when it gets the focus
  if (!hasOnlyGoodTexts()) {
    sidebar_.select_row(*sidebar_.get_row_at_index(static_cast<int>(current_ - sections_.data())));
    return;
  }
  disappear();
  current_ = selected;
  if (get_mapped()) appear();
  current_->frame->show_all();
  stack_.set_visible_child(*current_->frame);
}

void CardPage::on_map() {
  appear();
  Gtk::Box::on_map();
}

void CardPage::on_unmap() {
  disappear();
  Gtk::Box::on_unmap();
}

void CardPage::appear() {
  if (shown_ || current_ == nullptr || !current_->panel) return;
  load(*current_);
  shown_ = true;
  driver_.show(current_->panel);
}

void CardPage::disappear() {
  if (!shown_) return;
  shown_ = false;
  driver_.hide(current_->panel);
}

void CardPage::load(Section& section) {
  if (section.frame->get_child() != nullptr) return;
  try {
    section.view = driver_.view(section.panel);
    auto& view = dynamic_cast<WidgetView&>(*section.view);
    view.signalEditEnded().connect(
        sigc::bind(sigc::mem_fun(*this, &CardPage::editEnded), &section));
    section.frame->add(view.widget());
  } catch (const std::exception& error) {
    section.frame->add(*newText(error.what()));
  }
  section.frame->show_all();
}

void CardPage::editEnded(const Section* section) {
  if (wrongText(*section) == nullptr) driver_.storeTyped(section->panel);
}

const WidgetView* CardPage::wrongText(const Section& section) {
  const auto* const view = dynamic_cast<const WidgetView*>(section.view.get());
  return view == nullptr ? nullptr : view->firstWithWrongText();
}

bool CardPage::hasOnlyGoodTexts() {
  const WidgetView* const wrong = current_ == nullptr ? nullptr : wrongText(*current_);
  if (wrong == nullptr) return true;
  const auto text = dynamic_cast<const platform::TextField&>(*wrong).stringValue();
  tellError(Glib::ustring::compose(_("“%1” is no measurement: “%2”"),
                                   wrong->widget().get_accessible()->get_name(), text));
  wrong->widget().grab_focus();
  return false;
}

void CardPage::optionsChanged() {
  if (summaryReading_.connected()) return;
  summaryReading_ = Glib::signal_idle().connect(sigc::mem_fun(*this, &CardPage::readSummary));
}

/// Always false: it is to be called once.
bool CardPage::readSummary() {
  std::vector<SummaryGrid::Group> groups;
  for (const auto& panel : driver_.panels()) {
    if (auto entries = driver_.summary(panel)) {
      groups.push_back({panel->panelName().value_or(""), std::move(entries)});
    }
  }
  summary_.display(groups);
  return false;
}

void CardPage::tell(const std::string& message, const std::function<void()>& insist) {
  insist_ = insist;
  showMessage(message, Gtk::MESSAGE_WARNING);
}

void CardPage::tellError(const std::string& message) {
  insist_ = nullptr;
  showMessage(message, Gtk::MESSAGE_ERROR);
}

void CardPage::showMessage(const std::string& message, Gtk::MessageType type) {
  messageLabel_.set_text(message);
  messageBar_.set_message_type(type);
  insistButton_->set_visible(insist_ != nullptr);
  messageBar_.set_visible(!message.empty());
}

void CardPage::answerMessage(int response) {
  const auto insist = std::exchange(insist_, nullptr);
  tell({});
  if (response == Gtk::RESPONSE_ACCEPT && insist) insist();
}

}  // namespace cardpanels::gtk3
