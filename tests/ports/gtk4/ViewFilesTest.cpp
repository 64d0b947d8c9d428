// The panels with the user-interface files that are shipped, as keyboard and assistive technology
// find them.
#include <cups/ppd.h>
#include <gdk/gdkkeysyms.h>
#include <gtest/gtest.h>
#include <gtkmm/dropdown.h>
#include <gtkmm/entry.h>
#include <gtkmm/label.h>
#include <gtkmm/notebook.h>
#include <gtkmm/scrolledwindow.h>
#include <gtkmm/window.h>

#include <algorithm>
#include <clocale>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "dialog/Captions.h"
#include "host/JobOptions.h"
#include "host/PPDFile.h"
#include "platform/CallbackObject.h"
#include "platform/Messages.h"
#include "platform/PlugIn.h"
#include "plugin/ORBPDEPlugIn.h"
#include "ports/gtk4/AccessibleName.h"
#include "ports/gtk4/GtkBundle.h"
#include "ports/gtk4/WidgetView.h"
#include "tests/ports/gtk4/VirtualDisplay.h"
#include "tests/ports/gtk4/Widgets.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/RecordedLog.h"

namespace cardpanels::gtk4 {
namespace {

using Controls = std::vector<Gtk::Widget*>;

constexpr const char* kEnglish = "en_US.UTF-8";

/// A panel by its place, and what stands in it.
struct PanelFile {
  const char* name;
  std::size_t index;
  std::size_t popUps;
  std::size_t fields;  // those that show at a time: one page of each tab view
  std::size_t tabs;
};

constexpr PanelFile kPanels[] = {{"RibbonAndResin", 0, 4, 24, 2},
                                 {"Ultraviolet", 1, 4, 0, 0},
                                 {"PeelOff", 2, 2, 24, 2},
                                 {"ThermalLaminate", 3, 1, 0, 0},
                                 {"CardHandling", 4, 4, 0, 0}};

/// Where a panel's captions come from.
enum class From { file, ppd };

/// The printer with everything, set so that all areas are open.
class OpenHost final : public platform::CallbackObject {
 public:
  OpenHost() : job_(host::openPPD(test::duplexPPD())) {
    for (const std::string side : {"front", "back"}) {
      job_.mark(side + "Ribbon", "YMCK");
      job_.mark(side + "Resin", "DefinedAreas");
      job_.mark(side + "PO", "DefinedAreas");
    }
  }
  host::JobOptions& job() { return job_; }
  ppd_file_t* ppdFile() override { return job_.ppd(); }
  std::string_view className() const override { return "OpenHost"; }

 private:
  host::JobOptions job_;
};

using test::all;

template <class... Types>
Controls shown(Gtk::Widget& widget) {
  Controls found = all<Types...>(widget);
  std::erase_if(found, [](const Gtk::Widget* each) { return !each->get_mapped(); });
  return found;
}

/// A label is told by its text.
std::string nameOf(Gtk::Widget& widget) {
  const auto* const label = dynamic_cast<const Gtk::Label*>(&widget);
  return label != nullptr ? label->get_text().raw() : accessibleName(widget);
}

std::vector<std::string> namesOf(const Controls& controls) {
  std::vector<std::string> names;
  names.reserve(controls.size());
  for (auto* each : controls) names.push_back(nameOf(*each));
  return names;
}

/// The control that `widget` is a part of.
Gtk::Widget* controlOf(Gtk::Widget* widget) {
  for (const GType type : {GTK_TYPE_DROP_DOWN, GTK_TYPE_ENTRY}) {
    if (auto* const control = widget->get_ancestor(type)) return control;
  }
  return widget;
}

/// The lines that people read top down, and each from the left.
Controls inReadingOrder(Controls controls, Gtk::Widget& around) {
  const auto place = [&](Gtk::Widget* control) {
    double x = 0;
    double y = 0;
    control->translate_coordinates(around, 0, 0, x, y);
    return std::pair(y, x);
  };
  std::stable_sort(controls.begin(), controls.end(),
                   [&](Gtk::Widget* a, Gtk::Widget* b) { return place(a) < place(b); });
  return controls;
}

/// A panel in a window, in the language of `locale`.
class ShownPanel {
 public:
  ShownPanel(const PanelFile& file, const char* locale, From captions) {
    unsetenv("LANGUAGE");
    std::setlocale(LC_ALL, locale);
    platform::useCatalogues(CARDPANELS_BUILD_DIR "/lib/cardpanels.bundle");
    host_ = std::make_shared<OpenHost>();
    dialog::Captions given;
    if (captions == From::ppd) given = dialog::captionsOf(host_->job(), buttons());
    bundle_ = std::make_shared<GtkBundle>(test::builtBundle(), given);
    plugIn_->initWithBundle(bundle_);
    const auto panels = plugIn_->PDEPanelsForType_withHostInfo(platform::kPrinterModuleType, host_);
    panel_ = (*panels)[file.index];
    panel_->restoreValuesAndReturnError(nullptr);
    view_ = panel_->panelView();
    if (!view_) throw std::runtime_error(bundle_->loadError().value_or(""));
    panel_->willShow();
    scroller_.set_child(widget());  // higher than a small monitor, in the page as well
    window_.set_child(scroller_);
    window_.set_visible();
    test::handleEvents();
  }
  ~ShownPanel() {
    scroller_.unset_child();
    window_.unset_child();
    std::setlocale(LC_ALL, "C");
  }
  ShownPanel(const ShownPanel&) = delete;
  ShownPanel& operator=(const ShownPanel&) = delete;

