#include "ports/gtk/PictureKeys.h"

#include <gtk/gtk.h>

#include <map>
#include <optional>

namespace cardpanels::gtk {
namespace {

using dialog::PictureKey;

#if GTK_CHECK_VERSION(4, 0, 0)
constexpr guint kAlt = GDK_ALT_MASK;
#else
constexpr guint kAlt = GDK_MOD1_MASK;
#endif

std::optional<PictureKey> pictureKey(guint key) {
  using Key = PictureKey;
  static const std::map<guint, Key> keys{
      {GDK_KEY_Left, Key::left},
      {GDK_KEY_KP_Left, Key::left},
      {GDK_KEY_Right, Key::right},
      {GDK_KEY_KP_Right, Key::right},
      {GDK_KEY_Up, Key::up},
      {GDK_KEY_KP_Up, Key::up},
      {GDK_KEY_Down, Key::down},
      {GDK_KEY_KP_Down, Key::down},
      {GDK_KEY_Page_Up, Key::previous},
      {GDK_KEY_Page_Down, Key::next},
      {GDK_KEY_Home, Key::first},
      {GDK_KEY_End, Key::last},
      {GDK_KEY_Insert, Key::create},
      {GDK_KEY_Delete, Key::clear},
      {GDK_KEY_KP_Delete, Key::clear},
      {GDK_KEY_BackSpace, Key::clear},
      {GDK_KEY_Return, Key::edit},
      {GDK_KEY_KP_Enter, Key::edit},
      {GDK_KEY_Escape, Key::release},
  };
  const auto found = keys.find(key);
  if (found == keys.end()) return std::nullopt;
  return found->second;
}

}  // namespace

bool pressKey(dialog::CardPicture& picture, guint key, guint state) {
  const auto known = pictureKey(key);
  const dialog::PictureModifiers held{.fine = (state & GDK_CONTROL_MASK) != 0,
                                      .resizes = (state & GDK_SHIFT_MASK) != 0};
  const bool isElsewhere =
      (state & kAlt) != 0 || (held.fine && (key == GDK_KEY_Page_Up || key == GDK_KEY_Page_Down));
  return known && !isElsewhere && picture.press(*known, held);
}

}  // namespace cardpanels::gtk
