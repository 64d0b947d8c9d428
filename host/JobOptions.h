#pragma once

#include <cups/ppd.h>

#include <set>
#include <string>
#include <vector>

#include "host/Choices.h"
#include "host/JobOption.h"
#include "host/Marks.h"
#include "host/PPDFile.h"
#include "host/RuleChanges.h"
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

/// The PPD options of one print job: the host's rules over the marks of the PPD, and the job's
/// option list. Between calls, panels read the marks off the PPD as `Marks` tells.
class JobOptions {
 public:
  /// All that was marked at one time, to go back to.
  struct State {
    Marks::Snapshot marks;
    std::set<const ppd_option_t*> set;
    RuleChanges ruleChanges;
  };

  /// Takes the PPD and marks its defaults.
  explicit JobOptions(PPDFile ppd);

  /// The PPD with the marks; owned by this.
  ppd_file_t* ppd() const { return marks_.ppd(); }

  /// Asks for `choice` of `key`: a choice's keyword, `Custom.` and a value, or the bare value of an
  /// option with one parameter; the empty text, `Default` and `0in 0in 0in 0in` mark the default
  /// choice of such an option. `{Name=value …}` gives the values of several parameters. A listed
  /// choice wins. Refused are an absent or unknown option or choice, a value outside its
  /// parameter's type or limits, a conflict that libcups cannot resolve, and, unless `losing`
  /// allows it, one whose resolution takes a value like an area from another option; then no mark
  /// changes. A conflict that was there before and that `key` has no part in is left alone.
  ChangeResult request(const platform::Text& key, const platform::Text& choice,
                       Losing losing = Losing::refused);

  /// The same for all of `options`, as the user gives them together: none of them is changed for
  /// another one, so two that exclude each other are refused, whatever their order. Of two for the
  /// same option the last counts. `media` is taken for the PPD's own options.
  ChangeResult requestAll(const std::vector<Option>& options);

  /// Throws `Error` for what `request` would refuse for another reason than a conflict.
  void check(const Option& option) const;

  /// Marks without asking the constraints. Throws `Error` for what `request` would refuse for
  /// another reason than a conflict.
  void mark(const std::string& key, const std::string& choice);

  /// Marks the user's saved options, in order, `media` as the PPD's own options where they are not
  /// saved themselves; each that this PPD does not know (any more) is left out and told in the
  /// answer, a sentence each. The job then carries the default in its place, since the print server
  /// may know the value too and adds what a job lacks. Constraints are not asked.
  std::vector<std::string> markSaved(const std::vector<Option>& options);

  /// The same for what the user has chosen on another PPD.
  std::vector<std::string> markChosen(const std::vector<Option>& options);

  /// Takes the mark away, so that the PPD's default stands. Throws `Error` for an unknown option.
  void unmark(const std::string& key);

  /// The value of `key` that the job would get, exact (`Custom.…` in full); nothing when no choice
  /// is marked. Throws `Error` for an unknown option.
  platform::Text marked(const std::string& key) const;

  /// The values that do not fit into the PPD's records, by option.
  std::vector<Option> longValues() const { return marks_.longValues(); }

  /// What the job carries: every option whose mark is not the PPD's default or that the job or the
  /// saved options set, in the PPD's order. Asking for no area where there is none sets nothing.
  std::vector<Option> options() const;

  /// The conflicts among the marks as they are, a sentence each, by titles.
  std::vector<std::string> conflicts() const;

  /// What granted requests have changed besides, and the user has not closed yet.
  const std::vector<RuleChange>& ruleChanges() const { return ruleChanges_.all(); }
  void closeRuleChange(const std::string& key) { ruleChanges_.close(key); }

  /// The options whose mark is not the PPD's default, in the PPD's order.
  std::vector<std::string> differingKeys() const;

  /// Marks the PPD's defaults of those options, without asking the constraints; the job then
  /// carries them, whatever is saved. Answers what has changed.
  std::vector<Option> reset(const std::set<std::string>& keys);

  /// What `replace` has done.
  struct Replaced {
    std::vector<Option> changes = {};       // as of a change request
    std::vector<std::string> leftOut = {};  // as `markSaved` answers it
  };

  /// Puts the options `keys` back as `reset` does, and marks what is saved over them as `markSaved`
  /// does. What rules have changed of all these is no longer told.
  Replaced replace(const std::set<std::string>& keys, const std::vector<Option>& options);

  /// How all stands now. Of use only while this lives.
  State state() const { return {marks_.snapshot(), set_, ruleChanges_}; }

  /// Makes all stand as it did then, as if nothing had been asked for since.
  void restore(const State& state);

  /// Whether the PPD has the option, in whatever case.
  bool hasOption(const std::string& key) const;

  /// The titles for people; the keywords when there are none, and a custom value as it was typed.
  std::string optionTitle(const std::string& key) const;
  std::string choiceTitle(const std::string& key, const std::string& choice) const;

 private:
  ppd_option_t& found(const std::string& key) const;
  Choice choice(const Option& option) const;
  std::vector<Choice> choices(const std::vector<Option>& options) const;
  std::vector<std::string> markEach(const std::vector<Option>& options, const char* leftOut);
  void markOne(const Option& option, const std::vector<Option>& all);
  ChangeResult change(const std::vector<Choice>& choices, Losing losing);
  bool isDefault(const ppd_option_t& option) const;
  std::vector<Option> changesSince(const Marks::Snapshot& before) const;

  Marks marks_;
  std::set<const ppd_option_t*> set_;  // what the job or the saved options set
  RuleChanges ruleChanges_;
};

}  // namespace cardpanels::host
