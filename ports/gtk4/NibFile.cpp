#include "ports/gtk4/NibFile.h"

#include <gdkmm/display.h>
#include <gtkmm/builder.h>
#include <gtkmm/window.h>

#include <map>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "platform/NibConnections.h"
#include "platform/Text.h"
#include "ports/gtk4/AccessibleName.h"
#include "ports/gtk4/Captions.h"
#include "ports/gtk4/Controls.h"
#include "ports/gtk4/SignalScope.h"
#include "ports/gtk4/WidgetView.h"

namespace cardpanels::gtk4 {
namespace {

using platform::View;
using ViewPointer = std::shared_ptr<View>;

/// The id that the file gives to `object`, "" for none.
std::string_view idOf(GObject* object) {
  const char* const name =
      GTK_IS_BUILDABLE(object)
          ? gtk_buildable_get_buildable_id(GTK_BUILDABLE(object))
          : static_cast<const char*>(g_object_get_data(object, "gtk-builder-id"));
  const std::string_view id = name != nullptr ? name : "";
  return id.starts_with("___object_") ? std::string_view() : id;
}

void takeNameFromTooltip(Gtk::Widget& widget) {
  const std::string name = widget.get_tooltip_text();
  if (name.empty()) return;
  widget.set_tooltip_text("");
  setAccessibleName(widget, name);
}

/// A file's widgets and their views, on their way to an owner.
class Nib {
 public:
  Nib(const std::string& path, const std::shared_ptr<platform::NibOwner>& owner,
      const dialog::Captions& captions)
      : owner_(owner), signals_(owner), builder_(Gtk::Builder::create()) {
    contents_.file = path;
    if (!Gdk::Display::get_default()) fail("there is no display to show it on");
    signals_.give(builder_->gobj());
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
    contents_.handlers = signals_.handlers();
  }

  ViewPointer connect() {
    if (const auto problem = platform::connectNib(*owner_, contents_)) {
      throw std::runtime_error(*problem);
    }
    return top_;
  }

 private:
  [[noreturn]] void fail(const std::string& reason) const {
    throw std::runtime_error(contents_.file + ": " + reason);
  }

  /// Before gtkmm makes objects of its own for windows, which would stay.
  void refuseWindows() const {
    bool anyWindow = false;
    GSList* const objects = gtk_builder_get_objects(builder_->gobj());
    for (const GSList* each = objects; each != nullptr; each = each->next) {
      if (!GTK_IS_WINDOW(each->data)) continue;
      gtk_window_destroy(GTK_WINDOW(each->data));
      anyWindow = true;
    }
    g_slist_free(objects);
    if (anyWindow) fail("there is a window, not only views");
  }

  void makeViews() {
    refuseWindows();
    for (const auto& object : builder_->get_objects()) {
      const std::string_view id = idOf(object->gobj());
      const auto widget = std::dynamic_pointer_cast<Gtk::Widget>(object);
      if (!widget) {
        if (!id.empty()) fail(platform::inQuotes(id) + " is no view");
      } else {
        takeNameFromTooltip(*widget);
        const ViewPointer view = viewOver(widget);
        views_[object->gobj()] = view;
        signals_.setView(object->gobj(), view);
        if (!id.empty()) contents_.viewsById[std::string(id)] = view;
      }
    }
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

  std::shared_ptr<platform::NibOwner> owner_;
  SignalScope signals_;
  Glib::RefPtr<Gtk::Builder> builder_;
  std::map<GObject*, ViewPointer> views_;
  ViewPointer top_;
  platform::NibContents contents_;
};

}  // namespace

ViewPointer loadNibFile(const std::string& path, const std::shared_ptr<platform::NibOwner>& owner,
                        const dialog::Captions& captions) {
  if (!owner) throw std::runtime_error(path + ": there is no owner to load it for");
  return Nib(path, owner, captions).connect();
}

}  // namespace cardpanels::gtk4
