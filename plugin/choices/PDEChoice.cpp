#include "plugin/choices/PDEChoice.h"

#include <array>
#include <cstring>

#include "platform/Format.h"
#include "plugin/log/PDELogging.h"

namespace cardpanels {
namespace {

using platform::StringEncoding;
using platform::Text;

StringEncoding ppdEncoding = StringEncoding::none;

/// The class's own beginning, before its first use.
void initialize() {
  ppdEncoding = StringEncoding::utf8;
  _PDELog(nullptr, "Encoding set as %i", static_cast<int>(ppdEncoding));
}

void initializeOnce() {
  static const bool initialized = (initialize(), true);
  (void)initialized;
}

/// The 1-based place of `choice` among its option's choices, 0 when it is not one of them.
int positionOf(const ppd_choice_t* choice) {
  const ppd_option_t* option = choice->option;
  for (int i = 0; i < option->num_choices; ++i) {
    if (&option->choices[i] == choice) return i + 1;
  }
  return 0;
}

}  // namespace

std::shared_ptr<PDEChoice> PDEChoice::choiceWithChoice(ppd_choice_t* choice) {
  return initWithChoice(choice);
}

std::shared_ptr<PDEChoice> PDEChoice::initWithChoice(ppd_choice_t* choice) {
  initializeOnce();
  return std::make_shared<PDEChoice>(choice, Private());
}

const Text& PDEChoice::userTitle() const {
  if (!userTitle_) {
    userTitle_ = platform::stringWithCString(choice_->text, ppdEncoding);
    // The line shows this object, whose description asks for the title again: the host refuses
    // PPDs with such texts before they come here.
    if (!userTitle_) _PDELog(this, "could not create userTitle!");
  }
  return userTitle_;
}

const Text& PDEChoice::ppdTitle() const {
  if (!ppdTitle_) {
    ppdTitle_ = platform::stringWithCString(choice_->choice, StringEncoding::ascii);
    if (!ppdTitle_) _PDELog(this, "could not create ppdTitle!");
  }
  return ppdTitle_;
}

bool PDEChoice::isDefaultChoice() const {
  return std::strncmp(choice_->choice, choice_->option->defchoice, PPD_MAX_NAME) == 0;
}

void PDEChoice::appendDescription(std::string& out) const {
  const std::string_view name = className();
  const Text& user = userTitle();
  const Text& keyword = ppdTitle();
  const std::array<platform::Argument, 7> parts{name,
                                                static_cast<const void*>(this),
                                                user,
                                                keyword,
                                                choice_->marked != 0 ? "YES" : "NO",
                                                positionOf(choice_),
                                                choice_->option->num_choices};
  platform::appendFormatted(
      out, "<%@ %p userTitle:\"%@\" ppdTitle:\"%@\" marked:%s choice:%i of %i>", parts);
}

}  // namespace cardpanels
