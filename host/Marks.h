#pragma once

#include <cups/ppd.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "host/JobOption.h"
#include "host/PPDFile.h"
#include "host/RecordMarks.h"
#include "platform/Text.h"

namespace cardpanels::host {

/// What stands for the value of an option that nothing is marked of.
inline constexpr const char* kNothingMarked = "Default";

/// What is, or shall be, marked of an option: a choice, none, or the choice `Custom` and a value.
struct Mark {
  ppd_choice_t* choice = nullptr;
  std::string custom = {};  // as a job carries it, `Custom.…` or `{…}`
};

/// The value that `mark` marks, as a job carries it.
std::string valueOf(const Mark& mark);

/// An option whose value is another now; absent values are those of no mark.
struct MarkChange {
  const ppd_option_t* option;
  platform::Text from;
  platform::Text to;
  /// Whether a custom value made room for a choice.
  bool losesValue = false;
};

/// The marks of a PPD, with the values of custom choices in full.
///
/// In the PPD the record of the choice `Custom` carries the marked value as its name, since that is
/// where panels look; where it does not fit (40 bytes) the record keeps its own name, and
/// `longValues` tells the value. libcups itself looks for a choice of the name `Custom`: while an
/// `OwnNames` lives, every record has its own name. The functions here see to that themselves; who
/// else lets libcups or `listedChoice` look for choices makes one. Constraints are not asked here.
class Marks {
 public:
  /// Gives the records of marked values their own name `Custom`, and the values back at the end,
  /// when the marks may be others. Inside another one it does nothing.
  class OwnNames {
   public:
    explicit OwnNames(const Marks& marks);
    ~OwnNames();
    OwnNames(const OwnNames&) = delete;
    OwnNames& operator=(const OwnNames&) = delete;

   private:
    const Marks& marks_;
    bool isOutermost_;
  };

  /// All marks at one time, to compare with and to go back to.
  class Snapshot {
    friend class Marks;
    RecordMarks records_;
    std::map<const ppd_option_t*, Mark> custom_;
    std::map<const ppd_option_t*, platform::Text> values_;
  };

  /// Takes the PPD and marks its defaults.
  explicit Marks(PPDFile ppd);

  /// The PPD with the marks; owned by this.
  ppd_file_t* ppd() const { return ppd_.get(); }

  /// The option's value as a job carries it, in full; nothing when no choice is marked.
  platform::Text value(const ppd_option_t& option) const;

  /// Whether that is a custom value, and `text` is it, with or without `Custom.`; without, a listed
  /// choice of that name is meant.
  bool hasCustomValue(const ppd_option_t& option, std::string_view text) const;

  /// What is marked of `option`.
  Mark mark(const ppd_option_t& option) const;

  /// Whether just that, choice and value, is marked; never for no choice.
  bool isMarked(const ppd_option_t& option, const Mark& mark) const;

  /// What the PPD names as the option's default, which may be a value or nothing that it lists.
  Mark defaultMark(const ppd_option_t& option) const;

  /// Marks `mark` in place of what was marked of `option`. A custom value must be a valid one.
  void set(const ppd_option_t& option, const Mark& mark);

  /// The marks of now. Points into the PPD, so it is of use only while this lives.
  Snapshot snapshot() const;

  /// Marks what was marked then, the parameters' values included.
  void restore(const Snapshot& snapshot);

  /// Every option whose value is another than it was, in the PPD's order.
  std::vector<MarkChange> changesSince(const Snapshot& snapshot) const;

  /// The values that do not fit into the PPD's records, by option.
  std::vector<Option> longValues() const;

 private:
  PPDFile ppd_;
  std::map<const ppd_option_t*, Mark> custom_;  // what is marked with a value of its own
  mutable bool namesAreOwn_ = false;
};

}  // namespace cardpanels::host
