#pragma once

namespace cardpanels::platform {

/// What a plug-in offers that lets developers try how it writes and reads areas. The answers stand
/// until the next call, and are never null.
class AreaStrings {
 public:
  AreaStrings() = default;
  AreaStrings(const AreaStrings&) = delete;
  AreaStrings& operator=(const AreaStrings&) = delete;
  virtual ~AreaStrings();

  /// The area text of four measurements; each may be null.
  virtual const char* formatArea(const char* x, const char* y, const char* width,
                                 const char* height) = 0;

  /// The four measurements of an area text, which may be null; four empty ones for no area.
  virtual void parseArea(const char* area, const char*& x, const char*& y, const char*& width,
                         const char*& height) = 0;
};

}  // namespace cardpanels::platform
