#include "apps/cardprint-dialog/FileList.h"

#include <gdk/gdkkeysyms.h>
#include <giomm/contenttype.h>
#include <glibmm/convert.h>
#include <glibmm/markup.h>
#include <glibmm/miscutils.h>
#include <gtkmm/cellrenderertext.h>
#include <gtkmm/filechooserdialog.h>
#include <gtkmm/filefilter.h>

#include <algorithm>
#include <utility>

#include "platform/Messages.h"

namespace cardpanels::cardprint {
namespace {

using platform::_;
using platform::filled;

constexpr int kListMargin = 6;
constexpr int kListHeight = 56;
constexpr const char* kAnything = "application/octet-stream";

void addTo(std::string& names, const std::string& name) {
  names += (names.empty() ? "" : ", ") + name;
}

}  // namespace

std::vector<std::string> FileList::captions() {
  return {_("A_dd Files…"), _("Remo_ve"), _("One _job a file"), _("Stop at the first fail_ure")};
}

FileList::FileList(Client client)
    : Gtk::Box(Gtk::ORIENTATION_VERTICAL, kListMargin / 2),
      client_(std::move(client)),
      addButton_(_("A_dd Files…"), true),
      removeButton_(_("Remo_ve"), true),
      each_(_("One _job a file"), true),
      stop_(_("Stop at the first fail_ure"), true),
      checks_(Gtk::ORIENTATION_HORIZONTAL, 2 * kListMargin) {
  columns_.add(name_);
  columns_.add(path_);
  rows_ = Gtk::ListStore::create(columns_);
  view_.set_model(rows_);
  view_.append_column("", name_);
  view_.set_headers_visible(false);
  view_.get_selection()->set_mode(Gtk::SELECTION_MULTIPLE);
  view_.get_selection()->signal_changed().connect(
      [this] { removeButton_.set_sensitive(view_.get_selection()->count_selected_rows() != 0); });
  view_.set_tooltip_column(1);
  view_.get_accessible()->set_name(_("Files"));
  view_.signal_key_press_event().connect(sigc::mem_fun(*this, &FileList::keyPressed), false);
  addButton_.signal_clicked().connect([this] { client_.wantMore(); });
  removeButton_.signal_clicked().connect([this] { removeSelected(); });
  removeButton_.set_sensitive(false);
  each_.set_active();

  scroller_.add(view_);
  scroller_.set_shadow_type(Gtk::SHADOW_IN);
  scroller_.set_min_content_height(kListHeight);
  scroller_.set_hexpand();
  auto* const buttons = Gtk::make_managed<Gtk::Box>(Gtk::ORIENTATION_VERTICAL, kListMargin / 2);
  buttons->pack_start(addButton_, Gtk::PACK_SHRINK);
  buttons->pack_start(removeButton_, Gtk::PACK_SHRINK);
  auto* const row = Gtk::make_managed<Gtk::Box>(Gtk::ORIENTATION_HORIZONTAL, kListMargin);
  row->pack_start(scroller_, Gtk::PACK_EXPAND_WIDGET);
  row->pack_start(*buttons, Gtk::PACK_SHRINK);
  checks_.pack_start(each_, Gtk::PACK_SHRINK);
  checks_.pack_start(stop_, Gtk::PACK_SHRINK);
  pack_start(*row, Gtk::PACK_SHRINK);
  pack_start(checks_, Gtk::PACK_SHRINK);
  property_margin() = kListMargin;
  set_margin_top(0);
  show_all_children();
  checks_.set_no_show_all();
  checks_.hide();
}

void FileList::setFiles(const std::vector<std::string>& files) {
  files_ = files;
  showFiles();
}

void FileList::showFiles() {
  rows_->clear();
  for (const std::string& each : files_) {
    auto row = *rows_->append();
    row[name_] = Glib::filename_display_basename(each);
    row[path_] = Glib::Markup::escape_text(Glib::filename_display_name(each));
  }
  checks_.set_visible(files_.size() > 1);
}

void FileList::chooseFiles() {
  Gtk::FileChooserDialog chooser(_("Add Files"));
  if (auto* const window = dynamic_cast<Gtk::Window*>(get_toplevel()))
    chooser.set_transient_for(*window);
  chooser.set_modal();
  chooser.set_select_multiple();
  chooser.add_button(_("_Cancel"), Gtk::RESPONSE_CANCEL);
  chooser.add_button(_("_Add"), Gtk::RESPONSE_OK);
  chooser.set_default_response(Gtk::RESPONSE_OK);
  if (!formats_.empty()) {
    const auto taken = Gtk::FileFilter::create();
    taken->set_name(_("What the printer takes"));
    for (const std::string& each : formats_) {
      if (each != kAnything) taken->add_mime_type(each);
    }
    chooser.add_filter(taken);
    const auto all = Gtk::FileFilter::create();
    all->set_name(_("All files"));
    all->add_pattern("*");
    chooser.add_filter(all);
  }
  if (chooser.run() == Gtk::RESPONSE_OK) addFiles(chooser.get_filenames());
}

/// By the name alone: the disk may take its time.
bool FileList::isTaken(const std::string& path) const {
  bool isUncertain = false;
  const Glib::ustring type =
      Gio::content_type_guess(Glib::path_get_basename(path), std::string(), isUncertain);
  return formats_.empty() || isUncertain || type == kAnything ||
         std::any_of(formats_.begin(), formats_.end(), [&type](const std::string& each) {
           return each != kAnything &&
                  Gio::content_type_is_a(type, Gio::content_type_from_mime_type(each));
         });
}

void FileList::addFiles(const std::vector<std::string>& paths, const std::string& notHere) {
  std::string refused;
  for (const std::string& each : paths) {
    if (isTaken(each)) {
      files_.push_back(each);
    } else {
      addTo(refused, Glib::filename_display_basename(each));
    }
  }
  showFiles();
  std::string message;
  if (!refused.empty())
    message = filled(_("The printer takes no files of this kind: {files}"), {{"files", refused}});
  if (!notHere.empty()) {
    message += (message.empty() ? "" : "\n") +
               filled(_("This is no file of this computer: {files}"), {{"files", notHere}});
  }
  if (!message.empty()) client_.tell(message);
  client_.changed();
}

void FileList::takeDropsOn(Gtk::Window& window) {
  window.drag_dest_set({Gtk::TargetEntry("text/uri-list")}, Gtk::DEST_DEFAULT_ALL,
                       Gdk::ACTION_COPY);
  window.signal_drag_data_received().connect(
      [this](const Glib::RefPtr<Gdk::DragContext>& context, int /*x*/, int /*y*/,
             const Gtk::SelectionData& data, guint /*info*/, guint time) {
        addDropped(data.get_uris());
        context->drag_finish(true, false, time);
      });
}

void FileList::addDropped(const std::vector<Glib::ustring>& uris) {
  if (!get_visible()) return;  // nothing is to be added
  std::vector<std::string> paths;
  std::string notHere;
  for (const Glib::ustring& each : uris) {
    try {
      paths.push_back(Glib::filename_from_uri(each));
    } catch (const Glib::ConvertError&) {
      addTo(notHere, each);
    }
  }
  addFiles(paths, notHere);
}

/// Or the row where the keyboard is, where none is selected.
void FileList::removeSelected() {
  auto selected = view_.get_selection()->get_selected_rows();
  Gtk::TreePath cursor;
  Gtk::TreeViewColumn* column = nullptr;
  view_.get_cursor(cursor, column);
  if (selected.empty() && !cursor.empty()) selected.push_back(cursor);
  std::reverse(selected.begin(), selected.end());
  for (const Gtk::TreePath& row : selected) files_.erase(files_.begin() + row[0]);
  showFiles();
  client_.changed();
}

bool FileList::keyPressed(GdkEventKey* event) {
  if (event->keyval != GDK_KEY_Delete && event->keyval != GDK_KEY_KP_Delete) return false;
  removeSelected();
  return true;
}

}  // namespace cardpanels::cardprint
