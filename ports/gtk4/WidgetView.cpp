#include "ports/gtk4/WidgetView.h"

#include <string>

namespace cardpanels::gtk4 {

WidgetView::~WidgetView() = default;

bool WidgetView::carriesTag(std::int64_t tag) const {
  return widget().get_name().raw() == "tag-" + std::to_string(tag);
}

std::shared_ptr<platform::View> WidgetView::subviewWithTag(std::int64_t tag) const {
  for (const auto& view : subviews_) {
    if (auto found = view->viewWithTag(tag)) return found;
  }
  return nullptr;
}

}  // namespace cardpanels::gtk4
