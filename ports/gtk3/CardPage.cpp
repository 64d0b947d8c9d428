#include "ports/gtk3/CardPage.h"

#include <glibmm/main.h>
#include <gtkmm/label.h>
#include <gtkmm/scrollbar.h>
#include <gtkmm/separator.h>
#include <gtkmm/viewport.h>
#include <gtkmm/window.h>

#include <algorithm>
#include <exception>
#include <utility>

#include "platform/Messages.h"
#include "platform/TextField.h"
#include "ports/gtk3/Emphasis.h"
#include "ports/gtk3/RemoveChildren.h"
#include "ports/gtk3/WidgetView.h"
#include "ports/gtk3/WindowWidth.h"

namespace cardpanels::gtk3 {
namespace {

using platform::_;

constexpr int kBorder = 18;
constexpr int kResetWidth = 8;  // characters
constexpr int kFootMargin = 4;
constexpr int kMinimumContentWidth = 300;
constexpr int kMinimumContentHeight = 150;

Gtk::Label* newText(const Glib::ustring& text) {
  auto* const label = Gtk::make_managed<Gtk::Label>(text);
  label->set_line_wrap();
  label->set_line_wrap_mode(Pango::WRAP_WORD_CHAR);
  label->property_margin() = kBorder;
  return label;
}

/// Tab goes through the children in this order, not by where they stand.
void tabThrough(Gtk::Container& container, const std::vector<Gtk::Widget*>& order) {
  G_GNUC_BEGIN_IGNORE_DEPRECATIONS
  container.set_focus_chain(order);
  G_GNUC_END_IGNORE_DEPRECATIONS
}

}  // namespace

CardPage::CardPage(host::PanelDriver& driver)
    : Gtk::Box(Gtk::ORIENTATION_VERTICAL),
      presetBar_([this]() -> dialog::Presets& { return *page_->presets(); }),
      help_([this] { return page_->help(); }),
      page_(new dialog::Page(driver, *this)) {
  pack_start(noticeBar_, Gtk::PACK_SHRINK);
  pack_start(presetBar_, Gtk::PACK_SHRINK);
  if (page_->sections().empty()) {
    pack_start(*newText(dialog::Page::nothingToChoose()), Gtk::PACK_EXPAND_WIDGET);
  } else {
    addSections();
  }
  page_->start();
  show_all_children();
}

CardPage::~CardPage() {
  pictures_.clear();
  page_.reset();
  // The views may live on with their panels.
  for (Gtk::ScrolledWindow* frame : frames_) {
    if (auto* const viewport = dynamic_cast<Gtk::Viewport*>(frame->get_child())) {
      removeChildren(*viewport);
    }
  }
}

void CardPage::addSections() {
  auto* const scroller = Gtk::make_managed<Gtk::ScrolledWindow>();
  scroller->set_policy(Gtk::POLICY_NEVER, Gtk::POLICY_AUTOMATIC);
  scroller->get_style_context()->add_class("sidebar");
  scroller->set_vexpand();
  scroller->add(sidebar_);
  sidebar_.get_accessible()->set_name(_("Card options"));

  auto* const reset = Gtk::make_managed<Gtk::Label>(_("Reset to Defaults"));
  reset->set_line_wrap();
  reset->set_max_width_chars(kResetWidth);
  reset->set_justify(Gtk::JUSTIFY_CENTER);
  resetButton_.add(*reset);
  resetButton_.signal_clicked().connect([this] { page_->reset(); });
  help_.set_halign(Gtk::ALIGN_START);
  auto* const foot = Gtk::make_managed<Gtk::Box>(Gtk::ORIENTATION_VERTICAL, kFootMargin);
  foot->property_margin() = kFootMargin;
  foot->pack_start(resetButton_, Gtk::PACK_SHRINK);
  foot->pack_start(help_, Gtk::PACK_SHRINK);
  stack_.set_hexpand();
  stack_.set_vexpand();
  auto* const columns = Gtk::make_managed<Gtk::Grid>();
  // Assistive technology reads a grid's last child first.
  columns->attach(*foot, 0, 1);
  columns->attach(stack_, 2, 0, 1, 2);
  columns->attach(*Gtk::make_managed<Gtk::Separator>(Gtk::ORIENTATION_VERTICAL), 1, 0, 1, 2);
  columns->attach(*scroller, 0, 0);
  pack_start(*columns, Gtk::PACK_EXPAND_WIDGET);
  tabThrough(*columns, {scroller, &stack_, foot});
  tabThrough(*this, {&presetBar_, columns, &noticeBar_});

  for (const auto& section : page_->sections()) addSection(section.name);
  frames_.back()->add(summary_);
  sidebar_.signal_row_selected().connect(sigc::mem_fun(*this, &CardPage::rowSelected));
  addKeys();
}

void CardPage::addKeys() {
  const auto go = [this](void (dialog::Page::*to)()) {
    return [this, to] {
      help_.closeHelp();  // before the focus that it gives back is somewhere else
      (page_.get()->*to)();
    };
  };
  keys_ = std::make_unique<PageKeys>(
      *this, PageKeys::Actions{go(&dialog::Page::selectPrevious), go(&dialog::Page::selectNext),
                               [this] { help_.toggleHelp(); }});
}

int CardPage::naturalWidth() {
  // Bold captions, which may come, are wider.
  for (Gtk::ScrolledWindow* frame : frames_) emphasizeAllCaptions(*frame);
  int least = 0;
  int natural = 0;
  stack_.get_preferred_width(least, natural);
  const int inside = natural;
  int widest = natural;
  for (std::size_t i = 0; i + 1 < frames_.size(); ++i) {  // without the summary, whose texts wrap
    if (frames_[i]->get_child() == nullptr) continue;
    frames_[i]->get_vscrollbar()->get_preferred_width(least, natural);
    widest = std::max(widest, widthWithHidden(*frames_[i]->get_child()) + natural);
  }
  get_preferred_width(least, natural);
  for (std::size_t i = 0; i < frames_.size(); ++i) emphasizeCaptions(*frames_[i], emphasized_[i]);
  return natural - inside + widest;
}

void CardPage::focusSections() {
  if (auto* const row = sidebar_.get_selected_row()) row->grab_focus();
}

void CardPage::widenWindowWhenSeen() {
  seen_ = signal_map().connect([this] {
    seen_.disconnect();
    widensWindow_ = true;
    widenWindowLater();
  });
}

/// Once the page, or a panel that is new there, has got its place.
void CardPage::widenWindowLater() {
  if (!widensWindow_) return;
  Glib::signal_idle().connect_once(sigc::mem_fun(*this, &CardPage::widenWindow));
}

void CardPage::widenWindow() {
  auto* const window = dynamic_cast<Gtk::Window*>(get_toplevel());
  const int missing = panelWidth_.missing(naturalWidth(), get_allocated_width());
  if (window == nullptr || missing == 0) return;
  int width = 0;
  int height = 0;
  window->get_size(width, height);
  const int most = std::max(width, workArea(*window).get_width());
  window->resize(std::min(width + missing, most), height);
}

void CardPage::addSection(const std::string& name) {
  sidebar_.addName(name);
  auto* const frame = Gtk::make_managed<Gtk::ScrolledWindow>();
  frame->set_min_content_width(kMinimumContentWidth);
  frame->set_min_content_height(kMinimumContentHeight);
  frame->set_overlay_scrolling(false);
  stack_.add(*frame);
  frames_.push_back(frame);
  emphasized_.emplace_back();
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
  sidebar_.select(section);
  help_.set_sensitive(page_->offersHelp());
}

void CardPage::fillSection(std::size_t section, const std::shared_ptr<platform::View>& view) {
  frames_[section]->add(dynamic_cast<WidgetView&>(*view).widget());
  frames_[section]->show_all();
  widenWindowLater();
}

void CardPage::addPicture(std::size_t /*section*/,
                          const std::shared_ptr<dialog::CardPicture>& picture,
                          const std::shared_ptr<platform::View>& fields) {
  auto& view = dynamic_cast<WidgetView&>(*fields);
  pictures_.push_back(std::make_unique<PictureFrame>(picture, view.widget()));
  pictures_.back()->view().setGround(grounds_.at(picture->scene().isBack ? 1 : 0));
}

void CardPage::showDocument(const std::array<CardGround, 2>& sides) {
  grounds_ = sides;
  for (const auto& each : pictures_) {
    CardView& view = each->view();
    view.setGround(grounds_.at(view.picture().scene().isBack ? 1 : 0));
  }
}

void CardPage::fillSectionWithText(std::size_t section, const std::string& text) {
  frames_[section]->add(*newText(text));
  frames_[section]->show_all();
}

void CardPage::showSummary(const dialog::Summary& summary) { summary_.display(summary); }

void CardPage::showNotices(const dialog::Notices& notices) { noticeBar_.display(notices); }

void CardPage::markRow(std::size_t section, const std::string& why) { sidebar_.mark(section, why); }

void CardPage::emphasize(std::size_t section, const std::set<std::string>& keys) {
  emphasized_[section] = keys;
  emphasizeCaptions(*frames_[section], keys);
}

/// The slot ends with this object, which sigc tracks.
void CardPage::later(std::function<void()> task) {
  Glib::signal_idle().connect_once(sigc::bind(sigc::mem_fun(*this, &CardPage::perform), task));
}

void CardPage::perform(const std::function<void()>& task) { task(); }

}  // namespace cardpanels::gtk3
