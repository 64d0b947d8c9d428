#pragma once

#include <cups/ppd.h>

#include <memory>
#include <string>

#include "platform/Array.h"
#include "platform/Object.h"
#include "platform/Text.h"

namespace cardpanels {

/// One choice of a PPD option, with its titles as texts. Panels compare these by identity. The
/// wrapped record belongs to the host's PPD, which must stay open; its texts must be UTF-8 and its
/// keyword ASCII.
class PDEChoice final : public platform::Object {
  struct Private {};

 public:
  /// For `initWithChoice`.
  PDEChoice(ppd_choice_t* choice, Private /*key*/) : choice_(choice) {}

  /// A new wrapper of `choice`, which must not be null.
  static std::shared_ptr<PDEChoice> choiceWithChoice(ppd_choice_t* choice);
  static std::shared_ptr<PDEChoice> initWithChoice(ppd_choice_t* choice);

  /// The choice's text for people; nothing when it is not UTF-8. Made once.
  const platform::Text& userTitle() const;

  /// The choice's keyword; nothing when it is not ASCII. Made once.
  const platform::Text& ppdTitle() const;

  /// The wrapped record.
  ppd_choice_t* choice() const { return choice_; }

  /// Whether the PPD file names this choice as its option's default, whatever is marked now.
  bool isDefaultChoice() const;

  std::string_view className() const override { return "PDEChoice"; }
  void appendDescription(std::string& out) const override;

 private:
  mutable platform::Text userTitle_;
  mutable platform::Text ppdTitle_;
  ppd_choice_t* choice_;
};

using ChoiceArray = platform::Array<std::shared_ptr<PDEChoice>>;

}  // namespace cardpanels
