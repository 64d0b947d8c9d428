#pragma once

#include <functional>
#include <optional>

namespace cardpanels::dialog {

/// What a toolkit tells of a part of a panel, in pixels.
struct PanelPart {
  int leastWidth = 0;
  int naturalWidth = 0;
  std::function<int(int width)> heightFor;
};

/// Where a part stands, in pixels from the top left corner of the room for both.
struct PartPlace {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const PartPlace&) const = default;
};

/// Lays two parts beside each other, or the second one above the first where that is too wide.
class BesideOrAbove {
 public:
  struct Places {
    PartPlace first;  // nothing without one
    PartPlace second;
  };

  /// Without the first one the second has all the room.
  BesideOrAbove(std::optional<PanelPart> first, PanelPart second);

  int leastWidth() const;
  int naturalWidth() const;

  /// What both need in a room so wide, which is never less than the least.
  int heightFor(int width) const;

  /// Where they stand there; from right to left where people read so.
  Places placesIn(int width, int height, bool isRightToLeft) const;

 private:
  int widthBeside(int width) const;

  std::optional<PanelPart> first_;
  PanelPart second_;
};

}  // namespace cardpanels::dialog
