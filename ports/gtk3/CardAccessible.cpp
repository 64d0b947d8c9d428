#include "ports/gtk3/CardAccessible.h"

#include <atk/atk.h>
#include <gtk/gtk-a11y.h>
#include <gtk/gtk.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "dialog/PictureText.h"
#include "platform/Messages.h"
#include "ports/gtk3/CardView.h"

namespace cardpanels::gtk3 {
namespace {

using dialog::CardPicture;
using dialog::CardShape;
using platform::_;

/// What an area's object is of.
struct ShapeState {
  std::string key;
  CardPicture* picture = nullptr;  // null once there is no such area any more
  GtkWidget* widget = nullptr;
};

struct ShapeObject {
  AtkObject parent;
  ShapeState* state;
};
struct ShapeObjectClass {
  AtkObjectClass parent;
};

ShapeState& stateOf(gpointer object) { return *static_cast<ShapeObject*>(object)->state; }

const CardShape* shapeOf(gpointer object) {
  const ShapeState& state = stateOf(object);
  if (state.picture == nullptr) return nullptr;
  const auto& shapes = state.picture->scene().shapes;
  const auto shape = std::find_if(shapes.begin(), shapes.end(), [&state](const CardShape& each) {
    return each.key == state.key;
  });
  return shape == shapes.end() ? nullptr : &*shape;
}

bool isChosen(gpointer object) {
  const ShapeState& state = stateOf(object);
  return state.picture != nullptr && state.picture->chosen() == state.key;
}

GType shapeType();

AtkStateSet* shapeStates(AtkObject* object) {
  AtkStateSet* const states = atk_state_set_new();
  const ShapeState& state = stateOf(object);
  if (shapeOf(object) == nullptr || state.widget == nullptr) {
    atk_state_set_add_state(states, ATK_STATE_DEFUNCT);
    return states;
  }
  for (const AtkStateType each : {ATK_STATE_ENABLED, ATK_STATE_SENSITIVE, ATK_STATE_VISIBLE,
                                  ATK_STATE_FOCUSABLE, ATK_STATE_SELECTABLE}) {
    atk_state_set_add_state(states, each);
  }
  if (gtk_widget_get_mapped(state.widget) != FALSE) {
    atk_state_set_add_state(states, ATK_STATE_SHOWING);
  }
  if (isChosen(object)) {
    atk_state_set_add_state(states, ATK_STATE_SELECTED);
    if (gtk_widget_has_focus(state.widget) != FALSE) {
      atk_state_set_add_state(states, ATK_STATE_FOCUSED);
    }
  }
  return states;
}

gint shapeIndex(AtkObject* object) {
  const CardShape* const shape = shapeOf(object);
  if (shape == nullptr) return -1;
  return static_cast<gint>(shape - stateOf(object).picture->scene().shapes.data());
}

void shapeExtents(AtkComponent* component, gint* x, gint* y, gint* width, gint* height,
                  AtkCoordType kind) {
  *x = *y = *width = *height = 0;
  const CardShape* const shape = shapeOf(component);
  const ShapeState& state = stateOf(component);
  if (shape == nullptr || state.widget == nullptr) return;
  gint ownWidth = 0;
  gint ownHeight = 0;
  atk_component_get_extents(ATK_COMPONENT(gtk_widget_get_accessible(state.widget)), x, y, &ownWidth,
                            &ownHeight, kind);
  const dialog::PictureBox box = state.picture->layout().boxOf(shape->place);
  *x += static_cast<gint>(box.left);
  *y += static_cast<gint>(box.top);
  *width = static_cast<gint>(std::ceil(box.width));
  *height = static_cast<gint>(std::ceil(box.height));
}

gboolean grabFocus(AtkComponent* component) {
  const ShapeState& state = stateOf(component);
  if (shapeOf(component) == nullptr) return FALSE;
  gtk_widget_grab_focus(state.widget);
  state.picture->choose(state.key);
  return TRUE;
}

void initComponent(gpointer itsIface, gpointer /*data*/) {
  auto* const iface = static_cast<AtkComponentIface*>(itsIface);
  iface->get_extents = shapeExtents;
  iface->grab_focus = grabFocus;
}

/// What can be done with an area, by its place.
struct ShapeAction {
  const char* name;
  const char* title;
  void (CardPicture::*perform)(const std::string& key);
};
constexpr std::array kActions{ShapeAction{"edit", "Go to its fields", &CardPicture::edit},
                              ShapeAction{"clear", "Clear the area", &CardPicture::clear}};
// For xgettext: _("Go to its fields") _("Clear the area")

const ShapeAction* actionAt(gint index) {
  const bool there = index >= 0 && index < static_cast<gint>(kActions.size());
  return there ? &kActions.at(static_cast<std::size_t>(index)) : nullptr;
}

gboolean doAction(AtkAction* action, gint index) {
  const ShapeAction* const wanted = actionAt(index);
  if (wanted == nullptr || shapeOf(action) == nullptr) return FALSE;
  const ShapeState state = stateOf(action);  // the object may go
  state.picture->choose(state.key);
  (state.picture->*wanted->perform)(state.key);
  return TRUE;
}

gint countActions(AtkAction* /*action*/) { return static_cast<gint>(kActions.size()); }

const gchar* actionName(AtkAction* /*action*/, gint index) {
  const ShapeAction* const wanted = actionAt(index);
  return wanted == nullptr ? nullptr : wanted->name;
}

const gchar* actionTitle(AtkAction* /*action*/, gint index) {
  const ShapeAction* const wanted = actionAt(index);
  return wanted == nullptr ? nullptr : _(wanted->title);
}

void initAction(gpointer itsIface, gpointer /*data*/) {
  auto* const iface = static_cast<AtkActionIface*>(itsIface);
  iface->do_action = doAction;
  iface->get_n_actions = countActions;
  iface->get_name = actionName;
  iface->get_localized_name = actionTitle;
}

void finalizeShape(GObject* object) {
  delete reinterpret_cast<ShapeObject*>(object)->state;
  G_OBJECT_CLASS(g_type_class_peek_parent(g_type_class_peek(shapeType())))->finalize(object);
}

void initShapeClass(gpointer itsClass, gpointer /*data*/) {
  G_OBJECT_CLASS(itsClass)->finalize = finalizeShape;
  auto* const atk = ATK_OBJECT_CLASS(itsClass);
  atk->ref_state_set = shapeStates;
  atk->get_index_in_parent = shapeIndex;
}

void initShape(GTypeInstance* instance, gpointer /*itsClass*/) {
  reinterpret_cast<ShapeObject*>(instance)->state = new ShapeState;
}

void addInterface(GType type, GType iface, GInterfaceInitFunc init) {
  const GInterfaceInfo info{init, nullptr, nullptr};
  g_type_add_interface_static(type, iface, &info);
}

GType shapeType() {
  static const GType type = [] {
    const GType made = g_type_register_static_simple(ATK_TYPE_OBJECT, "CardpanelsCardArea",
                                                     sizeof(ShapeObjectClass), initShapeClass,
                                                     sizeof(ShapeObject), initShape, GTypeFlags(0));
    addInterface(made, ATK_TYPE_COMPONENT, initComponent);
    addInterface(made, ATK_TYPE_ACTION, initAction);
    return made;
  }();
  return type;
}

/// What the group's object keeps.
struct GroupState {
  std::shared_ptr<CardPicture> picture;
  std::vector<AtkObject*> children;  // in the order of the shapes
  std::string focused;               // the area that was last told to have the focus
};

constexpr const char* kGroup = "cardpanels-card-group";

GroupState* groupOf(gpointer widget) {
  return static_cast<GroupState*>(g_object_get_data(G_OBJECT(widget), kGroup));
}

GtkWidget* widgetOf(AtkObject* object) { return gtk_accessible_get_widget(GTK_ACCESSIBLE(object)); }

gint countChildren(AtkObject* object) {
  GtkWidget* const widget = widgetOf(object);
  const GroupState* const group = widget == nullptr ? nullptr : groupOf(widget);
  return group == nullptr ? 0 : static_cast<gint>(group->children.size());
}

AtkObject* childAt(AtkObject* object, gint index) {
  if (index < 0 || index >= countChildren(object)) return nullptr;
  AtkObject* const child = groupOf(widgetOf(object))->children[static_cast<std::size_t>(index)];
  g_object_ref(child);
  return child;
}

void initGroupClass(gpointer itsClass, gpointer /*data*/) {
  auto* const atk = ATK_OBJECT_CLASS(itsClass);
  atk->get_n_children = countChildren;
  atk->ref_child = childAt;
}

GType groupType() {
  static const GType type = [] {
    GTypeQuery parent;
    g_type_query(GTK_TYPE_WIDGET_ACCESSIBLE, &parent);
    return g_type_register_static_simple(GTK_TYPE_WIDGET_ACCESSIBLE, "CardpanelsCard",
                                         parent.class_size, initGroupClass, parent.instance_size,
                                         nullptr, GTypeFlags(0));
  }();
  return type;
}

void letGo(AtkObject* child) {
  stateOf(child).picture = nullptr;
  atk_object_notify_state_change(child, ATK_STATE_DEFUNCT, TRUE);
  g_object_unref(child);
}

AtkObject* newChild(GroupState& group, GtkWidget* widget, const std::string& key) {
  auto* const child = ATK_OBJECT(g_object_new(shapeType(), nullptr));
  stateOf(child) = {key, group.picture.get(), widget};
  atk_object_set_role(child, ATK_ROLE_ICON);
  atk_object_set_parent(child, gtk_widget_get_accessible(widget));
  return child;
}

/// Makes the children those of the shapes; an area that stays keeps its object.
void matchChildren(GroupState& group, GtkWidget* widget) {
  AtkObject* const object = gtk_widget_get_accessible(widget);
  const auto& shapes = group.picture->scene().shapes;
  const auto isGone = [&shapes](AtkObject* child) {
    return std::none_of(shapes.begin(), shapes.end(), [child](const CardShape& shape) {
      return shape.key == stateOf(child).key;
    });
  };
  for (std::size_t i = group.children.size(); i-- > 0;) {
    AtkObject* const child = group.children[i];
    if (!isGone(child)) continue;
    group.children.erase(group.children.begin() + static_cast<std::ptrdiff_t>(i));
    g_signal_emit_by_name(object, "children-changed::remove", guint(i), child, nullptr);
    letGo(child);
  }
  for (std::size_t i = 0; i < shapes.size(); ++i) {
    if (i < group.children.size() && stateOf(group.children[i]).key == shapes[i].key) continue;
    AtkObject* const child = newChild(group, widget, shapes[i].key);
    group.children.insert(group.children.begin() + static_cast<std::ptrdiff_t>(i), child);
    g_signal_emit_by_name(object, "children-changed::add", guint(i), child, nullptr);
  }
}

void setTexts(AtkObject* object, const std::string& name, const std::string& description) {
  const gchar* const oldName = atk_object_get_name(object);
  const gchar* const oldDescription = atk_object_get_description(object);
  if (oldName == nullptr || name != oldName) atk_object_set_name(object, name.c_str());
  if (oldDescription == nullptr || description != oldDescription) {
    atk_object_set_description(object, description.c_str());
  }
}

void tellFocus(GroupState& group, GtkWidget* widget) {
  const std::string now =
      gtk_widget_has_focus(widget) != FALSE ? group.picture->chosen() : std::string();
  if (now == group.focused) return;
  for (AtkObject* const child : group.children) {
    const std::string& key = stateOf(child).key;
    if (key != now && key != group.focused) continue;
    const gboolean gets = key == now ? TRUE : FALSE;
    atk_object_notify_state_change(child, ATK_STATE_SELECTED, gets);
    atk_object_notify_state_change(child, ATK_STATE_FOCUSED, gets);
    if (gets != FALSE) {
      g_signal_emit_by_name(gtk_widget_get_accessible(widget), "active-descendant-changed", child,
                            nullptr);
    }
  }
  group.focused = now;
}

}  // namespace

void useCardAccessible(CardView& view, std::shared_ptr<CardPicture> picture) {
  GtkWidget* const widget = GTK_WIDGET(view.gobj());
  gtk_widget_class_set_accessible_type(GTK_WIDGET_GET_CLASS(widget), groupType());
  gtk_widget_class_set_accessible_role(GTK_WIDGET_GET_CLASS(widget), ATK_ROLE_GROUPING);
  g_object_set_data_full(G_OBJECT(widget), kGroup, new GroupState{std::move(picture), {}, {}},
                         [](gpointer group) { delete static_cast<GroupState*>(group); });
  updateCardAccessible(view);
}

void updateCardAccessible(CardView& view) {
  GtkWidget* const widget = GTK_WIDGET(view.gobj());
  GroupState* const group = groupOf(widget);
  if (group == nullptr) return;
  const dialog::CardScene& scene = group->picture->scene();
  matchChildren(*group, widget);
  setTexts(gtk_widget_get_accessible(widget), dialog::pictureName(scene),
           dialog::pictureDescription(scene));
  for (std::size_t i = 0; i < group->children.size(); ++i) {
    setTexts(group->children[i], dialog::shapeInWords(scene, scene.shapes[i]),
             dialog::shapeTroubles(scene.shapes[i]));
  }
  tellFocus(*group, widget);
}

void releaseCardAccessible(CardView& view) {
  GroupState* const group = groupOf(view.gobj());
  if (group == nullptr) return;
  for (AtkObject* const child : std::exchange(group->children, {})) letGo(child);
  g_object_set_data(G_OBJECT(view.gobj()), kGroup, nullptr);
}

}  // namespace cardpanels::gtk3
