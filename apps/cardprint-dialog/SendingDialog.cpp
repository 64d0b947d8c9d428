#include "apps/cardprint-dialog/SendingDialog.h"

#include <glibmm/convert.h>
#include <glibmm/main.h>
#include <gtkmm/button.h>
#include <gtkmm/cellrenderertext.h>
#include <gtkmm/scrolledwindow.h>
#include <gtkmm/tooltip.h>

#include <utility>

#include "apps/cardprint-dialog/LoginDialog.h"
#include "dialog/PrinterStateText.h"
#include "dialog/StateWatch.h"
#include "platform/Messages.h"
#include "ports/gtk/MainLoop.h"

namespace cardpanels::cardprint {
namespace {

using platform::_;
using platform::filled;
using State = dialog::BatchJob::State;

constexpr int kSendingMargin = 12;
constexpr int kSendingWidth = 600;
constexpr int kSendingHeight = 400;
constexpr int kFileWidth = 24;              // digits
constexpr int kJobWidth = 12;               // as many
constexpr int kStateWidth = 30;             // at least
constexpr int kAgain = 1;                   // a response
constexpr unsigned kSendingFarewell = 12;   // seconds, longer than a job takes to be cancelled
constexpr unsigned kShowingInterval = 150;  // milliseconds: what is drawn takes time from sending

/// A column of that many digits, of which the last takes what is left. Its width is not that of its
/// texts: to measure each row took longer than to send many of them.
void addColumn(Gtk::TreeView& view, const char* title,
               const Gtk::TreeModelColumn<Glib::ustring>& column, int digits) {
  auto* const renderer = Gtk::make_managed<Gtk::CellRendererText>();
  renderer->property_ellipsize() = Pango::ELLIPSIZE_MIDDLE;
  auto* const shown = Gtk::make_managed<Gtk::TreeViewColumn>(title, *renderer);
  shown->add_attribute(renderer->property_text(), column);
  shown->set_sizing(Gtk::TREE_VIEW_COLUMN_FIXED);
  const auto text = view.create_pango_layout(std::string(static_cast<std::size_t>(digits), '0'));
  shown->set_fixed_width(text->get_pixel_logical_extents().get_width());
  shown->set_resizable();
  view.append_column(*shown);
}

}  // namespace

SendingDialog::SendingDialog(Gtk::Window& parent, DialogJob& job, WindowWaiter& waiter,
                             bool stopsAtFailure)
    : Gtk::Dialog(filled(_("Printing on {printer}"), {{"printer", job.printerName()}}), parent,
                  true),
      job_(job),
      waiter_(waiter),
      stopsAtFailure_(stopsAtFailure),
      batch_(job.submissions(), job.ppdText(), gtk::postToMainLoop,
             [this](std::optional<std::size_t> each) { changed(each); }) {
  columns_.add(file_);
  columns_.add(number_);
  columns_.add(state_);
  rows_ = Gtk::ListStore::create(columns_);
  for (const dialog::BatchJob& each : batch_.jobs()) {
    auto row = *rows_->append();
    row[file_] = Glib::filename_display_basename(each.submission.files.front());
    row[state_] = dialog::stateLine(each, true, std::nullopt);
  }
  view_.set_model(rows_);
  addColumn(view_, _("File"), file_, kFileWidth);
  addColumn(view_, _("Job"), number_, kJobWidth);
  addColumn(view_, _("State"), state_, kStateWidth);
  view_.set_fixed_height_mode();
  view_.set_has_tooltip();
  view_.signal_query_tooltip().connect(
      [this](int x, int y, bool isKeyboard, const Glib::RefPtr<Gtk::Tooltip>& tooltip) {
        Gtk::TreeModel::iterator row;
        if (!view_.get_tooltip_context_iter(x, y, isKeyboard, row)) return false;
        Glib::ustring text;
        for (const auto* column : {&file_, &number_, &state_}) {
          const Glib::ustring each = row->get_value(*column);
          if (!each.empty()) text += (text.empty() ? "" : "\n") + each;
        }
        tooltip->set_text(text);
        view_.set_tooltip_row(tooltip, rows_->get_path(row));
        return true;
      });
  view_.get_accessible()->set_name(_("Jobs"));
  auto* const scroller = Gtk::make_managed<Gtk::ScrolledWindow>();
  scroller->set_shadow_type(Gtk::SHADOW_IN);
  scroller->add(view_);
  for (Gtk::Label* label : {&text_, &printer_}) {
    label->set_xalign(0);
    label->set_line_wrap();
  }
  auto& content = *get_content_area();
  content.set_border_width(kSendingMargin);
  content.set_spacing(kSendingMargin / 2);
  content.pack_start(text_, Gtk::PACK_SHRINK);
  content.pack_start(bar_, Gtk::PACK_SHRINK);
  content.pack_start(printer_, Gtk::PACK_SHRINK);
  content.pack_start(*scroller, Gtk::PACK_EXPAND_WIDGET);
  content.show_all();
  cancel_ = add_button(_("_Cancel"), Gtk::RESPONSE_CANCEL);
  again_ = add_button(_("Try _Again"), kAgain);
  close_ = add_button(_("_Close"), Gtk::RESPONSE_CLOSE);
  set_default_size(kSendingWidth, kSendingHeight);
  waiter_.setParent(this);
}

SendingDialog::~SendingDialog() {
  farewell_.disconnect();
  showing_.disconnect();
  waiter_.setParent(get_transient_for());
}

void SendingDialog::send() {
  start();
  present();
  const auto loop = Glib::MainLoop::create();
  signal_hide().connect([loop] { loop->quit(); });
  loop->run();
  errors_.rethrow();
}

void SendingDialog::start() {
  watch_.reset();
  read_ = {};
  printer_.hide();
  batch_.start(stopsAtFailure_, waiter_.login());
  for (std::size_t i = 0; i < batch_.jobs().size(); ++i) showJob(i);
  showProgress();
  cancel_->show();
  cancel_->set_sensitive();
  again_->hide();
  close_->hide();
}

/// Escape and the window's own button end what is going on, then close.
void SendingDialog::on_response(int response) {
  if (batch_.isSending()) {
    cancel_->set_sensitive(false);
    batch_.cancel();
    farewell_ = Glib::signal_timeout().connect_seconds(
        [this] {
          batch_.giveUp();
          return false;
        },
        kSendingFarewell);
  } else if (response == kAgain) {
    start();
  } else {
    hide();
  }
}

/// The response alone decides whether it closes: what is on its way must come to an end first.
bool SendingDialog::on_delete_event(GdkEventAny* /*event*/) { return true; }

void SendingDialog::changed(std::optional<std::size_t> job) {
  if (!job) return ended();
  changed_.insert(*job);
  if (showing_.connected()) return;
  showing_ = Glib::signal_timeout().connect(
      [this] {
        showChanged();
        return false;
      },
      kShowingInterval);
}

void SendingDialog::showChanged() {
  for (const std::size_t each : std::exchange(changed_, {})) showJob(each);
  showProgress();
}

void SendingDialog::ended() {
  farewell_.disconnect();
  showing_.disconnect();
  showChanged();
  if (batch_.passwordNeeded() && askLogin()) return start();
  cancel_->hide();
  again_->set_visible(batch_.count(State::sent) != batch_.jobs().size() && !batch_.ppdChanged());
  close_->show();
  close_->grab_focus();
  for (std::size_t i = 0; i < batch_.jobs().size(); ++i) showJob(i);
  showProgress();
  if (batch_.ppdChanged()) hide();
  const auto ids = batch_.sentIds();
  if (ids.empty()) return;
  watch_ =
      std::make_unique<dialog::JobWatch>(job_.queue().queue, ids, gtk::postToMainLoop,
                                         [this](const dialog::JobsRead& states) { read(states); });
}

bool SendingDialog::askLogin() {
  const auto login = askedInWindow(*batch_.passwordNeeded(), this);
  if (login) waiter_.setLogin(*login);
  return login.has_value();
}

void SendingDialog::showJob(std::size_t job) {
  const dialog::BatchJob& each = batch_.jobs()[job];
  const auto read = read_.jobs.find(each.id);
  auto row = rows_->children()[static_cast<unsigned>(job)];
  const auto show = [&row](const auto& column, const Glib::ustring& text) {
    if (row.get_value(column) != text) row.set_value(column, text);  // which costs a redraw
  };
  if (each.state == State::sent) show(number_, job_.queue().queue + "-" + std::to_string(each.id));
  show(state_,
       dialog::stateLine(each, batch_.isSending(),
                         read == read_.jobs.end() ? std::nullopt : std::optional(read->second)));
}

void SendingDialog::showProgress() {
  text_.set_text(dialog::progressLine(batch_));
  bar_.set_fraction(static_cast<double>(batch_.count(State::sent)) /
                    static_cast<double>(batch_.jobs().size()));
}

void SendingDialog::read(const dialog::JobsRead& read) {
  const auto before = std::exchange(read_, read);
  for (std::size_t i = 0; i < batch_.jobs().size(); ++i) {
    const int id = batch_.jobs()[i].id;
    const auto now = read_.jobs.find(id);
    const auto then = before.jobs.find(id);
    if (now != read_.jobs.end() && (then == before.jobs.end() || *now != *then)) showJob(i);
  }
  const std::string line = read.haveAllEnded()
                               ? ""
                               : dialog::stateLine(dialog::StateRead{read.printer, read.error},
                                                   job_.panels().job().ppd());
  printer_.set_text(line);
  printer_.set_visible(!line.empty());
}

}  // namespace cardpanels::cardprint
