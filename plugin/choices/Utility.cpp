#include "plugin/choices/Utility.h"

#include <algorithm>

namespace cardpanels {

using platform::MenuItem;
using platform::Text;

std::shared_ptr<ChoiceArray> ArrayFromPPDOption(ppd_option_t* option) {
  if (option == nullptr) return nullptr;
  const int count = std::max(option->num_choices, 0);
  auto choices = std::make_shared<ChoiceArray>(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    choices->append(PDEChoice::choiceWithChoice(&option->choices[i]));
  }
  return choices;
}

void InitPopUpFromArray(const std::shared_ptr<platform::PopUpButton>& popUp,
                        const std::shared_ptr<ChoiceArray>& choices) {
  if (!popUp) return;
  popUp->removeAllItems();
  const auto menu = popUp->menu();
  if (!choices || !menu) return;
  for (const auto& choice : *choices) {
    const auto item =
        MenuItem::initWithTitle_action_keyEquivalent(choice->userTitle(), std::nullopt, "");
    item->setRepresentedObject(choice);
    menu->addItem(item);
  }
}

std::shared_ptr<PDEChoice> FindChoiceForString(const Text& keyword,
                                               const std::shared_ptr<ChoiceArray>& choices) {
  if (!choices) return nullptr;
  const auto found = std::find_if(choices->begin(), choices->end(), [&](const auto& choice) {
    return keyword ? choice->ppdTitle() == keyword : choice->isDefaultChoice();
  });
  return found == choices->end() ? nullptr : *found;
}

Text CreateOptionTitle(const ppd_option_t* option) {
  return platform::stringWithCString(option->text, platform::StringEncoding::utf8);
}

}  // namespace cardpanels
