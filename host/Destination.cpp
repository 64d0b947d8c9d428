#include "host/Destination.h"

#include <string>
#include <utility>

#include "host/Error.h"
#include "host/PrintServer.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::filled;

const char* orNull(const std::string& text) { return text.empty() ? nullptr : text.c_str(); }

/// Asks for `queue`, or for the server's default when it is empty. libcups' own search goes on to
/// look for printers on the network, without a time limit.
ipp_status_t asked(http_t* http, const std::string& queue) {
  Ipp request =
      queueRequest(queue.empty() ? IPP_OP_CUPS_GET_DEFAULT : IPP_OP_GET_PRINTER_ATTRIBUTES, queue);
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", nullptr,
               "printer-name");
  answered(http, std::move(request));
  return cupsLastError();
}

void checkQueue(http_t* http, const std::string& queue) {
  const ipp_status_t status = asked(http, queue);
  if (status <= IPP_STATUS_OK_CONFLICTING) return;
  if (status != IPP_STATUS_ERROR_NOT_FOUND) failAtServer(cupsLastErrorString());
  if (queue.empty()) return;  // the user's settings may still name a default
  failWithoutQueue(queue);
}

/// libcups takes an instance that nobody has saved for one without options.
void checkInstance(http_t* http, const QueueName& name) {
  if (name.instance.empty()) return;
  Dests all;
  all.count = cupsGetDests2(http, &all.list);
  if (cupsGetDest(orNull(name.queue), name.instance.c_str(), all.count, all.list) != nullptr)
    return;
  throw Error(filled(_("The queue {queue} has no instance {instance}."),
                     {{"queue", name.queue}, {"instance", platform::onOneLine(name.instance)}}));
}

}  // namespace

Dest destOf(http_t* http, const QueueName& name) {
  checkQueue(http, name.queue);
  checkInstance(http, name);
  Dest dest(cupsGetNamedDest(http, orNull(name.queue), orNull(name.instance)));
  if (dest) return dest;
  if (name.queue.empty()) throw Error(_("There is no default queue; name one."));
  failAtServer(cupsLastErrorString());
}

QueueName nameOf(const cups_dest_t& dest) {
  return {dest.name, dest.instance == nullptr ? "" : dest.instance};
}

std::span<const cups_option_t> optionsOf(const cups_dest_t& dest) {
  return {dest.options, static_cast<std::size_t>(dest.num_options)};
}

}  // namespace cardpanels::host