  Gtk::Widget& widget() const { return dynamic_cast<WidgetView&>(*view_).widget(); }
  Gtk::Window& window() { return window_; }
  const host::JobOptions& job() { return host_->job(); }

  /// Those of the dialog.
  static std::vector<std::string> buttons() {
    return {platform::_("_Cancel"), platform::_("_Print")};
  }

  /// All texts that a user sees or hears, but those of the PPD.
  std::vector<std::string> texts() {
    auto texts = namesOf(all<Gtk::Label, Gtk::DropDown, Gtk::Entry, Gtk::Notebook>(widget()));
    for (auto* tabs : all<Gtk::Notebook>(widget())) {
      auto& notebook = dynamic_cast<Gtk::Notebook&>(*tabs);
      for (int page = 0; page < notebook.get_n_pages(); ++page) {
        texts.emplace_back(notebook.get_tab_label_text(*notebook.get_nth_page(page)));
      }
    }
    return texts;
  }

 private:
  test::RecordedLog log_;
  std::shared_ptr<platform::PlugIn> plugIn_ = std::make_shared<ORBPDEPlugIn>();
  std::shared_ptr<OpenHost> host_;
  std::shared_ptr<GtkBundle> bundle_;
  std::shared_ptr<platform::PrintPanel> panel_;
  std::shared_ptr<platform::View> view_;
  Gtk::ScrolledWindow scroller_;
  Gtk::Window window_;
};

class ViewFile : public testing::TestWithParam<std::tuple<PanelFile, const char*, From>> {
 protected:
  static const PanelFile& file() { return std::get<0>(GetParam()); }
  static const char* locale() { return std::get<1>(GetParam()); }

  Gtk::Widget& widget() { return panel_.widget(); }
  const host::JobOptions& job() { return panel_.job(); }
  Gtk::Window& panelWindow() { return panel_.window(); }
  Controls controls() { return shown<Gtk::DropDown, Gtk::Entry, Gtk::Notebook>(widget()); }

  /// Calls `check` for every combination of pages that can show.
  template <class Check>
  void forAllPages(const Check& check) {
    const Controls tabs = all<Gtk::Notebook>(widget());
    for (unsigned pages = 0; pages < 1U << tabs.size(); ++pages) {
      for (std::size_t i = 0; i < tabs.size(); ++i) {
        dynamic_cast<Gtk::Notebook&>(*tabs[i]).set_current_page(static_cast<int>(pages >> i & 1U));
      }
      test::handleEvents();
      SCOPED_TRACE("pages " + std::to_string(pages));
      check();
    }
  }

