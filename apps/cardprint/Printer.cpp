#include "apps/cardprint/Printer.h"

#include <filesystem>
#include <utility>

#include "platform/Messages.h"

namespace cardpanels::cardprint {
namespace {

using platform::_;

Printer opened(const Arguments& arguments, const host::Terms& terms) {
  if (arguments.ppd.empty()) {
    auto queue = host::openQueue(arguments.queue, terms);
    return {queue.name.queue,
            queue.name,
            std::move(queue.savedOptions),
            std::move(queue.ppd),
            std::move(queue.ppdText),
            std::move(queue.basis),
            std::move(queue.serverOptions),
            std::move(queue.differences)};
  }
  auto ppd = host::openPPD(arguments.ppd);
  std::string name = ppd->nickname != nullptr
                         ? ppd->nickname
                         : std::filesystem::path(arguments.ppd).filename().string();
  return {
      platform::onOneLine(std::move(name)), {}, {}, std::move(ppd), std::nullopt, std::nullopt, {}};
}

}  // namespace

Printer openedPrinter(const Arguments& arguments, Waiter& waiter) {
  return waitedFor<Printer>(
      waiter, _("Reading the printer's options…"),
      [arguments](const host::Terms& terms) { return opened(arguments, terms); });
}

}  // namespace cardpanels::cardprint
