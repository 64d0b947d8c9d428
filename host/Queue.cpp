#include "host/Queue.h"

#include <cups/cups.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "host/Destination.h"
#include "host/Error.h"
#include "host/FetchedPPD.h"
#include "host/MediaOption.h"
#include "host/PPDRecords.h"
#include "host/PrintServer.h"
#include "platform/Messages.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::filled;

Queue queueAt(http_t* http, const QueueName& name) {
  const Dest dest = destOf(http, name);
  const FetchedPPD ppd(http, dest->name);
  Queue queue{nameOf(*dest), {}, ppd.open(), ppd.text()};
  for (const cups_option_t& each : optionsOf(*dest)) {
    if (findOption(queue.ppd.get(), each.name) != nullptr || isMedia(queue.ppd.get(), each.name)) {
      queue.savedOptions.push_back({each.name, each.value});
    }
  }
  return queue;
}

}  // namespace

QueueName QueueName::parse(const std::string& text) {
  const std::size_t slash = text.find('/');
  if (slash == std::string::npos) return {text, ""};
  return {text.substr(0, slash), text.substr(slash + 1)};
}

std::string QueueName::text() const { return instance.empty() ? queue : queue + "/" + instance; }

Queue openQueue(const QueueName& name, int seconds) {
  return queueAt(connected(seconds).get(), name);
}

Queue openQueue(const QueueName& name, int seconds, const std::atomic<bool>& abandoned) {
  Waiting waiting{std::chrono::steady_clock::now() + std::chrono::seconds(seconds), abandoned};
  return queueAt(connected(seconds, waiting).get(), name);
}

void saveOptions(const QueueName& name, const std::vector<Option>& options, int seconds) {
  const Http http = connected(seconds);
  const QueueName known = nameOf(*destOf(http.get(), {name.queue, ""}));
  Dests dests;
  dests.count = cupsGetDests2(http.get(), &dests.list);
  const char* const instance = name.instance.empty() ? nullptr : name.instance.c_str();
  dests.count = cupsAddDest(known.queue.c_str(), instance, dests.count, &dests.list);
  cups_dest_t* const dest = cupsGetDest(known.queue.c_str(), instance, dests.count, dests.list);
  for (const Option& each : options) {
    dest->num_options =
        cupsAddOption(each.key.c_str(), each.value.c_str(), dest->num_options, &dest->options);
  }
  if (cupsSetDests2(http.get(), dests.count, dests.list) == 0) return;
  const std::string reason = cupsLastError() <= IPP_STATUS_OK_CONFLICTING
                                 ? std::generic_category().message(errno)
                                 : cupsLastErrorString();
  throw Error(filled(_("The options of the queue {queue} cannot be saved: {reason}"),
                     {{"queue", name.text()}, {"reason", reason}}));
}

}  // namespace cardpanels::host
