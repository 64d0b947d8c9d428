#include "dialog/PrinterList.h"

#include <algorithm>
#include <optional>

#include "dialog/PrinterStateText.h"
#include "dialog/StateWatch.h"
#include "dialog/ThreadAnswer.h"
#include "host/CardKeys.h"
#include "host/Error.h"

namespace cardpanels::dialog {
namespace {

using Queues = std::vector<host::ListedQueue>;

void add(std::vector<PrinterRow>& rows, const Queues& queues, bool forCards) {
  for (const host::ListedQueue& each : queues) {
    if (each.hasOptions != forCards) continue;
    const std::string state = stateLine({each.state}, nullptr);
    rows.push_back({each.name, each.name + (state.empty() ? "" : " · " + state)});
  }
}

}  // namespace

std::vector<PrinterRow> printerRows(const Queues& queues, const std::string& chosen) {
  std::vector<PrinterRow> rows;
  const bool isListed = std::any_of(queues.begin(), queues.end(),
                                    [&](const auto& each) { return each.name == chosen; });
  if (!isListed && !chosen.empty()) rows.push_back({chosen, chosen});
  add(rows, queues, true);
  const bool hasCards = !rows.empty();
  std::vector<PrinterRow> others;
  add(others, queues, false);
  if (hasCards && !others.empty()) rows.emplace_back();
  rows.insert(rows.end(), others.begin(), others.end());
  return rows;
}

std::string firstPrinter(const Queues& queues) {
  for (const host::ListedQueue& each : queues) {
    if (each.hasOptions) return each.name;
  }
  return queues.empty() ? "" : queues.front().name;
}

Queues readPrinters(const host::Terms& terms) { return host::listedQueues(host::kCardKeys, terms); }

std::shared_ptr<void> readPrintersOnThread(std::function<void(const Queues& queues)> done,
                                           const Post& post) {
  using Answer = std::optional<Queues>;
  return answerOnThread<Answer>(
      [](const std::atomic<bool>& abandoned) -> Answer {
        try {
          return readPrinters({.abandoned = &abandoned});
        } catch (const host::Error&) {
          return std::nullopt;
        }
      },
      [done = std::move(done)](const Answer& answer) {
        if (answer) done(*answer);
      },
      post);
}

}  // namespace cardpanels::dialog
