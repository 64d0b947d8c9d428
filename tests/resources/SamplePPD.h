#pragma once

#include <cups/ppd.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace cardpanels::test {

/// A text of a PPD: the main keyword and option keyword that a translation of it has.
struct PPDText {
  std::string keyword;
  std::string spec;
  std::string text;
};

/// One of the PPDs in resources/ppd, its defaults marked.
class SamplePPD {
 public:
  /// Throws `std::runtime_error` when libcups cannot open it.
  explicit SamplePPD(const std::string& name);

  ppd_file_t* file() const { return file_.get(); }

  /// The keywords of all options but the page size's, in the PPD's order.
  std::vector<std::string> options() const;

  /// The keywords of the option's choices, without the one that `Custom…` adds. Empty for an option
  /// that is not there.
  std::vector<std::string> choices(const std::string& option) const;

  /// Every text that people can see as libcups has it: of groups, options, choices and parameters.
  std::vector<PPDText> texts() const;

  /// The translation in the file; libcups itself keeps only those of the user's language. Empty
  /// when there is none.
  std::string translation(const std::string& language, const PPDText& text) const;

  void mark(const std::string& option, const std::string& choice);

  struct Resolution {
    bool conflict;
    bool resolved;
    std::map<std::string, std::string> changes;  // of other options
  };

  /// Marks a user's choice and asks CUPS to resolve what then conflicts; its changes are not
  /// marked.
  Resolution choose(const std::string& option, const std::string& choice);

 private:
  struct Closer {
    void operator()(ppd_file_t* file) const { ppdClose(file); }
  };
  std::unique_ptr<ppd_file_t, Closer> file_;
  std::map<std::string, std::string> textOfStatement_;  // of "keyword spec"
};

}  // namespace cardpanels::test
