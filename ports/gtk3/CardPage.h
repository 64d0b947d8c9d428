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

#include "dialog/Page.h"
#include "dialog/PageView.h"
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

 protected:
  void on_map() override;
  void on_unmap() override;

 private:
  void showSection(std::size_t section) override;
  void fillSection(std::size_t section, const std::shared_ptr<platform::View>& view) override;
  void fillSectionWithText(std::size_t section, const std::string& text) override;
  void showSummary(const dialog::Summary& summary) override;
  void showMessage(const dialog::Message& message) override;
  void later(std::function<void()> task) override;

  void perform(const std::function<void()>& task);
  void addMessageBar();
  void addSections();
  void addSection(const std::string& name);
  void rowSelected(Gtk::ListBoxRow* row);
  void messageAnswered(int response);

  Gtk::InfoBar messageBar_;
  Gtk::Label messageLabel_;
  Gtk::Button* insistButton_ = nullptr;  // in the bar
  Gtk::ListBox sidebar_;
  Gtk::Stack stack_;
  SummaryGrid summary_;
  std::vector<Gtk::ScrolledWindow*> frames_;  // a section each
  std::unique_ptr<dialog::Page> page_;
};

}  // namespace cardpanels::gtk3
