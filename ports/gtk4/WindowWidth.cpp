#include "ports/gtk4/WindowWidth.h"

#include <gdkmm/display.h>
#include <gdkmm/monitor.h>
#include <gdkmm/surface.h>
#include <gtkmm/dropdown.h>
#include <gtkmm/entry.h>
#include <gtkmm/native.h>

#include <vector>

#include "ports/gtk4/Children.h"

namespace cardpanels::gtk4 {
namespace {

/// Without the parts of controls, which GTK hides and shows itself.
void collectHidden(Gtk::Widget& widget, std::vector<Gtk::Widget*>& hidden) {
  if (!widget.get_visible()) hidden.push_back(&widget);
  if (dynamic_cast<Gtk::DropDown*>(&widget) != nullptr) return;
  if (dynamic_cast<Gtk::Entry*>(&widget) != nullptr) return;
  forEachChild(widget, [&hidden](Gtk::Widget& child) { collectHidden(child, hidden); });
}

}  // namespace

int naturalWidth(const Gtk::Widget& widget) {
  int least = 0;
  int natural = 0;
  int unused = 0;
  widget.measure(Gtk::Orientation::HORIZONTAL, -1, least, natural, unused, unused);
  return natural;
}

int widthWithHidden(Gtk::Widget& widget) {
  std::vector<Gtk::Widget*> hidden;
  collectHidden(widget, hidden);
  for (auto* each : hidden) each->set_visible();
  const int width = naturalWidth(widget);
  for (auto* each : hidden) each->set_visible(false);
  return width;
}

int monitorWidth(Gtk::Window& window) {
  const auto surface = window.get_surface();
  if (!surface) return 0;
  const auto monitor = surface->get_display()->get_monitor_at_surface(surface);
  if (!monitor) return 0;
  Gdk::Rectangle area;
  monitor->get_geometry(area);
  return area.get_width();
}

}  // namespace cardpanels::gtk4
