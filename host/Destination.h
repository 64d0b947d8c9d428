#pragma once

#include <cups/cups.h>

#include <memory>
#include <span>

#include "host/Queue.h"

namespace cardpanels::host {

struct DestFreer {
  void operator()(cups_dest_t* dest) const { cupsFreeDests(1, dest); }
};
using Dest = std::unique_ptr<cups_dest_t, DestFreer>;

/// All queues and their instances; libcups moves the list when one is added.
struct Dests {
  Dests() = default;
  Dests(const Dests&) = delete;
  Dests& operator=(const Dests&) = delete;
  ~Dests() { cupsFreeDests(count, list); }
  int count = 0;
  cups_dest_t* list = nullptr;
};

/// What libcups knows of `name`, with the user's and the administrator's saved options. Throws
/// `Error` when there is no such queue or instance.
Dest destOf(http_t* http, const QueueName& name);

QueueName nameOf(const cups_dest_t& dest);

std::span<const cups_option_t> optionsOf(const cups_dest_t& dest);

}  // namespace cardpanels::host
