#pragma once

#include <cups/ppd.h>

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/JobOption.h"
#include "host/PPDFile.h"
#include "platform/Text.h"

namespace cardpanels::host {

/// What became of a change request.
struct ChangeResult {
  bool granted = false;
  /// Every option whose mark is another now, the requested one first when it is among them. An
  /// option that nothing is marked of any more has the value `Default`.
  std::vector<Option> changes = {};
  /// What the user is told, by option and choice titles, in full sentences: why the change was
  /// refused, or which other options were changed and why. Empty when there is nothing to tell.
  std::string message = {};
  /// Whether it was refused only because values that the user gave other options would be lost; the
  /// message tells which. `Losing::allowed` grants it.
  bool losesValues = false;
};

/// Whether a change request may undo values that the user gave other options.
enum class Losing { refused, allowed };

/// The PPD options of one print job: the host's marks, its rules, and the job's option list.
///
/// The value of an option with parameters (`Custom.…`, `{…}`) is kept here in full. In the PPD the
/// record of the choice `Custom` carries that value as its name, since that is where panels look;
/// where it does not fit (40 bytes) the record keeps its own name and `longValues` tells the value.
/// libcups itself looks for a choice of the name `Custom`, so every member function here gives the
/// records their own names back while it works.
class JobOptions {
 public:
  /// Takes the PPD and marks its defaults.
  explicit JobOptions(PPDFile ppd);

  /// The PPD with the marks; owned by this.
  ppd_file_t* ppd() const { return ppd_.get(); }

  /// Asks for `choice` of `key`: a choice's keyword, `Custom.` and a value, or the bare value of an
  /// option with one parameter; the empty text, `Default` and `0in 0in 0in 0in` mark the default
  /// choice of such an option. `{Name=value …}` gives the values of several parameters. A listed
  /// choice wins. Refused are an absent or unknown option or choice, a value outside its
  /// parameter's type or limits, a conflict that libcups cannot resolve, and, unless `losing`
  /// allows it, one whose resolution takes a value like an area from another option; then no mark
  /// changes. A conflict that was there before and that `key` has no part in is left alone.
  ChangeResult request(const platform::Text& key, const platform::Text& choice,
                       Losing losing = Losing::refused);

  /// Marks without asking the constraints. Throws `Error` for what `request` would refuse for
  /// another reason than a conflict.
  void mark(const std::string& key, const std::string& choice);

  /// Marks the user's saved options, in order; each that this PPD does not know (any more) is left
  /// out and told in the answer, a sentence each. Constraints are not asked.
  std::vector<std::string> markSaved(const std::vector<Option>& options);

  /// Takes the mark away, so that the PPD's default stands. Throws `Error` for an unknown option.
  void unmark(const std::string& key);

  /// The value of `key` that the job would get, exact (`Custom.…` in full); nothing when no choice
  /// is marked. Throws `Error` for an unknown option.
  platform::Text marked(const std::string& key) const;

  /// The values that do not fit into the PPD's records, by option.
  std::vector<Option> longValues() const;

  /// What the job carries: every option whose mark is not the PPD's default or that the job or the
  /// saved options set, in the PPD's order. Asking for no area where there is none sets nothing.
  std::vector<Option> options() const;

  /// The conflicts among the marks as they are, a sentence each, by titles; empty without any.
  std::string conflicts() const;

  bool hasOption(const std::string& key) const;

  /// The titles for people; the keywords when there are none, and a custom value as it was typed.
  std::string optionTitle(const std::string& key) const;
  std::string choiceTitle(const std::string& key, const std::string& choice) const;

 private:
  /// What is, or shall be, marked of an option: a choice, none, or the choice `Custom` and a value.
  struct Mark {
    ppd_choice_t* choice = nullptr;
    std::string custom;
  };
  /// All marks, to go back to.
  struct Marks;
  class OwnNames;

  ppd_option_t& found(const std::string& key) const;
  Mark markFor(ppd_option_t& option, const std::string& text) const;
  Mark defaultMark(ppd_option_t& option) const;
  bool isNoValue(ppd_option_t& option, const std::string& text) const;
  platform::Text value(const ppd_option_t& option) const;

  bool hasValue(const ppd_option_t& option, std::string_view value) const;
  bool isMarked(const ppd_option_t& option, const Mark& mark) const;
  ChangeResult change(ppd_option_t& option, const Mark& wanted, Losing losing);
  void set(ppd_option_t& option, const Mark& mark);
  Marks marks() const;
  void restore(const Marks& marks);
  std::vector<Option> changesSince(const Marks& marks, const ppd_option_t& first) const;

  bool resolve(ppd_option_t& option, const std::vector<ppd_option_t*>& partners);
  bool applyResolution(ppd_option_t& option);
  bool resolveCollate(ppd_option_t& option);
  std::string refusal(const ppd_option_t& option, const std::string& choice,
                      const std::vector<ppd_option_t*>& partners) const;
  std::string lossSince(const Marks& marks, const ppd_option_t& option) const;
  std::string explanation(const ppd_option_t& option, const std::vector<Option>& changes,
                          const Marks& before) const;

  PPDFile ppd_;
  std::map<const ppd_option_t*, Mark> custom_;  // what is marked with a value of its own
  std::set<const ppd_option_t*> set_;           // what the job or the saved options set
};

}  // namespace cardpanels::host
