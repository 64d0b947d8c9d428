#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "dialog/AreaRectangle.h"
#include "dialog/CardScene.h"
#include "dialog/PictureLayout.h"

namespace cardpanels::dialog {

/// Which edges of an area are held; none of them to move all of it.
struct Grip {
  bool left = false;
  bool right = false;
  bool start = false;  // the edge nearest to 0/0
  bool end = false;

  bool moves() const { return !left && !right && !start && !end; }
  bool operator==(const Grip&) const = default;
};

/// What a place of the picture is on.
struct Hit {
  std::size_t shape = 0;
  Grip grip;
  bool operator==(const Hit&) const = default;
};

/// The area under `place`: the chosen one, else the smallest one. Its edges reach a little beyond
/// it. Nothing in the open.
std::optional<Hit> hitAt(const std::vector<CardShape>& shapes, const std::string& chosen,
                         const PictureLayout& layout, PicturePoint place);

/// The cursor's name in CSS over a place that is on `hit`.
const char* cursorOver(const std::optional<Hit>& hit, bool countsFromBottom);

/// What becomes of `area` when what is held of it is moved by so many points: to each 0.5 mm from
/// 0/0 and to the edges of the card, a length that is moved by less than half of that staying as it
/// is. An area keeps some of itself on the card, and some size.
AreaRectangle dragged(const AreaRectangle& area, const Grip& grip, PicturePoint by,
                      const host::CardGeometry& card);

/// The new area between two places on the card, to the same steps.
AreaRectangle drawn(PicturePoint from, PicturePoint to, const host::CardGeometry& card);

}  // namespace cardpanels::dialog
