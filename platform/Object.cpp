#include "platform/Object.h"

#include <utility>

#include "platform/Format.h"

namespace cardpanels::platform {

namespace {
EndObserver endObserver = nullptr;
}  // namespace

Object::~Object() {
  if (endObserver != nullptr) endObserver(this);
}

EndObserver setEndObserver(EndObserver observer) { return std::exchange(endObserver, observer); }

void Object::appendDescription(std::string& out) const {
  out.append("<").append(className()).append(": ");
  appendAddress(out, this);
  out += '>';
}

std::string Object::description() const {
  std::string text;
  appendDescription(text);
  return text;
}

}  // namespace cardpanels::platform
