#pragma once

#include <gtkmm/box.h>
#include <gtkmm/button.h>
#include <gtkmm/label.h>
#include <gtkmm/scrolledwindow.h>
#include <gtkmm/stack.h>

#include <array>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "dialog/Page.h"
#include "dialog/PageView.h"
#include "dialog/PanelWidth.h"
#include "ports/gtk3/HelpButton.h"
#include "ports/gtk3/NoticeBar.h"
#include "ports/gtk3/PageKeys.h"
#include "ports/gtk3/PictureFrame.h"
#include "ports/gtk3/PresetBar.h"
#include "ports/gtk3/Sidebar.h"
#include "ports/gtk3/SummaryGrid.h"

namespace cardpanels::gtk3 {

/// The widgets of the page "Card": the sections by name in a sidebar, the one that is selected
/// beside it, and the bar above.
class CardPage final : public Gtk::Box, private dialog::PageView {
 public:
  /// A page on `driver`'s panels, which must outlive it.
  explicit CardPage(host::PanelDriver& driver);
  ~CardPage() override;

  /// What the page does.
  dialog::Page& page() { return *page_; }

  /// What the page would like to be wide, in pixels, for the widest of the panels that the user
  /// has seen, whatever they show.
  int naturalWidth();

  /// Gives the focus to the list of sections, in a window that has given it to nothing yet.
  void focusSections();

  /// Shows what the document has on front and back behind the areas.
  void showDocument(const std::array<CardGround, 2>& sides);

  /// Has the window become wide enough for `naturalWidth`, within the monitor, when the page is
  /// first seen, and when a panel is, unless the user has made it narrower.
  void widenWindowWhenSeen();

 protected:
  void on_map() override;
  void on_unmap() override;

 private:
  void showSection(std::size_t section) override;
  void fillSection(std::size_t section, const std::shared_ptr<platform::View>& view) override;
  void addPicture(std::size_t section, const std::shared_ptr<dialog::CardPicture>& picture,
                  const std::shared_ptr<platform::View>& fields) override;
  void fillSectionWithText(std::size_t section, const std::string& text) override;
  void showSummary(const dialog::Summary& summary) override;
  void markRow(std::size_t section, const std::string& why) override;
  void emphasize(std::size_t section, const std::set<std::string>& keys) override;
  void showNotices(const dialog::Notices& notices) override;
  void showPresets(const dialog::PresetRow& row) override { presetBar_.display(row); }
  void allowReset(bool allowed) override { resetButton_.set_sensitive(allowed); }
  void later(std::function<void()> task) override;

  void perform(const std::function<void()>& task);
  void addSections();
  void addSection(const std::string& name);
  void addKeys();
  void widenWindow();
  void widenWindowLater();
  void rowSelected(Gtk::ListBoxRow* row);

  NoticeBar noticeBar_;
  PresetBar presetBar_;
  Sidebar sidebar_;
  Gtk::Button resetButton_;
  HelpButton help_;
  Gtk::Stack stack_;
  SummaryGrid summary_;
  std::vector<Gtk::ScrolledWindow*> frames_;       // a section each
  std::vector<std::set<std::string>> emphasized_;  // the options in bold there
  std::vector<std::unique_ptr<PictureFrame>> pictures_;
  std::array<CardGround, 2> grounds_;  // front and back
  std::unique_ptr<dialog::Page> page_;
  std::unique_ptr<PageKeys> keys_;
  sigc::connection seen_;
  bool widensWindow_ = false;
  dialog::PanelWidth panelWidth_;
};

}  // namespace cardpanels::gtk3
