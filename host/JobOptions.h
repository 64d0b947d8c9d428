#pragma once

#include <cups/ppd.h>

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/PPDFile.h"
#include "platform/Text.h"

namespace cardpanels::host {

/// An option and its value, as a job carries them.
struct Option {
  std::string key;
  std::string value;
  bool operator==(const Option&) const = default;
};

/// What became of a change request.
struct ChangeResult {
  bool granted = false;
  /// Every option whose mark is another now, the requested one first when it is among them.
  std::vector<Option> changes;
  /// What the user is told, by option and choice titles, in full sentences: why the change was
  /// refused, or which other options were changed and why. Empty when there is nothing to tell.
  std::string message;
};

/// The PPD options of one print job: the host's marks, its rules, and the job's option list.
///
/// The value of an option with parameters (`Custom.…`) is kept here in full. In the PPD the record
/// of the choice `Custom` carries that value as its name, since that is where panels look; where it
/// does not fit (40 bytes) the record keeps its own name and `longValues` tells the value. CUPS
/// itself looks for a choice of the name `Custom`, so every member function here gives the records
/// their own names back while it works.
class JobOptions {
 public:
  /// Takes the PPD and marks its defaults.
  explicit JobOptions(PPDFile ppd);

  ppd_file_t* ppd() const { return ppd_.get(); }

  /// Asks for `choice` of `key`: a choice's keyword, `Custom.` and a value, or the bare value of an
  /// option with one parameter; the empty text, `Default` and `0in 0in 0in 0in` mark the default
  /// choice of such an option. Refused are an absent or unknown option or choice, a value outside
  /// its parameter's type or limits, and a conflict that CUPS cannot resolve; then no mark changes.
  ChangeResult request(const platform::Text& key, const platform::Text& choice);

  /// Marks without asking the constraints. Throws `Error` for what `request` would refuse for
  /// another reason than a conflict.
  void mark(const std::string& key, const std::string& choice);

  /// Marks the user's saved options, in order; each that this PPD does not know (any more) is left
  /// out and told in the answer, a line each.
  std::vector<std::string> markSaved(const std::vector<Option>& options);

  /// Takes the mark away, so that the PPD's default stands. Throws `Error` for an unknown option.
  void unmark(const std::string& key);

  /// The value of `key` that the job would get, exact (`Custom.…` in full); nothing when no choice
  /// is marked. Throws `Error` for an unknown option.
  platform::Text marked(const std::string& key) const;

  /// The values that do not fit into the PPD's records, by option.
  std::vector<Option> longValues() const;

  /// What the job carries: every option whose mark is not the PPD's default or that the job or the
  /// saved options set, in the PPD's order.
  std::vector<Option> options() const;

  bool hasOption(const std::string& key) const;
  /// The titles for people; the keywords when there are none.
  std::string optionTitle(const std::string& key) const;
  std::string choiceTitle(const std::string& key, const std::string& choice) const;

 private:
  PPDFile ppd_;
};

}  // namespace cardpanels::host
