#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "dialog/AreaDrag.h"
#include "dialog/CardScene.h"
#include "dialog/PictureLayout.h"

namespace cardpanels::dialog {

class TypedAreas;

/// What the picture does with the user's keys. Arrows choose an area while none is chosen, and move
/// the chosen one.
enum class PictureKey {
  left,
  right,
  up,
  down,
  previous,  // chooses the area before
  next,
  first,
  last,
  create,  // makes the next empty area
  clear,
  edit,     // goes to the area's X field
  release,  // gives the drag up, or chooses no area
};

/// What is held down with a key.
struct PictureModifiers {
  bool fine = false;     // 0.1 mm in place of 1 mm
  bool resizes = false;  // moves the far edge
};

/// The picture of one side of the card, which shows what is typed into the fields of its areas and
/// types into them what the user does with mouse and keys. It is stored like what is typed: when a
/// drag ends, and when the picture loses the focus. A port draws the scene and hands on events, in
/// pixels.
class CardPicture {
 public:
  /// The picture of `side`, whose areas are in `fields`. Both and `job` must outlive it.
  CardPicture(const host::JobOptions& job, const AreaSide& side, TypedAreas& fields);
  CardPicture(const CardPicture&) = delete;
  CardPicture& operator=(const CardPicture&) = delete;

  /// Who learns that something else is to be shown; empty for nobody.
  void setChanged(std::function<void()> changed) { changed_ = std::move(changed); }

  /// Reads the job and the fields again.
  void refresh();

  const CardScene& scene() const { return scene_; }
  const PictureLayout& layout() const { return layout_; }

  /// The option of the chosen area, "" for none.
  const std::string& chosen() const { return chosen_; }
  const CardShape* chosenShape() const;
  void choose(const std::string& key);

  /// Why the document cannot be shown behind the areas, in a sentence; "" when it can.
  void tellBlank(const std::string& why);

  /// How many pixels there are, and how high a line of text is.
  void setRoom(double width, double height, double line);

  /// Whether the next new area is one to exclude, while there is an empty one.
  void drawExcludes(bool excludes) { drawsExcludes_ = excludes; }

  /// The main button is pressed, held while the mouse moves, and let go.
  void press(PicturePoint place);
  void drag(PicturePoint place);
  void drop();

  /// The cursor's name in CSS over `place`.
  const char* cursor(PicturePoint place) const;

  /// Whether the key does something here; else it is for others.
  bool press(PictureKey key, const PictureModifiers& held = {});

  /// The focus has gone: what was changed with keys is stored.
  void leave();

  /// What assistive technology may ask for of an area.
  void edit(const std::string& key);
  void clear(const std::string& key);

 private:
  /// A drag that has begun.
  struct Drag {
    PicturePoint from;     // on the card
    Grip grip;             // of an area that was there
    AreaTexts texts = {};  // before; empty ones for an area that is drawn
    AreaRectangle place = {};
    std::string key = {};  // "" before an area is drawn
    bool isDrawn = false;
    bool hasMoved = false;
  };

  const CardShape* shapeOf(const std::string& key) const;
  std::string nextEmptyArea() const;
  void type(const std::string& key, const AreaRectangle& place, const AreaTexts& texts);
  bool walk(PictureKey key);
  bool nudge(PictureKey key, const PictureModifiers& held);
  bool create();
  bool giveUp();
  void tell() const;

  const host::JobOptions& job_;
  const AreaSide& side_;
  TypedAreas& fields_;
  std::function<void()> changed_;
  CardScene scene_;
  std::string blank_;
  PictureLayout layout_;
  struct {
    double width = 0;
    double height = 0;
    double line = 0;
  } room_;
  std::string chosen_;
  bool drawsExcludes_ = false;
  std::optional<Drag> drag_;
};

}  // namespace cardpanels::dialog
