#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

#include "dialog/PanelHelp.h"
#include "host/JobOptions.h"
#include "host/PPDFile.h"
#include "host/PanelHost.h"
#include "platform/Messages.h"
#include "ports/headless/HeadlessBundle.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/RecordedLog.h"
#include "tests/support/ScopedLocale.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels::dialog {
namespace {

std::string section(const std::string& title, const Paragraphs& paragraphs) {
  std::string text = "\n## " + title + "\n";
  for (const std::string& each : paragraphs) text += "\n" + each + "\n";
  return text;
}

/// All that F1 tells on a printer with everything, as a page.
std::string helpPage() {
  const test::RecordedLog log;
  host::JobOptions job(host::openPPD(test::duplexPPD()));
  host::PanelHost host(test::builtBundle(),
                       std::make_shared<headless::HeadlessBundle>(test::builtBundle()), job);
  std::string page = std::string("# ") + platform::_("Card options") + "\n";
  for (const auto& panel : host.panels()) {
    page += section(panel->panelName().value_or(""), panelHelp(*panel, job.ppd()));
  }
  return page + section(platform::_("Summary"), summaryHelp());
}

struct Language {
  const char* locale;
  const char* page;
};

class HelpPage : public testing::TestWithParam<Language> {};

INSTANTIATE_TEST_SUITE_P(, HelpPage,
                         testing::Values(Language{"en_US.UTF-8", "panels.md"},
                                         Language{"de_DE.UTF-8", "panels.de.md"},
                                         Language{"fr_FR.UTF-8", "panels.fr.md"},
                                         Language{"ja_JP.UTF-8", "panels.ja.md"}),
                         [](const auto& language) {
                           return std::string(language.param.locale).substr(0, 2);
                         });

/// `CARDPANELS_WRITE_PAGES=1` writes them anew.
TEST_P(HelpPage, InTheDocumentsIsWhatThePanelsTell) {
  const test::ScopedLocale locale(LC_ALL, GetParam().locale);
  platform::useCatalogues(test::builtBundle());
  const std::string path = std::string(CARDPANELS_SOURCE_DIR "/docs/") + GetParam().page;
  const std::string page = helpPage();
  if (std::getenv("CARDPANELS_WRITE_PAGES") != nullptr) std::ofstream(path) << page;
  EXPECT_EQ(test::fileContent(path), page) << path;
}

}  // namespace
}  // namespace cardpanels::dialog
