#include "platform/NibConnections.h"

#include <algorithm>

namespace cardpanels::platform {
namespace {

/// Why names of file and owner do not match.
Text mismatch(const NibOwner& owner, const NibContents& contents) {
  for (const auto& [id, view] : contents.viewsById) {
    if (owner.outletNamed(id) == nullptr) return "no outlet has the id " + inQuotes(id);
  }
  for (const std::string& handler : contents.handlers) {
    if (owner.actionNamed(handler) == nullptr) return "no action has the name " + inQuotes(handler);
  }
  for (const Outlet& outlet : owner.outlets()) {
    if (!contents.viewsById.contains(std::string(outlet.name))) {
      return "nothing has the id of the outlet " + inQuotes(outlet.name);
    }
  }
  for (const Action& action : owner.actions()) {
    if (std::find(contents.handlers.begin(), contents.handlers.end(), action.name) ==
        contents.handlers.end()) {
      return "no signal has the action " + inQuotes(action.name) + " as its handler";
    }
  }
  return std::nullopt;
}

}  // namespace

Text connectNib(NibOwner& owner, const NibContents& contents) {
  Text problem = mismatch(owner, contents);
  if (!problem) {
    for (const auto& [id, view] : contents.viewsById) {
      if (owner.outletNamed(id)->connect(owner, view)) continue;
      problem = "the outlet " + inQuotes(id) + " does not take a " + std::string(view->className());
      break;
    }
    if (problem) {
      for (const Outlet& outlet : owner.outlets()) outlet.connect(owner, nullptr);
    }
  }
  if (!problem) return std::nullopt;
  return contents.file + ": " + *problem;
}

}  // namespace cardpanels::platform
