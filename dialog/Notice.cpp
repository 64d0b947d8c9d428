#include "dialog/Notice.h"

#include <algorithm>

namespace cardpanels::dialog {

bool lookTheSame(const Notices& a, const Notices& b) {
  const auto sameLabel = [](const Notice::Answer& x, const Notice::Answer& y) {
    return x.label == y.label;
  };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](const Notice& x, const Notice& y) {
    return x.kind == y.kind && x.text == y.text &&
           std::equal(x.answers.begin(), x.answers.end(), y.answers.begin(), y.answers.end(),
                      sameLabel);
  });
}

Notice::Kind worstKind(const Notices& notices) {
  auto worst = Notice::Kind::information;
  for (const Notice& each : notices) worst = std::max(worst, each.kind);
  return worst;
}

const char* iconName(Notice::Kind kind) {
  switch (kind) {
    case Notice::Kind::information: return "dialog-information-symbolic";
    case Notice::Kind::warning: return "dialog-warning-symbolic";
    case Notice::Kind::error: break;
  }
  return "dialog-error-symbolic";
}

}  // namespace cardpanels::dialog
