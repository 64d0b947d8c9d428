#pragma once

#include <gtkmm/box.h>
#include <gtkmm/button.h>
#include <gtkmm/infobar.h>
#include <gtkmm/label.h>
#include <gtkmm/listbox.h>
#include <gtkmm/scrolledwindow.h>
#include <gtkmm/stack.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/PanelDriver.h"
#include "ports/gtk3/SummaryGrid.h"

namespace cardpanels::gtk3 {

class WidgetView;

/// The page "Card" of a print dialog: the panels by name in a sidebar, a summary of all, and a bar
/// that tells the user of conflicts.
///
/// A panel is shown and hidden as its part of the page appears and goes, also when the page itself
/// does (it is mapped and unmapped). Views load when they are first seen; the page keeps them.
class CardPage : public Gtk::Box {
 public:
  /// A page on `driver`'s panels. The driver must outlive it.
  explicit CardPage(host::PanelDriver& driver);
  ~CardPage() override;

  /// To be called when options have changed: the summary is read again once this is done, since a
  /// panel learns what became of its own request only after the host has told of it.
  void optionsChanged();

  /// Shows `message` in the bar in place of what is there; nothing takes the bar away. With
  /// `insist`, the bar offers to change the options anyway, and calls it when the user does.
  void tell(const std::string& message, const std::function<void()>& insist = {});

  /// The same for an error.
  void tellError(const std::string& message);

  /// Whether all that the user has typed can be stored. If not, the first field where it cannot is
  /// told and gets the focus. Such a text is not stored, and its panel not left for another.
  bool hasOnlyGoodTexts();

 protected:
  void on_map() override;
  void on_unmap() override;

 private:
  /// One row of the sidebar, and what it shows.
  struct Section {
    host::PanelDriver::Panel panel;  // empty for the summary
    Gtk::ScrolledWindow* frame;
    std::shared_ptr<platform::View> view;
  };

  bool readSummary();
  void addMessageBar();
  void answerMessage(int response);
  void showMessage(const std::string& message, Gtk::MessageType type);
  void addNothingToChoose();
  void addSections();
  void addSection(const std::string& name, const host::PanelDriver::Panel& panel);
  void rowSelected(Gtk::ListBoxRow* row);
  void appear();
  void disappear();
  void load(Section& section);
  void editEnded(const Section* section);
  static const WidgetView* wrongText(const Section& section);

  host::PanelDriver& driver_;
  Gtk::InfoBar messageBar_;
  Gtk::Label messageLabel_;
  Gtk::Button* insistButton_ = nullptr;  // in the bar
  std::function<void()> insist_;
  Gtk::ListBox sidebar_;
  Gtk::Stack stack_;
  SummaryGrid summary_;
  sigc::connection summaryReading_;
  std::vector<Section> sections_;
  Section* current_ = nullptr;
  bool shown_ = false;
};

}  // namespace cardpanels::gtk3
