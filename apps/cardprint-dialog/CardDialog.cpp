#include "apps/cardprint-dialog/CardDialog.h"

#include <gtkmm/button.h>
#include <gtkmm/separator.h>

#include <algorithm>

#include "dialog/PrinterStateText.h"
#include "dialog/StateWatch.h"
#include "host/CardGeometry.h"
#include "host/Error.h"
#include "host/JobOptions.h"
#include "host/ServerThread.h"
#include "host/Submission.h"
#include "platform/Messages.h"
#include "ports/gtk3/MainLoop.h"
#include "ports/gtk3/WindowWidth.h"

namespace cardpanels::cardprint {
namespace {

using platform::_;

constexpr int kWidth = 720;
constexpr int kHeight = 480;
constexpr int kButtonMargin = 6;

}  // namespace

CardDialog::CardDialog(DialogJob& job, WindowWaiter& waiter, const std::string& told)
    : Gtk::Dialog(Glib::ustring::compose(_("Print on %1"), job.printerName())),
      job_(job),
      waiter_(waiter),
      page_(job.panels()) {
  get_content_area()->set_border_width(0);
  get_content_area()->pack_start(page_, Gtk::PACK_EXPAND_WIDGET);
  get_content_area()->pack_start(*Gtk::make_managed<Gtk::Separator>(), Gtk::PACK_SHRINK);
  get_content_area()->show_all();
  add_button(_("_Cancel"), Gtk::RESPONSE_CANCEL);
  auto* const print = add_button(_("_Print"), Gtk::RESPONSE_OK);
  print->get_parent()->property_margin() = kButtonMargin;
  set_default_response(Gtk::RESPONSE_OK);
  setDefaultSize();
  job_.panels().setObserver(this);
  waiter_.setParent(this);
  page_.page().keep(told);
  for (const std::string& each : job_.leftOut()) page_.page().keep(each);
  watchPrinter();
  showDocument();
}

/// Draws the first file on a thread, for the card's size as it is now.
void CardDialog::showDocument() {
  const auto [path, attributes] = job_.firstFile();
  const host::CardGeometry card = host::cardGeometry(job_.panels().job());
  const CardDocument document{path, card.width, card.height, attributes};
  if (document == document_) return;
  document_ = document;
  if (path.empty() || !card.hasSize()) return;
  drawing_ = host::startServerThread([this, document, alive = std::weak_ptr<bool>(alive_)](
                                         host::Abandonment& /*abandonment*/) {
    const auto pages = drawDocument(document);
    gtk3::postToMainLoop([this, document, pages, alive] {
      if (alive.expired() || document != document_) return;
      page_.showDocument({{{pages[0].surface, pages[0].why}, {pages[1].surface, pages[1].why}}});
    });
  });
}

void CardDialog::watchPrinter() {
  if (job_.queue().queue.empty()) return;
  watching_ = std::make_shared<dialog::StateWatch>(
      job_.queue().queue, gtk3::postToMainLoop, [this](const dialog::StateRead& read) {
        page_.page().tellState(dialog::stateLine(read, job_.panels().job().ppd()));
      });
}

/// Wide enough for all panels, whatever the size of the text.
void CardDialog::setDefaultSize() {
  const auto most = gtk3::workArea(*this);
  const int height = static_cast<int>(kHeight * gtk3::textScale());
  set_default_size(std::min(std::max(kWidth, page_.naturalWidth()), most.get_width()),
                   std::min(height, most.get_height()));
}

CardDialog::~CardDialog() {
  waiter_.setParent(nullptr);
  job_.panels().setObserver(nullptr);
}

void CardDialog::tell(const std::string& message, const std::optional<host::Option>& insisted) {
  if (insisted) {
    page_.page().tell(
        message, [this, change = *insisted] { job_.panels().insist(change.key, change.value); });
  } else {
    page_.page().tell(message);
  }
}

std::optional<std::string> CardDialog::choose() {
  for (;;) {
    errors_.rethrow();
    const int response = run();
    errors_.rethrow();
    if (response != Gtk::RESPONSE_OK) return std::nullopt;
    if (auto output = print()) return output;
  }
}

std::optional<std::string> CardDialog::print() {
  try {
    if (!page_.page().mayPrint([this] { response(Gtk::RESPONSE_OK); })) return std::nullopt;
    auto output = job_.send();
    error_.clear();
    return output;
  } catch (const host::PPDChanged&) {
    throw;  // this dialog is on the PPD that was
  } catch (const Cancelled&) {
    page_.page().tell(_("Nothing was printed."));
    return std::nullopt;
  } catch (const host::Error& error) {
    error_ = error.what();
    page_.page().tellError(error_);
    return std::nullopt;
  }
}

}  // namespace cardpanels::cardprint
