#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <utility>

#include "platform/Object.h"
#include "platform/View.h"

namespace cardpanels::platform {

class NibOwner;

/// One outlet of an owner: its name in the user-interface file, and the member that it fills.
struct Outlet {
  std::string_view name;
  /// Puts `view` into the member; false when the member is for another kind of view.
  bool (*connect)(NibOwner& owner, const std::shared_ptr<View>& view);
  /// What the member holds now, empty for none.
  std::shared_ptr<View> (*view)(const NibOwner& owner);
};

/// One action of an owner: its name in the user-interface file, colon included, and the member
/// function that answers it.
struct Action {
  std::string_view name;
  void (*send)(NibOwner& owner, const std::shared_ptr<Object>& sender);
};

/// Who a user-interface file is loaded for: loading fills the outlets and aims the controls'
/// actions at the owner, by name.
class NibOwner {
 public:
  NibOwner() = default;
  NibOwner(const NibOwner&) = delete;
  NibOwner& operator=(const NibOwner&) = delete;
  virtual ~NibOwner();

  /// The owner's tables, which live as long as its class.
  virtual std::span<const Outlet> outlets() const = 0;
  virtual std::span<const Action> actions() const = 0;

  /// The row of that name, null when there is none.
  const Outlet* outletNamed(std::string_view name) const;
  const Action* actionNamed(std::string_view name) const;
};

/// What a control fires: an owner's action, aimed at an owner that it does not keep alive. Without
/// an owner, or after its end, firing does nothing.
class ActionTarget {
 public:
  ActionTarget() = default;
  ActionTarget(std::weak_ptr<NibOwner> owner, const Action& action)
      : owner_(std::move(owner)), action_(&action) {}

  void fire(const std::shared_ptr<Object>& sender) const;

 private:
  std::weak_ptr<NibOwner> owner_;
  const Action* action_ = nullptr;
};

/// What a strong or weak member holds now, empty for nothing.
template <class T>
const std::shared_ptr<T>& held(const std::shared_ptr<T>& strong) {
  return strong;
}
template <class T>
std::shared_ptr<T> held(const std::weak_ptr<T>& weak) {
  return weak.lock();
}

namespace detail {

template <class Member>
struct MemberOf;
template <class OwnerType, class ValueType>
struct MemberOf<ValueType OwnerType::*> {
  using Owner = OwnerType;
};
template <class Member>
using OwnerOf = typename MemberOf<Member>::Owner;

}  // namespace detail

/// Puts `view` into `place`, a strong or weak pointer to some kind of view; false when it is for
/// another kind.
template <class Pointer>
bool connectTo(Pointer& place, const std::shared_ptr<View>& view) {
  const auto fitting = std::dynamic_pointer_cast<typename Pointer::element_type>(view);
  if (view && !fitting) return false;
  place = fitting;
  return true;
}

/// The row of an outlet that fills `member`, a strong or weak pointer to some kind of view.
template <auto member>
constexpr Outlet outlet(std::string_view name) {
  using Owner = detail::OwnerOf<decltype(member)>;
  return {name,
          [](NibOwner& owner, const std::shared_ptr<View>& view) {
            return connectTo(static_cast<Owner&>(owner).*member, view);
          },
          [](const NibOwner& owner) -> std::shared_ptr<View> {
            return held(static_cast<const Owner&>(owner).*member);
          }};
}

/// The row of an action that `method` of `Owner` answers.
template <class Owner, void (Owner::*method)(const std::shared_ptr<Object>& sender)>
constexpr Action action(std::string_view name) {
  return {name, [](NibOwner& owner, const std::shared_ptr<Object>& sender) {
            (static_cast<Owner&>(owner).*method)(sender);
          }};
}

}  // namespace cardpanels::platform
