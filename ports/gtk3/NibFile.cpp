#include "ports/gtk3/NibFile.h"

#include <gdkmm/display.h>
#include <gtkmm/builder.h>
#include <gtkmm/grid.h>

#include <map>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/NibConnections.h"
#include "platform/Text.h"
#include "ports/gtk3/Captions.h"
#include "ports/gtk3/Controls.h"
#include "ports/gtk3/WidgetView.h"

namespace cardpanels::gtk3 {
namespace {

using platform::View;
using ViewPointer = std::shared_ptr<View>;

/// One `<signal>` of the file.
struct Signal {
  GObject* object;
  std::string name;
  std::string handler;
};

void addSignal(GtkBuilder* /*builder*/, GObject* object, const gchar* signal, const gchar* handler,
               GObject* /*connectObject*/, GConnectFlags /*flags*/, gpointer signals) {
  static_cast<std::vector<Signal>*>(signals)->push_back({object, signal, handler});
}

/// The id that the file gives to `object`, "" for none.
std::string_view idOf(GObject* object) {
  const char* const name =
      GTK_IS_BUILDABLE(object)
          ? gtk_buildable_get_name(GTK_BUILDABLE(object))
          : static_cast<const char*>(g_object_get_data(object, "gtk-builder-name"));
  const std::string_view id = name != nullptr ? name : "";
  return id.starts_with("___object_") ? std::string_view() : id;
}

/// Assistive technology reads a grid's children backwards: puts them so that it reads them in the
/// order of the file. Tab follows where they stand.
void readForwards(Gtk::Grid& grid) {
  struct Place {
    int left, top, width, height;
  };
  for (auto* const child : grid.get_children()) {
    const Place place{grid.child_property_left_attach(*child),
                      grid.child_property_top_attach(*child), grid.child_property_width(*child),
                      grid.child_property_height(*child)};
    child->reference();
    grid.remove(*child);
    grid.attach(*child, place.left, place.top, place.width, place.height);
    child->unreference();
  }
}

/// A file's widgets and their views, on their way to an owner.
class Nib {
 public:
  Nib(const std::string& path, const dialog::Captions& captions)
      : builder_(Gtk::Builder::create()) {
    contents_.file = path;
    if (!Gdk::Display::get_default()) fail("there is no display to show it on");
    try {
      builder_->add_from_file(path);
    } catch (const Glib::Error& error) {
      const std::string reason = error.what();
      if (reason.starts_with(path)) throw std::runtime_error(reason);
      fail(reason);
    }
    makeViews();
    nestViews();
    giveCaptions(dynamic_cast<WidgetView&>(*top_).widget(), captions);
    gtk_builder_connect_signals_full(builder_->gobj(), addSignal, &signals_);
    for (const Signal& signal : signals_) contents_.handlers.push_back(signal.handler);
  }

  ViewPointer connect(const std::shared_ptr<platform::NibOwner>& owner) {
    for (const auto& [object, name, handler] : signals_)
      connectSignal(object, name, handler, owner);
    if (const auto problem = platform::connectNib(*owner, contents_)) {
      throw std::runtime_error(*problem);
    }
    return top_;
  }

 private:
  [[noreturn]] void fail(const std::string& reason) const {
    throw std::runtime_error(contents_.file + ": " + reason);
  }

  void makeViews() {
    bool anyWindow = false;
    for (const auto& object : builder_->get_objects()) {
      const std::string_view id = idOf(object->gobj());
      const auto widget = Glib::RefPtr<Gtk::Widget>::cast_dynamic(object);
      if (!widget) {
        if (!id.empty()) fail(platform::inQuotes(id) + " is no view");
      } else if (GTK_IS_WINDOW(widget->gobj())) {
        gtk_widget_destroy(widget->gobj());
        anyWindow = true;
      } else {
        if (auto* const grid = dynamic_cast<Gtk::Grid*>(widget.operator->())) readForwards(*grid);
        const ViewPointer view = viewOver(widget);
        views_[object->gobj()] = view;
        if (!id.empty()) contents_.viewsById[std::string(id)] = view;
      }
    }
    if (anyWindow) fail("there is a window, not only views");
  }

  /// Hands each view to the one that it stands in; the one that stands in none is the top.
  void nestViews() {
    for (const auto& [object, view] : views_) {
      if (auto* const outer = dynamic_cast<WidgetView*>(outerView(object).get())) {
        outer->addSubview(view);
      } else if (top_) {
        fail("there is more than one view at the top");
      } else {
        top_ = view;
      }
    }
    if (!top_) fail("there is no view");
  }

  ViewPointer outerView(GObject* object) const {
    for (GtkWidget* widget = gtk_widget_get_parent(GTK_WIDGET(object)); widget != nullptr;
         widget = gtk_widget_get_parent(widget)) {
      const auto view = views_.find(G_OBJECT(widget));
      if (view != views_.end()) return view->second;
    }
    return nullptr;
  }

  /// A handler that is no action is left for `connectNib` to tell.
  void connectSignal(GObject* object, const std::string& name, const std::string& handler,
                     const std::shared_ptr<platform::NibOwner>& owner) const {
    const auto* const action = owner->actionNamed(handler);
    if (action == nullptr) return;
    const auto view = views_.find(object);
    if (view == views_.end()) fail(platform::inQuotes(handler) + " is aimed at by what is no view");
    connectAction(view->second, name.c_str(), platform::ActionTarget(owner, *action));
  }

  Glib::RefPtr<Gtk::Builder> builder_;
  std::map<GObject*, ViewPointer> views_;
  ViewPointer top_;
  platform::NibContents contents_;
  std::vector<Signal> signals_;
};

}  // namespace

ViewPointer loadNibFile(const std::string& path, const std::shared_ptr<platform::NibOwner>& owner,
                        const dialog::Captions& captions) {
  if (!owner) throw std::runtime_error(path + ": there is no owner to load it for");
  return Nib(path, captions).connect(owner);
}

}  // namespace cardpanels::gtk3
