#include <gtkmm/application.h>
#include <gtkmm/window.h>

// A program with an empty window as large as the dialog.

int main() {
  const auto application = Gtk::Application::create();
  Gtk::Window window;
  window.set_default_size(1000, 640);
  return application->run(window);
}
