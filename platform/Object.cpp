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

std::string Object::description() const {
  std::string text;
  text.reserve(64);
  return text.append("<").append(className()).append(": ").append(addressText(this)).append(">");
}

}  // namespace cardpanels::platform
