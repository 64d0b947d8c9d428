#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/NibOwner.h"
#include "platform/Text.h"
#include "platform/View.h"

namespace cardpanels::platform {

/// What a port found in a user-interface file, before it is connected to an owner.
struct NibContents {
  std::string file;
  std::map<std::string, std::shared_ptr<View>> viewsById;
  std::vector<std::string> handlers;
};

/// Fills `owner`'s outlets from the file's views by name, once everything is known to fit: each id
/// is an outlet that takes its kind of view, each outlet has an id, each handler is an action and
/// each action has a handler. Answers what does not fit, with file and name; nothing when all does.
Text connectNib(NibOwner& owner, const NibContents& contents);

}  // namespace cardpanels::platform
