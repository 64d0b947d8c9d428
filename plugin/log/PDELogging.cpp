#include "plugin/log/PDELogging.h"

#include <cstdint>
#include <string>

#include "platform/ASCII.h"
#include "platform/Log.h"

namespace cardpanels::trace {
namespace {

using platform::Argument;

constexpr int kSpacesPerLevel = 4;

std::int32_t _indent = 0;

/// The line's own format. Description and caller's format go in as they are: a percent sign in
/// either is a conversion when the line is written.
std::string Format(const platform::Object* self, std::string_view label, std::string_view format) {
  if (self == nullptr) {
    const Argument parts[] = {label, format};
    return platform::formatted("%@ %@", parts);
  }
  if (platform::equalIgnoringCase(label, "END")) --_indent;
  const std::int64_t width = std::int64_t{_indent} * kSpacesPerLevel;
  const Argument parts[] = {width, width, " ", label, self, format};
  std::string composed = platform::formatted("%*.*s%@ self(%@) %@", parts);
  if (platform::equalIgnoringCase(label, "BEGIN")) ++_indent;
  return composed;
}

}  // namespace

void write(const platform::Object* self, std::string_view label, std::string_view format,
           std::span<const Argument> arguments) {
  platform::NSLogv(Format(self, label, format), arguments);
}

}  // namespace cardpanels::trace