  /// Where Tab leads, from the first control on until it is there again.
  Controls tabOrder() {
    Gtk::Window& window = panel_.window();
    Controls order;
    window.unset_focus();
    while (gtk_widget_child_focus(GTK_WIDGET(window.gobj()), GTK_DIR_TAB_FORWARD) != FALSE) {
      auto* const reached = controlOf(window.get_focus());
      if (std::find(order.begin(), order.end(), reached) != order.end()) break;
      order.push_back(reached);
    }
    return order;
  }

 private:
  ShownPanel panel_{file(), locale(), std::get<2>(GetParam())};
};

/// Counts itself off in `left` when the widget is gone.
void countOff(gpointer left, GObject* /*gone*/) { --*static_cast<int*>(left); }

/// GTK 4.8 keeps for good what a file says to stand in a tab.
bool isTab(const Gtk::Widget& widget) {
  return GTK_IS_LABEL(widget.gobj()) && widget.get_parent()->get_css_name() == "tab";
}

TEST(ViewFiles, GoWithTheirPanels) {
  for (const PanelFile& file : kPanels) {
    int left = 0;
    {
      const ShownPanel panel(file, "C", From::ppd);
      for (auto* widget : all<Gtk::Widget>(panel.widget())) {
        if (isTab(*widget)) continue;
        g_object_weak_ref(G_OBJECT(widget->gobj()), countOff, &left);
        ++left;
      }
      EXPECT_GT(left, 0);
    }
    test::handleEvents();
    EXPECT_EQ(left, 0) << file.name;
  }
}

TEST_P(ViewFile, HasItsControls) {
  EXPECT_EQ(shown<Gtk::DropDown>(widget()).size(), file().popUps);
  EXPECT_EQ(shown<Gtk::Entry>(widget()).size(), file().fields);
  EXPECT_EQ(all<Gtk::Entry>(widget()).size(), 2 * file().fields);
  EXPECT_EQ(shown<Gtk::Notebook>(widget()).size(), file().tabs);
}

TEST_P(ViewFile, TabReachesEveryControlInReadingOrder) {
  forAllPages(
      [this] { EXPECT_EQ(namesOf(tabOrder()), namesOf(inReadingOrder(controls(), widget()))); });
}

TEST_P(ViewFile, AssistiveTechnologyReadsControlsInReadingOrder) {
  forAllPages(
      [this] { EXPECT_EQ(namesOf(controls()), namesOf(inReadingOrder(controls(), widget()))); });
}

/// What depends on the texts.
class NamedViewFile : public ViewFile {};

TEST_P(NamedViewFile, EveryControlHasANameOfItsOwn) {
  const auto names = namesOf(all<Gtk::DropDown, Gtk::Entry, Gtk::Notebook>(widget()));
  const std::set<std::string> different(names.begin(), names.end());
  EXPECT_EQ(different.size(), names.size());
  EXPECT_FALSE(different.contains(""));
}

TEST_P(NamedViewFile, EachMnemonicThatShowsIsThereOnce) {
  forAllPages([this] {
    // The dialog's buttons, and those of the message bar, show with every panel.
    std::vector<guint> keys;
    for (const char* text : {"_Cancel", "_Print", "Change An_yway", "Cl_ose"}) {
      keys.push_back(Gtk::Label(platform::_(text), true).get_mnemonic_keyval());
    }
    for (auto* label : shown<Gtk::Label>(widget())) {
      keys.push_back(dynamic_cast<Gtk::Label&>(*label).get_mnemonic_keyval());
    }
    std::erase(keys, guint{GDK_KEY_VoidSymbol});
    const std::set<guint> different(keys.begin(), keys.end());
    EXPECT_EQ(different.size(), keys.size()) << std::string(keys.begin(), keys.end());
  });
}

TEST_P(NamedViewFile, EveryPopUpAndEveryAreaHasAMnemonic) {
  forAllPages([this] {
    std::size_t reached = 0;
    for (auto* control : shown<Gtk::DropDown, Gtk::Entry>(widget())) {
      const auto captions = control->list_mnemonic_labels();
      reached += std::any_of(captions.begin(), captions.end(), [](Gtk::Widget* each) {
        return dynamic_cast<Gtk::Label&>(*each).get_mnemonic_keyval() != GDK_KEY_VoidSymbol;
      });
    }
    EXPECT_EQ(reached, file().popUps + file().fields / 4);
  });
}

std::string nameOfFile(const testing::TestParamInfo<ViewFile::ParamType>& info) {
  return std::get<0>(info.param).name + std::string("_") +
         std::string(std::get<1>(info.param)).substr(0, 2) +
         (std::get<2>(info.param) == From::ppd ? "_titles" : "");
}

INSTANTIATE_TEST_SUITE_P(OfEachPanel, ViewFile,
                         testing::Combine(testing::ValuesIn(kPanels), testing::Values(kEnglish),
                                          testing::Values(From::file)),
                         nameOfFile);
INSTANTIATE_TEST_SUITE_P(OfEachPanel, NamedViewFile,
                         testing::Combine(testing::ValuesIn(kPanels),
                                          testing::Values(kEnglish, "de_DE.UTF-8", "fr_FR.UTF-8",
                                                          "ja_JP.UTF-8"),
                                          testing::Values(From::file, From::ppd)),
                         nameOfFile);

/// A panel with the titles of the PPD.
class TitledViewFile : public ViewFile {};

TEST_P(TitledViewFile, CallsEachOptionAsMessagesDo) {
  std::size_t captions = 0;
  for (auto* each : all<Gtk::Label>(widget())) {
    auto& label = dynamic_cast<Gtk::Label&>(*each);
    if (label.get_mnemonic_widget() == nullptr) continue;
    ++captions;
    const std::string key = label.get_name().raw().substr(std::string("title-").size());
    const std::string title = job().optionTitle(key);
    EXPECT_NE(title, key);
    EXPECT_TRUE(label.get_text().raw().starts_with(title)) << label.get_text() << ", " << title;
    // Of the four fields of an area, the first has the mnemonic.
    const std::string name = nameOf(*label.get_mnemonic_widget());
    EXPECT_TRUE(name == title ||
                name == platform::filled(platform::_("{area}, X"), {{"area", title}}))
        << name << ", " << title;
  }
  EXPECT_EQ(captions, file().popUps + 2 * file().fields / 4);
}

TEST_P(TitledViewFile, TellsAPopUpThatHasTheFocusByItsCaption) {
  for (auto* popUp : all<Gtk::DropDown>(widget())) {
    popUp->grab_focus();
    EXPECT_EQ(nameOf(*panelWindow().get_focus()), nameOf(*popUp));
  }
}

INSTANTIATE_TEST_SUITE_P(OfEachPanel, TitledViewFile,
                         testing::Combine(testing::ValuesIn(kPanels),
                                          testing::Values(kEnglish, "de_DE.UTF-8", "fr_FR.UTF-8",
                                                          "ja_JP.UTF-8"),
                                          testing::Values(From::ppd)),
                         nameOfFile);

/// A panel in another language than English.
class TranslatedViewFile : public testing::TestWithParam<ViewFile::ParamType> {};

TEST_P(TranslatedViewFile, HasNoEnglishTextOrName) {
  const std::set<std::string> international{"X", "Y"};
  const auto english = ShownPanel(std::get<0>(GetParam()), kEnglish, From::file).texts();
  const auto translated =
      ShownPanel(std::get<0>(GetParam()), std::get<1>(GetParam()), From::file).texts();
  ASSERT_EQ(translated.size(), english.size());
  for (std::size_t i = 0; i < english.size(); ++i) {
    if (international.contains(english[i])) continue;
    EXPECT_NE(translated[i], english[i]);
  }
}

INSTANTIATE_TEST_SUITE_P(OfEachPanel, TranslatedViewFile,
                         testing::Combine(testing::ValuesIn(kPanels),
                                          testing::Values("de_DE.UTF-8", "fr_FR.UTF-8",
                                                          "ja_JP.UTF-8"),
                                          testing::Values(From::file)),
                         nameOfFile);

}  // namespace
}  // namespace cardpanels::gtk4
