#include "ports/gtk4/AreaWidgets.h"

#include <giomm/simpleactiongroup.h>
#include <gtk/gtk.h>
#include <gtkmm/eventcontrollerfocus.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "dialog/PictureText.h"
#include "ports/gtk4/AccessibleName.h"

namespace cardpanels::gtk4 {
namespace {

using dialog::CardPicture;
using dialog::CardShape;

}  // namespace

/// One area of the picture.
class AreaWidget final : public Gtk::Widget {
 public:
  AreaWidget(CardPicture& picture, std::string key)
      : Glib::ObjectBase("CardpanelsCardArea"), picture_(picture), key_(std::move(key)) {
    property_accessible_role() = Gtk::Accessible::Role::IMG;
    set_focusable();
    set_can_target(false);
    addActions();
    const auto focus = Gtk::EventControllerFocus::create();
    focus->signal_enter().connect(sigc::mem_fun(*this, &AreaWidget::choose));
    add_controller(focus);
  }
  AreaWidget(const AreaWidget&) = delete;
  AreaWidget& operator=(const AreaWidget&) = delete;
  ~AreaWidget() override { unparent(); }

  const std::string& key() const { return key_; }

  void tell(const dialog::CardScene& scene, const CardShape& shape) {
    const std::string name = dialog::shapeInWords(scene, shape);
    const std::string troubles = dialog::shapeTroubles(shape);
    if (name != accessibleName(*this)) setAccessibleName(*this, name);
    if (troubles != accessibleDescription(*this)) setAccessibleDescription(*this, troubles);
    gtk_accessible_update_state(GTK_ACCESSIBLE(gobj()), GTK_ACCESSIBLE_STATE_SELECTED,
                                picture_.chosen() == key_ ? TRUE : FALSE, -1);
  }

  void place(const dialog::PictureBox& box) {
    int least = 0;
    int unused = 0;
    // Nobody is given a place who was not asked.
    measure(Gtk::Orientation::HORIZONTAL, -1, least, unused, unused, unused);
    const auto pixels = [](double length) {
      return std::max(1, static_cast<int>(std::ceil(length)));
    };
    size_allocate({static_cast<int>(box.left), static_cast<int>(box.top), pixels(box.width),
                   pixels(box.height)},
                  -1);
  }

 private:
  void addActions() {
    const auto actions = Gio::SimpleActionGroup::create();
    const auto add = [this, &actions](const char* name,
                                      void (CardPicture::*perform)(const std::string&)) {
      actions->add_action(name, [this, perform] {
        CardPicture& picture = picture_;
        const std::string key = key_;  // this may go
        picture.choose(key);
        (picture.*perform)(key);
      });
    };
    add("edit", &CardPicture::edit);
    add("clear", &CardPicture::clear);
    insert_action_group("area", actions);
  }

  /// Assistive technology gives the focus too.
  void choose() {
    if (picture_.chosen() != key_) picture_.choose(std::string(key_));
  }

  CardPicture& picture_;
  std::string key_;
};

AreaWidgets::AreaWidgets(Gtk::Widget& view, CardPicture& picture)
    : view_(view), picture_(picture) {}

AreaWidgets::~AreaWidgets() = default;

/// An area that stays keeps its widget.
void AreaWidgets::match() {
  auto before = std::exchange(widgets_, {});
  for (const CardShape& shape : picture_.scene().shapes) {
    const auto kept = std::find_if(before.begin(), before.end(), [&shape](const auto& each) {
      return each && each->key() == shape.key;
    });
    if (kept != before.end()) {
      widgets_.push_back(std::move(*kept));
      continue;
    }
    auto added = std::make_unique<AreaWidget>(picture_, shape.key);
    if (widgets_.empty()) {
      added->insert_at_start(view_);
    } else {
      added->insert_after(view_, *widgets_.back());
    }
    widgets_.push_back(std::move(added));
  }
  const bool losesFocus = std::any_of(before.begin(), before.end(),
                                      [](const auto& each) { return each && each->is_focus(); });
  if (losesFocus) view_.grab_focus();
}

void AreaWidgets::update() {
  match();
  const dialog::CardScene& scene = picture_.scene();
  for (std::size_t i = 0; i < widgets_.size(); ++i) widgets_[i]->tell(scene, scene.shapes[i]);
  view_.queue_allocate();
  if (haveFocus()) takeFocus();
}

void AreaWidgets::place() {
  const auto& shapes = picture_.scene().shapes;
  for (std::size_t i = 0; i < std::min(widgets_.size(), shapes.size()); ++i) {
    widgets_[i]->place(picture_.layout().boxOf(shapes[i].place));
  }
}

bool AreaWidgets::haveFocus() const {
  GtkWidget* const view = view_.gobj();
  GtkRoot* const root = gtk_widget_get_root(view);
  GtkWidget* const focus = root == nullptr ? nullptr : gtk_root_get_focus(root);
  return focus != nullptr && (focus == view || gtk_widget_is_ancestor(focus, view) != FALSE);
}

void AreaWidgets::letFocusGo() {
  if (haveFocus()) gtk_root_set_focus(gtk_widget_get_root(view_.gobj()), nullptr);
}

bool AreaWidgets::takeFocus() {
  const auto chosen = std::find_if(widgets_.begin(), widgets_.end(), [this](const auto& each) {
    return each->key() == picture_.chosen();
  });
  Gtk::Widget& wanted = chosen == widgets_.end() ? view_ : **chosen;
  return wanted.is_focus() || wanted.grab_focus();
}

}  // namespace cardpanels::gtk4
