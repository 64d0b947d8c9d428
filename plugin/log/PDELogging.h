#pragma once

#include <array>
#include <span>
#include <string_view>

#include "platform/Format.h"

namespace cardpanels {

/// The trace log: what the plug-in does, as a tree of BEGIN, LOG and END lines indented by call
/// depth. It is always on. Used from the dialog's thread only.
namespace trace {

/// Composes the line's format for `self` (which may be null), `label` and `format`, moves the depth
/// as the label asks, and writes the line with `arguments`.
void write(const platform::Object* self, std::string_view label, std::string_view format,
           std::span<const platform::Argument> arguments);

template <class... Arguments>
void writeAll(const platform::Object* self, std::string_view label, std::string_view format,
              const Arguments&... arguments) {
  const std::array<platform::Argument, sizeof...(Arguments)> typed{
      platform::Argument(arguments)...};
  write(self, label, format, typed);
}

}  // namespace trace

/// An operation starts: `format` is its selector and arguments. Every path out of the operation
/// ends in one `_PDEEpilog`.
template <class... Arguments>
void _PDEProlog(const platform::Object* self, std::string_view format,
                const Arguments&... arguments) {
  trace::writeAll(self, "BEGIN", format, arguments...);
}

/// An operation ends: `format` is its selector, "=", the result's type and the result.
template <class... Arguments>
void _PDEEpilog(const platform::Object* self, std::string_view format,
                const Arguments&... arguments) {
  trace::writeAll(self, "END", format, arguments...);
}

/// Something worth a line inside an operation.
template <class... Arguments>
void _PDELog(const platform::Object* self, std::string_view format, const Arguments&... arguments) {
  trace::writeAll(self, "LOG", format, arguments...);
}

}  // namespace cardpanels
