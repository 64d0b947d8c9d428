#include "host/RemoteQueue.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace cardpanels::host {
namespace {

bool isQueuePath(std::string_view path) {
  for (const std::string_view folder : {"/printers/", "/classes/"}) {
    if (path.starts_with(folder)) {
      return path.size() > folder.size() && path.find('/', folder.size()) == std::string_view::npos;
    }
  }
  return false;
}

}  // namespace

std::optional<RemoteQueue> remoteQueueOf(const std::string& uri) {
  std::array<char, 32> scheme{};
  std::array<char, HTTP_MAX_URI> user{};
  std::array<char, HTTP_MAX_URI> host{};
  std::array<char, HTTP_MAX_URI> resource{};
  int port = 0;
  const http_uri_status_t status = httpSeparateURI(
      HTTP_URI_CODING_ALL, uri.c_str(), scheme.data(), scheme.size(), user.data(), user.size(),
      host.data(), host.size(), &port, resource.data(), resource.size());
  if (status != HTTP_URI_STATUS_OK) return std::nullopt;
  const std::string_view protocol = scheme.data();
  const bool isEncrypted = protocol == "ipps" || protocol == "https";
  if (!isEncrypted && protocol != "ipp" && protocol != "http") return std::nullopt;
  std::string path = resource.data();
  path.erase(std::min(path.find('?'), path.size()));
  if (!isQueuePath(path)) return std::nullopt;
  const std::string name = host.data();
  const bool isIPv6 = name.find(':') != std::string::npos;
  return RemoteQueue{{.server = (isIPv6 ? "[" + name + "]" : name) + ":" + std::to_string(port),
                      .user = {},
                      .isEncrypted = isEncrypted},
                     std::move(path)};
}

}  // namespace cardpanels::host
