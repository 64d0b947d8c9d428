#include "host/HostCallback.h"

namespace cardpanels::host {

bool ConstrainingHostCallback::willChangePPDOptionKeyValue_ppdChoice(const platform::Text& key,
                                                                     const platform::Text& choice) {
  const ChangeResult result = decide(key, choice);
  tellPanels(result.changes, key);  // who asked re-reads its own option from the marks
  if (requested_) requested_(key, choice, result);
  return result.granted;
}

void ConstrainingHostCallback::tellPanels(const std::vector<Option>& changes,
                                          const platform::Text& known) const {
  if (!panels_) return;
  for (const Option& change : changes) {
    if (change.key == known) continue;
    for (const auto& panel : *panels_) {
      panel->PPDOptionKeyValueDidChange_ppdChoice(change.key, change.value);
    }
  }
}

}  // namespace cardpanels::host
