#include "plugin/log/PDELogging.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/ASCII.h"
#include "platform/Log.h"
#include "platform/ReusedText.h"

namespace cardpanels::trace {
namespace {

constexpr int kSpacesPerLevel = 4;

std::int32_t _indent = 0;

/// As many spaces for a depth below 0 as for one above it.
std::size_t indentation() {
  const std::int64_t width = std::int64_t{_indent} * kSpacesPerLevel;
  return static_cast<std::size_t>(
      std::min<std::int64_t>(std::abs(width), platform::kMaximumFieldWidth));
}

/// Appends the line's own format. Description and caller's format go in as they are: a percent sign
/// in either is a conversion when the line is written.
void appendFormat(std::string& out, const platform::Object* self, std::string_view label,
                  std::string_view format) {
  if (self == nullptr) {
    out.append(label).append(" ").append(format);
    return;
  }
  if (platform::equalIgnoringCase(label, "END")) --_indent;
  out.append(indentation(), ' ').append(label).append(" self(");
  self->appendDescription(out);
  out.append(") ").append(format);
  if (platform::equalIgnoringCase(label, "BEGIN")) ++_indent;
}

}  // namespace

void write(const platform::Object* self, std::string_view label, std::string_view format,
           std::span<const platform::Argument> arguments) {
  const platform::ReusedText composed;
  appendFormat(*composed, self, label, format);
  platform::NSLogv(*composed, arguments);
}

}  // namespace cardpanels::trace
