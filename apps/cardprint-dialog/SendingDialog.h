#pragma once

#include <gtkmm/dialog.h>
#include <gtkmm/label.h>
#include <gtkmm/liststore.h>
#include <gtkmm/progressbar.h>
#include <gtkmm/treeview.h>

#include <memory>
#include <optional>
#include <set>

#include "apps/cardprint-dialog/WindowWaiter.h"
#include "apps/cardprint/DialogJob.h"
#include "dialog/Batch.h"
#include "dialog/JobWatch.h"
#include "ports/gtk/HandlerErrors.h"

namespace cardpanels::cardprint {

/// Sends a job for each file of another dialog's job, and shows what becomes of them: the files,
/// the jobs' numbers and their states.
class SendingDialog : public Gtk::Dialog {
 public:
  /// On top of `parent`. `job` and `waiter`, which has the login, must outlive it.
  SendingDialog(Gtk::Window& parent, DialogJob& job, WindowWaiter& waiter, bool stopsAtFailure);
  ~SendingDialog() override;

  /// Sends, again as often as the user wants what failed to be tried again, and returns when they
  /// have seen enough of what became of it. Throws what handlers have thrown.
  void send();

  const dialog::Batch& batch() const { return batch_; }

 private:
  void on_response(int response) override;
  bool on_delete_event(GdkEventAny* event) override;
  void start();
  void changed(std::optional<std::size_t> job);
  void ended();
  void showChanged();
  void showJob(std::size_t job);
  void showProgress();
  void read(const dialog::JobsRead& read);
  bool askLogin();

  DialogJob& job_;
  WindowWaiter& waiter_;
  const bool stopsAtFailure_;
  gtk::HandlerErrors errors_{[this] { hide(); }};
  dialog::Batch batch_;
  std::unique_ptr<dialog::JobWatch> watch_;
  dialog::JobsRead read_;
  Gtk::TreeModelColumnRecord columns_;
  Gtk::TreeModelColumn<Glib::ustring> file_;
  Gtk::TreeModelColumn<Glib::ustring> number_;
  Gtk::TreeModelColumn<Glib::ustring> state_;
  Glib::RefPtr<Gtk::ListStore> rows_;
  Gtk::TreeView view_;
  Gtk::Label text_;
  Gtk::Label printer_;
  Gtk::ProgressBar bar_;
  std::set<std::size_t> changed_;  // what is not shown yet
  sigc::connection showing_;
  sigc::connection farewell_;
  Gtk::Widget* cancel_;
  Gtk::Widget* again_;
  Gtk::Widget* close_;
};

}  // namespace cardpanels::cardprint
