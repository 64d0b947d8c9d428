// Where things stand in the dialog, whatever the size of its texts.
#include <gtest/gtest.h>
#include <gtkmm/button.h>
#include <gtkmm/checkbutton.h>
#include <gtkmm/combobox.h>
#include <gtkmm/scrolledwindow.h>
#include <gtkmm/spinbutton.h>
#include <gtkmm/treeview.h>
#include <gtkmm/window.h>

#include <algorithm>
#include <limits>
#include <string>

#include "apps/cardprint-dialog/CardDialog.h"
#include "apps/cardprint-dialog/FileList.h"
#include "apps/cardprint-dialog/GtkWindows.h"
#include "apps/cardprint/CardJob.h"
#include "tests/ports/gtk3/VirtualDisplay.h"
#include "tests/ports/gtk3/Widgets.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/RecordedLog.h"

namespace cardpanels::cardprint {
namespace {

using test::across;
using test::areInOneRow;
using test::down;
using test::labelled;
using test::only;
using test::Place;
using test::placeOf;

class FileListsLook : public testing::Test {
 protected:
  void SetUp() override {
    list_.setFiles({"/cards/anna.pdf", "/cards/ben.pdf"});
    window_.add(list_);
    list_.show();
    window_.show();
    ASSERT_TRUE(test::handleEventsUntil([this] { return list_.get_mapped(); }));
  }

  FileList list_{{}};
  Gtk::Window window_;
};

TEST_F(FileListsLook, HasTheButtonsBesideTheFilesAndTheChecksBelow) {
  const Place files = placeOf(only<Gtk::ScrolledWindow>(list_));
  const Place add = placeOf(labelled<Gtk::Button>(list_, "Add Files…"));
  const Place remove = placeOf(labelled<Gtk::Button>(list_, "Remove"));
  const Place each = placeOf(labelled<Gtk::CheckButton>(list_, "One job a file"));
  const Place stop = placeOf(labelled<Gtk::CheckButton>(list_, "Stop at the first failure"));
  EXPECT_EQ(files.left, 6);
  EXPECT_GE(files.bottom - files.top, 56);
  EXPECT_EQ(across(files, add), 6);
  EXPECT_EQ(add.top, files.top);
  EXPECT_EQ(add.top, 0);
  EXPECT_EQ(remove.left, add.left);
  EXPECT_EQ(down(add, remove), 3);
  EXPECT_EQ(placeOf(window_).right - remove.right, 6);
  EXPECT_EQ(each.left, files.left);
  EXPECT_EQ(down(files, each), 3);
  EXPECT_TRUE(areInOneRow(each, stop));
  EXPECT_EQ(across(each, stop), 12);
}

TEST_F(FileListsLook, TellsAFilesFolderAtThePointer) {
  auto& view = only<Gtk::TreeView>(list_);
  std::string tip;
  view.get_model()->children().begin()->get_value(view.get_tooltip_column(), tip);
  EXPECT_EQ(tip, "/cards/anna.pdf");
}

TEST(JobHeadersLook, HasTwoRowsOfCaptionsAndControls) {
  setenv("CARDPANELS_BUNDLE", test::builtBundle().c_str(), 1);
  const test::RecordedLog log;
  Arguments arguments;
  arguments.ppd = test::duplexPPD();
  GtkWindows windows;
  CardJob job(arguments, windows);
  CardDialog dialog(job, windows.waiter());
  dialog.show();
  ASSERT_TRUE(test::handleEventsUntil([&] { return dialog.get_mapped(); }));
  auto& header = only<JobHeader>(dialog);
  const Place copies = placeOf(labelled(header, "Copies"));
  const Place number = placeOf(only<Gtk::SpinButton>(header));
  const Place size = placeOf(labelled(header, "Card size"));
  const Place orientation = placeOf(labelled(header, "Orientation"));
  const Place fit = placeOf(labelled<Gtk::CheckButton>(header, "Fit to whole card"));
  const auto choices = test::all<Gtk::ComboBox>(header);
  const auto right = [&choices](const Place& caption) {
    int nearest = std::numeric_limits<int>::max();
    for (Gtk::Widget* each : choices) {
      if (!each->get_mapped() || !areInOneRow(placeOf(*each), caption)) continue;
      const int distance = across(caption, placeOf(*each));
      if (distance >= 0) nearest = std::min(nearest, distance);
    }
    return nearest;
  };
  EXPECT_EQ(size.left, 6);
  EXPECT_EQ(copies.top, placeOf(header).top);
  EXPECT_EQ(across(copies, number), 6);
  EXPECT_EQ(down(copies, size), 6);
  EXPECT_EQ(right(size), 6);
  EXPECT_EQ(right(orientation), 6);
  EXPECT_TRUE(areInOneRow(size, orientation));
  EXPECT_EQ(fit.top, size.top);
  EXPECT_EQ(fit.bottom, size.bottom);
  EXPECT_EQ(fit.left, copies.left);
  EXPECT_EQ(fit.right, number.right);
}

}  // namespace
}  // namespace cardpanels::cardprint
