#pragma once

#include <cups/ppd.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dialog/PPDCheck.h"
#include "host/PPDFile.h"

/// The rules behind `checkPPD`, in files of their own.
namespace cardpanels::dialog {

/// A PPD with its places, which collects what is found in it.
class CheckedPPD {
 public:
  explicit CheckedPPD(const std::string& path) : file_(host::readPPD(path)) {}

  ppd_file_t* ppd() const { return file_.ppd.get(); }
  const std::vector<host::PPDStatement>& statements() const { return file_.statements; }

  /// The option as the panels find it; null for none.
  const ppd_option_t* option(const std::string& key) const;

  /// Those of `keys` that the PPD has, and those that it lacks.
  std::pair<std::vector<std::string>, std::vector<std::string>> divided(
      const std::vector<std::string>& keys) const;

  /// The options that panels show, and those of their areas, as far as the PPD has them.
  std::vector<std::string> cardKeys() const;

  /// The first statement `*keyword option`; null for none.
  const host::PPDStatement* statement(std::string_view keyword, std::string_view option) const;

  /// The line in which `key` is opened.
  int lineOf(const std::string& key) const;

  void tell(int line, Gravity gravity, std::string text) {
    findings_.push_back({line, gravity, std::move(text)});
  }
  std::vector<Finding>& findings() { return findings_; }

 private:
  host::ReadPPD file_;
  std::vector<Finding> findings_;
};

/// Every option of an area, whichever side.
std::vector<std::string> allAreaKeys();

/// `words` with commas between them.
std::string listed(const std::vector<std::string>& words);

/// What stands between blanks in `text`.
std::vector<std::string_view> words(std::string_view text);

/// A value of a PPD without its quotes.
std::string_view withoutQuotes(std::string_view value);

/// Which panels appear.
void checkPanels(CheckedPPD& ppd);
/// Keywords that are nearly those of panels.
void checkKeywords(CheckedPPD& ppd);
/// The choices that panels go by position.
void checkPositions(CheckedPPD& ppd);
/// What areas need, and constraints that take one for set.
void checkAreas(CheckedPPD& ppd);
void checkConstraints(CheckedPPD& ppd);
void checkDefaults(CheckedPPD& ppd);
void checkTranslations(CheckedPPD& ppd);

}  // namespace cardpanels::dialog
