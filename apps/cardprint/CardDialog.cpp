#include "apps/cardprint/CardDialog.h"

#include <gtkmm/button.h>
#include <gtkmm/separator.h>

#include "host/Error.h"
#include "platform/Messages.h"

namespace cardpanels::cardprint {
namespace {

using platform::_;

constexpr int kWidth = 720;
constexpr int kHeight = 480;
constexpr int kButtonMargin = 6;

std::string joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : "\n") + line;
  return text;
}

}  // namespace

CardDialog::CardDialog(CardJob& job)
    : Gtk::Dialog(Glib::ustring::compose(_("Print on %1"), job.printerName())),
      job_(job),
      page_(job.panels()) {
  get_content_area()->set_border_width(0);
  get_content_area()->pack_start(page_, Gtk::PACK_EXPAND_WIDGET);
  get_content_area()->pack_start(*Gtk::make_managed<Gtk::Separator>(), Gtk::PACK_SHRINK);
  get_content_area()->show_all();
  add_button(_("_Cancel"), Gtk::RESPONSE_CANCEL);
  auto* const print = add_button(_("_Print"), Gtk::RESPONSE_OK);
  print->get_parent()->property_margin() = kButtonMargin;
  set_default_response(Gtk::RESPONSE_OK);
  set_default_size(kWidth, kHeight);
  job_.panels().setObserver(this);
  page_.page().tell(joined(job_.notices()));
}

CardDialog::~CardDialog() { job_.panels().setObserver(nullptr); }

void CardDialog::tell(const std::string& message, const std::optional<host::Option>& insisted) {
  told_ = message;
  if (insisted) {
    page_.page().tell(
        message, [this, change = *insisted] { job_.panels().insist(change.key, change.value); });
  } else {
    page_.page().tell(message);
  }
}

std::optional<std::string> CardDialog::choose() {
  while (run() == Gtk::RESPONSE_OK) {
    if (auto output = print()) return output;
  }
  return std::nullopt;
}

std::optional<std::string> CardDialog::print() {
  try {
    if (!page_.page().hasOnlyGoodTexts() || !storedSilently()) return std::nullopt;
    auto output = job_.send();
    error_.clear();
    return output;
  } catch (const host::Error& error) {
    error_ = error.what();
    page_.page().tellError(error_);
    return std::nullopt;
  }
}

/// Stores what was typed. False when that told the user something new, who shall see it before the
/// job is gone.
bool CardDialog::storedSilently() {
  const std::string before = told_;
  job_.panels().print();
  return told_.empty() || told_ == before;
}

}  // namespace cardpanels::cardprint
