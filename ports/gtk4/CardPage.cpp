#include "ports/gtk4/CardPage.h"

#include <glibmm/main.h>
#include <gtkmm/grid.h>
#include <gtkmm/label.h>
#include <gtkmm/root.h>
#include <gtkmm/scrollbar.h>
#include <gtkmm/separator.h>
#include <gtkmm/window.h>

#include <algorithm>
#include <utility>

#include "platform/Messages.h"
#include "ports/gtk4/AccessibleName.h"
#include "ports/gtk4/Emphasis.h"
#include "ports/gtk4/WidgetView.h"
#include "ports/gtk4/WindowWidth.h"

namespace cardpanels::gtk4 {
namespace {

using platform::_;

constexpr int kBorder = 18;
constexpr int kResetWidth = 8;  // characters
constexpr int kFootMargin = 4;
constexpr int kMinimumContentWidth = 300;
constexpr int kMinimumContentHeight = 150;

Gtk::Label* newText(const Glib::ustring& text) {
  auto* const label = Gtk::make_managed<Gtk::Label>(text);
  label->set_wrap();
  label->set_wrap_mode(Pango::WrapMode::WORD_CHAR);
  label->set_margin(kBorder);
  return label;
}

}  // namespace

CardPage::CardPage(host::PanelDriver& driver)
    : Glib::ObjectBase("CardpanelsPage"),
      Gtk::Box(Gtk::Orientation::VERTICAL),
      presetBar_([this]() -> dialog::Presets& { return *page_->presets(); }),
      help_([this] { return page_->help(); }),
      page_(new dialog::Page(driver, *this)) {
  append(noticeBar_);
  append(presetBar_);
  if (page_->sections().empty()) {
    columns_ = newText(dialog::Page::nothingToChoose());
    columns_->set_vexpand();
    append(*columns_);
  } else {
    addSections();
  }
  page_->start();
}

CardPage::~CardPage() {
  pictures_.clear();
  page_.reset();
  // The views may live on with their panels.
  for (Gtk::ScrolledWindow* frame : frames_) frame->unset_child();
}

void CardPage::addSections() {
  auto* const scroller = Gtk::make_managed<Gtk::ScrolledWindow>();
  scroller->set_policy(Gtk::PolicyType::NEVER, Gtk::PolicyType::AUTOMATIC);
  scroller->add_css_class("sidebar");
  scroller->set_vexpand();
  scroller->set_child(sidebar_);
  setAccessibleName(sidebar_, _("Card options"));

  auto* const reset = Gtk::make_managed<Gtk::Label>(_("Reset to Defaults"));
  reset->set_wrap();
  reset->set_max_width_chars(kResetWidth);
  reset->set_justify(Gtk::Justification::CENTER);
  resetButton_.set_child(*reset);
  setAccessibleName(resetButton_, _("Reset to Defaults"));
  resetButton_.signal_clicked().connect([this] { page_->reset(); });
  help_.set_halign(Gtk::Align::START);
  auto* const foot = Gtk::make_managed<Gtk::Box>(Gtk::Orientation::VERTICAL, kFootMargin);
  foot->set_margin(kFootMargin);
  foot->append(resetButton_);
  foot->append(help_);
  stack_.set_hexpand();
  stack_.set_vexpand();
  auto* const columns = Gtk::make_managed<Gtk::Grid>();
  columns->attach(*scroller, 0, 0);
  columns->attach(*Gtk::make_managed<Gtk::Separator>(Gtk::Orientation::VERTICAL), 1, 0, 1, 2);
  columns->attach(stack_, 2, 0, 1, 2);
  columns->attach(*foot, 0, 1);
  append(*columns);
  columns_ = columns;

  for (const auto& section : page_->sections()) addSection(section.name);
  frames_.back()->set_child(summary_);
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

/// The notices come last, though they stand above.
bool CardPage::moveFocus(GtkDirectionType direction) {
  if (!isTab(direction)) return moveFocusAsUsual(*this, direction);
  return tabThrough(*this, {&presetBar_, columns_, &noticeBar_}, direction);
}

int CardPage::naturalWidth() {
  // Bold captions, which may come, are wider.
  for (Gtk::ScrolledWindow* frame : frames_) emphasizeAllCaptions(*frame);
  const int inside = gtk4::naturalWidth(stack_);
  int widest = inside;
  for (std::size_t i = 0; i + 1 < frames_.size(); ++i) {  // without the summary, whose texts wrap
    if (frames_[i]->get_child() == nullptr) continue;
    const int bar = gtk4::naturalWidth(*frames_[i]->get_vscrollbar());
    widest = std::max(widest, widthWithHidden(*frames_[i]->get_child()) + bar);
  }
  const int natural = gtk4::naturalWidth(*this);
  for (std::size_t i = 0; i < frames_.size(); ++i) emphasizeCaptions(*frames_[i], emphasized_[i]);
  return natural - inside + widest;
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
  auto* const window = dynamic_cast<Gtk::Window*>(get_root());
  const int missing = panelWidth_.missing(naturalWidth(), get_width());
  if (window == nullptr || missing == 0) return;
  const int most = std::max(window->get_width(), monitorWidth(*window));
  window->set_default_size(std::min(window->get_width() + missing, most), window->get_height());
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
  if (page_) page_->disappear();
  Gtk::Box::on_unmap();
}

void CardPage::showSection(std::size_t section) {
  stack_.set_visible_child(*frames_[section]);
  sidebar_.select(section);
  help_.set_sensitive(page_->offersHelp());
}

void CardPage::fillSection(std::size_t section, const std::shared_ptr<platform::View>& view) {
  frames_[section]->set_child(dynamic_cast<WidgetView&>(*view).widget());
  widenWindowLater();
}

void CardPage::addPicture(std::size_t /*section*/,
                          const std::shared_ptr<dialog::CardPicture>& picture,
                          const std::shared_ptr<platform::View>& fields) {
  auto& widget = dynamic_cast<WidgetView&>(*fields).widget();
  pictures_.push_back(std::make_unique<PictureFrame>(picture, widget));
}

void CardPage::fillSectionWithText(std::size_t section, const std::string& text) {
  frames_[section]->set_child(*newText(text));
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

}  // namespace cardpanels::gtk4
