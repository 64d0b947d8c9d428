#pragma once

#include <string>

namespace cardpanels::platform {

/// The root of everything that the plug-in and its host hand to each other.
class Object {
 public:
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object();

  /// The class's name as the trace log shows it.
  virtual std::string className() const = 0;

  /// One line that tells this object from others: `<Class: 0x…>` unless a class says more.
  virtual std::string description() const;
};

/// Is told the address of each object that ends.
using EndObserver = void (*)(const void* address);

/// Makes `observer` the one who is told, null for nobody, and answers who was. For hosts that give
/// objects names of their own: an address may be used again.
EndObserver setEndObserver(EndObserver observer);

}  // namespace cardpanels::platform
