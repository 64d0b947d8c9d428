#include "apps/cardprint-dialog/JobFollower.h"

#include <glibmm/markup.h>

#include "ports/gtk/MainLoop.h"

namespace cardpanels::cardprint {
namespace {

constexpr const char* kService = "org.freedesktop.Notifications";
constexpr unsigned kPatienceSeconds = 600;  // for a server that does not answer

}  // namespace

Notifications::Notifications() {
  try {
    service_ = Gio::DBus::Proxy::create_for_bus_sync(Gio::DBus::BUS_TYPE_SESSION, kService,
                                                     "/org/freedesktop/Notifications", kService);
  } catch (const Glib::Error&) {
    // There is no session.
  }
}

bool Notifications::areTaken() const { return service_ && !service_->get_name_owner().empty(); }

void Notifications::show(const dialog::News& news) const {
  GVariant* const parameters = g_variant_new_parsed(
      "('cardprint', uint32 0, 'cardprint', %s, %s, @as [], "
      "{'desktop-entry': <'org.cardpanels.cardprint'>}, -1)",
      news.title.c_str(), Glib::Markup::escape_text(news.text).c_str());
  try {
    service_->call_sync("Notify", Glib::VariantContainerBase(parameters));
  } catch (const Glib::Error&) {
    // Nobody shows it any more.
  }
}

JobFollower::JobFollower(const std::string& queue, const std::vector<int>& ids,
                         const Notifications& notifications)
    : notifications_(notifications),
      news_(queue),
      watch_(queue, ids, gtk::postToMainLoop,
             [this](const dialog::JobsRead& states) { read(states); }) {}

JobFollower::~JobFollower() { patience_.disconnect(); }

void JobFollower::read(const dialog::JobsRead& read) {
  if (const auto news = news_.next(read)) notifications_.show(*news);
  patience_.disconnect();
  if (read.haveAllEnded()) return loop_->quit();
  if (read.error.empty()) return;
  patience_ = Glib::signal_timeout().connect_seconds(
      [this] {
        loop_->quit();
        return false;
      },
      kPatienceSeconds);
}

}  // namespace cardpanels::cardprint
