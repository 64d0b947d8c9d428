#pragma once

#include <gtkmm/box.h>
#include <gtkmm/button.h>
#include <gtkmm/checkbutton.h>
#include <gtkmm/liststore.h>
#include <gtkmm/scrolledwindow.h>
#include <gtkmm/selectiondata.h>
#include <gtkmm/treeview.h>
#include <gtkmm/window.h>

#include <functional>
#include <string>
#include <vector>

namespace cardpanels::cardprint {

/// The files to print: a list to which the user adds by the toolkit's chooser and by dropping, and
/// from which they take.
class FileList : public Gtk::Box {
 public:
  struct Client {
    std::function<void()> wantMore;  // the user wants to choose files
    std::function<void()> changed;   // the user has added or removed some
    std::function<void(const std::string& message)> tell;
  };

  explicit FileList(Client client);

  /// The captions, with their mnemonics.
  static std::vector<std::string> captions();

  void setFiles(const std::vector<std::string>& files);
  const std::vector<std::string>& files() const { return files_; }

  /// What the printer takes, as MIME types; empty where that is not known.
  void setFormats(std::vector<std::string> formats) { formats_ = std::move(formats); }

  /// Has the user choose files in the toolkit's window.
  void chooseFiles();

  /// Takes files that are dropped onto `window`.
  void takeDropsOn(Gtk::Window& window);

  /// Whether each file shall be a job of its own.
  bool makesJobEach() const { return each_.get_active(); }

  /// Whether nothing more shall be sent when one of them cannot be.
  bool stopsAtFailure() const { return stop_.get_active(); }

 private:
  void addFiles(const std::vector<std::string>& paths, const std::string& notHere = {});
  bool isTaken(const std::string& path) const;
  void addDropped(const std::vector<Glib::ustring>& uris);
  void removeSelected();
  bool keyPressed(GdkEventKey* event);
  void showFiles();

  Client client_;
  std::vector<std::string> files_;
  std::vector<std::string> formats_;
  Gtk::TreeModelColumnRecord columns_;
  Gtk::TreeModelColumn<std::string> name_;
  Gtk::TreeModelColumn<std::string> path_;
  Glib::RefPtr<Gtk::ListStore> rows_;
  Gtk::TreeView view_;
  Gtk::ScrolledWindow scroller_;
  Gtk::Button addButton_;
  Gtk::Button removeButton_;
  Gtk::CheckButton each_;
  Gtk::CheckButton stop_;
  Gtk::Box checks_;
};

}  // namespace cardpanels::cardprint
