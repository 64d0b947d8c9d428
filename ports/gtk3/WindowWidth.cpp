#include "ports/gtk3/WindowWidth.h"

#include <gdkmm/display.h>
#include <gdkmm/monitor.h>
#include <gdkmm/screen.h>
#include <gtkmm/container.h>

#include <vector>

namespace cardpanels::gtk3 {
namespace {

constexpr double kUsualResolution = 96;  // dots an inch

void collectHidden(Gtk::Widget& widget, std::vector<Gtk::Widget*>& hidden) {
  if (!widget.get_visible()) hidden.push_back(&widget);
  auto* const container = dynamic_cast<Gtk::Container*>(&widget);
  if (container == nullptr) return;
  for (auto* child : container->get_children()) collectHidden(*child, hidden);
}

}  // namespace

int widthWithHidden(Gtk::Widget& widget) {
  std::vector<Gtk::Widget*> hidden;
  collectHidden(widget, hidden);
  for (auto* each : hidden) each->set_visible();
  int least = 0;
  int natural = 0;
  widget.get_preferred_width(least, natural);
  for (auto* each : hidden) each->set_visible(false);
  return natural;
}

Gdk::Rectangle workArea(Gtk::Window& window) {
  const auto display = window.get_display();
  auto monitor = window.get_realized() ? display->get_monitor_at_window(window.get_window())
                                       : display->get_primary_monitor();
  if (!monitor) monitor = display->get_monitor(0);
  Gdk::Rectangle area;
  if (monitor) monitor->get_workarea(area);
  return area;
}

double textScale() {
  const double resolution = Gdk::Screen::get_default()->get_resolution();
  return resolution > 0 ? resolution / kUsualResolution : 1;
}

}  // namespace cardpanels::gtk3
