#include "apps/cardprint-dialog/GtkWindows.h"

cardpanels::cardprint::Windows* cardprintOpenWindows() {
  return new cardpanels::cardprint::GtkWindows;
}
