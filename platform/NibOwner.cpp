#include "platform/NibOwner.h"

#include <algorithm>

namespace cardpanels::platform {
namespace {

template <class Row>
const Row* rowNamed(std::span<const Row> rows, std::string_view name) {
  const auto row =
      std::find_if(rows.begin(), rows.end(), [&](const Row& each) { return each.name == name; });
  return row == rows.end() ? nullptr : &*row;
}

}  // namespace

NibOwner::~NibOwner() = default;

const Outlet* NibOwner::outletNamed(std::string_view name) const {
  return rowNamed(outlets(), name);
}

const Action* NibOwner::actionNamed(std::string_view name) const {
  return rowNamed(actions(), name);
}

void ActionTarget::fire(const std::shared_ptr<Object>& sender) const {
  if (const auto owner = owner_.lock()) action_->send(*owner, sender);
}

}  // namespace cardpanels::platform
