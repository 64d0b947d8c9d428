#include "platform/Object.h"

#include "platform/Format.h"

namespace cardpanels::platform {

Object::~Object() = default;

std::string Object::description() const {
  return ("<" + className()).append(": ").append(addressText(this)).append(">");
}

}  // namespace cardpanels::platform
