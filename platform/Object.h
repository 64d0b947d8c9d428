#pragma once

#include <string>
#include <string_view>

namespace cardpanels::platform {

/// The root of everything that the plug-in and its host hand to each other.
class Object {
 public:
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object();

  /// The class's name as the trace log shows it, a literal.
  virtual std::string_view className() const = 0;

  /// Appends one line that tells this object from others: `<Class: 0x…>` unless a class says more.
  /// May log.
  virtual void appendDescription(std::string& out) const;

  /// What `appendDescription` appends. A class that says more overrides that one, so that the log
  /// and this cannot differ.
  virtual std::string description() const final;
};

/// Is told the address of each object that ends.
using EndObserver = void (*)(const void* address);

/// Makes `observer` the one who is told, null for nobody, and answers who was. For hosts that give
/// objects names of their own: an address may be used again.
EndObserver setEndObserver(EndObserver observer);

}  // namespace cardpanels::platform
