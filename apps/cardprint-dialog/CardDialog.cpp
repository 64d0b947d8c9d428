#include "apps/cardprint-dialog/CardDialog.h"

#include <glibmm/main.h>
#include <gtkmm/separator.h>

#include <algorithm>

#include "apps/cardprint-dialog/SendingDialog.h"
#include "apps/cardprint/Layout.h"
#include "apps/cardprint/StandardInput.h"
#include "dialog/PresetWork.h"
#include "dialog/PrinterStateText.h"
#include "dialog/StateWatch.h"
#include "host/CardGeometry.h"
#include "host/Error.h"
#include "host/JobOptions.h"
#include "host/ServerThread.h"
#include "host/Submission.h"
#include "platform/Messages.h"
#include "ports/gtk/MainLoop.h"
#include "ports/gtk3/WindowWidth.h"

namespace cardpanels::cardprint {
namespace {

using platform::_;

constexpr int kWidth = 720;
constexpr int kHeight = 480;  // of the panels
constexpr int kButtonMargin = 6;

// Responses, so that windows on top of this one open outside of any handler: assistive technology
// waits for these.
enum Response { kAddFiles = 1, kOtherOptions, kOtherPrinter };

}  // namespace

std::vector<std::string> CardDialog::captions() {
  std::vector<std::string> all{_("_Cancel"), _("_Print")};
  for (const auto& captions : {JobHeader::captions(), FileList::captions()})
    all.insert(all.end(), captions.begin(), captions.end());
  return all;
}

CardDialog::CardDialog(DialogJob& job, WindowWaiter& waiter, const std::string& told)
    : waiter_(waiter),
      header_({.changePrinter = [this](const std::string& queue) { wantPrinter(queue); },
               .openPrinters = [this] { readPrinters(); },
               .showOtherOptions = [this] { response(kOtherOptions); },
               .attributesChanged = [this] { optionsChanged(); }}),
      files_({.wantMore = [this] { response(kAddFiles); },
              .changed = [this] { filesChanged(); },
              .tell = [this](const std::string& message) { page().tell(message); }}) {
  auto& content = *get_content_area();
  content.set_border_width(0);
  content.pack_start(header_, Gtk::PACK_SHRINK);
  content.pack_start(files_, Gtk::PACK_SHRINK);
  content.pack_start(*Gtk::make_managed<Gtk::Separator>(), Gtk::PACK_SHRINK);
  content.pack_start(place_, Gtk::PACK_EXPAND_WIDGET);
  content.pack_start(*Gtk::make_managed<Gtk::Separator>(), Gtk::PACK_SHRINK);
  for (Gtk::Widget* each : content.get_children()) each->show();
  add_button(_("_Cancel"), Gtk::RESPONSE_CANCEL);
  print_ = dynamic_cast<Gtk::Button*>(add_button(_("_Print"), Gtk::RESPONSE_OK));
  print_->get_parent()->property_margin() = kButtonMargin;
  set_default_response(Gtk::RESPONSE_OK);
  files_.takeDropsOn(*this);
  waiter_.setParent(this);
  showJob(job, told);
  setDefaultSize();
}

CardDialog::~CardDialog() {
  waiter_.setParent(nullptr);
  job().panels().setObserver(nullptr);
}

void CardDialog::showJob(DialogJob& job, const std::string& told) {
  if (&job != job_) {
    watching_.reset();
    options_.reset();
    if (job_ != nullptr) job_->panels().setObserver(nullptr);  // what a page that goes has to tell
    page_.reset();
    document_ = {};
    job_ = &job;
    set_title(Glib::ustring::compose(_("Print on %1"), job.printerName()));
    page_ = std::make_unique<gtk3::CardPage>(job.panels());
    page_->widenWindowWhenSeen();
    place_.pack_start(*page_, Gtk::PACK_EXPAND_WIDGET);
    page_->show();
    job.panels().setObserver(this);
    if (get_mapped()) page_->focusSections();
    watchPrinter();
    offerPresets();
  }
  header_.showJob(job);
  const auto& files = job.files();
  const bool isInput = !files.empty() && files.front() == kStandardInput;
  files_.set_visible(!job.queue().queue.empty() && !isInput);
  files_.setFiles(files);
  filesChanged();
  page().keep(told);
  for (const std::string& each : job.leftOut()) page().keep(each);
  if (get_mapped()) readPrinters();
  showDocument();
}

/// Draws the first file on a thread, for the card's size as it is now.
void CardDialog::showDocument() {
  const auto [path, attributes] = job().firstFile();
  const host::CardGeometry card = host::cardGeometry(job().panels().job());
  const CardDocument document{path, card.width, card.height, attributes};
  if (document == document_) return;
  document_ = document;
  if (path.empty() || !card.hasSize()) return;
  drawing_ = host::startServerThread([this, document, alive = std::weak_ptr<bool>(alive_)](
                                         host::Abandonment& /*abandonment*/) {
    const auto pages = drawDocument(document);
    gtk::postToMainLoop([this, document, pages, alive] {
      if (alive.expired() || document != document_) return;
      page_->showDocument({{{pages[0].surface, pages[0].why}, {pages[1].surface, pages[1].why}}});
    });
  });
}

void CardDialog::watchPrinter() {
  if (job().queue().queue.empty()) return;
  watching_ = std::make_shared<dialog::StateWatch>(
      job().queue().queue, gtk::postToMainLoop, [this](const dialog::StateRead& read) {
        page().tellState(dialog::stateLine(read, job().panels().job().ppd()));
      });
}

void CardDialog::offerPresets() {
  if (job().queue().queue.empty()) return;
  page().offerPresets({
      .queue = job().queue(),
      .serverOptions = job().serverOptions(),
      .work = dialog::workOnPresetsOnThread(gtk::postToMainLoop),
      .copies = [this] { return std::to_string(copiesOf(job())); },
      .follow =
          [this](const std::string& copies) {
            job().setAttribute({kCopies, copies});
            header_.refresh();
          },
      .use = [this](const std::string& name) { job().usePreset(name); },
  });
}

/// Wide enough for the panel that is seen first, whatever the size of the text.
void CardDialog::setDefaultSize() {
  page().appear();
  const auto most = gtk3::workArea(*this);
  const int height = static_cast<int>(kHeight * gtk3::textScale());
  int least = 0;
  int above = 0;
  int wide = 0;
  int natural = 0;
  for (Gtk::Widget* each :
       {static_cast<Gtk::Widget*>(&header_), static_cast<Gtk::Widget*>(&files_)}) {
    if (!each->get_visible()) continue;
    each->get_preferred_height(least, natural);
    above += natural;
    each->get_preferred_width(least, natural);
    wide = std::max(wide, natural);
  }
  set_default_size(std::min(std::max({kWidth, page_->naturalWidth(), wide}), most.get_width()),
                   std::min(height + above, most.get_height()));
}

/// The panels have the focus first. The server is asked for all printers once one of them shows.
void CardDialog::on_map() {
  Gtk::Dialog::on_map();
  page_->focusSections();
  Glib::signal_idle().connect_once(sigc::mem_fun(*this, &CardDialog::readPrinters),
                                   Glib::PRIORITY_LOW);
}

void CardDialog::readPrinters() {
  if (job().queue().queue.empty()) return;
  reading_ = dialog::readPrintersOnThread(
      [this](const std::vector<host::ListedQueue>& queues) { showPrinters(queues); },
      gtk::postToMainLoop);
}

void CardDialog::showPrinters(const std::vector<host::ListedQueue>& queues) {
  header_.showPrinters(dialog::printerRows(queues, job().printerName()));
  for (const host::ListedQueue& each : queues) {
    if (each.name == job().queue().queue) files_.setFormats(each.formats);
  }
}

void CardDialog::wantPrinter(const std::string& queue) {
  wantedPrinter_ = queue;
  response(kOtherPrinter);
}

/// Made when it is first asked for.
void CardDialog::showOtherOptions() {
  if (!options_) options_ = std::make_unique<OptionsDialog>(*this, job().panels());
  options_->refresh();
  options_->change();
}

void CardDialog::filesChanged() {
  if (job().files() != files_.files()) job().setFiles(files_.files());
  showDocument();
  print_->set_label(needsFiles() ? _("C_hoose File…") : _("_Print"));
}

bool CardDialog::needsFiles() const {
  return !job().queue().queue.empty() && job().files().empty();
}

void CardDialog::optionsChanged() {
  page().optionsChanged();
  header_.refresh();
  if (options_) options_->refresh();
  showDocument();
}

void CardDialog::tell(const std::string& message, const std::optional<host::Option>& insisted) {
  if (options_) options_->tell(message);
  if (insisted) {
    page().tell(message,
                [this, change = *insisted] { job().panels().insist(change.key, change.value); });
  } else {
    page().tell(message);
  }
}

std::optional<std::string> CardDialog::choose() {
  for (;;) {
    errors_.rethrow();
    const int response = run();
    errors_.rethrow();
    if (!isOver(response)) continue;
    return response == kOtherPrinter ? std::nullopt : output_;
  }
}

bool CardDialog::isOver(int response) {
  switch (response) {
    case Gtk::RESPONSE_OK: return print();
    case kAddFiles: files_.chooseFiles(); return false;
    case kOtherOptions: showOtherOptions(); return false;
    default: return true;
  }
}

/// Answers whether there is nothing more to do.
bool CardDialog::print() {
  if (needsFiles()) {
    files_.chooseFiles();
    return false;
  }
  try {
    if (!page().mayPrint([this] { response(Gtk::RESPONSE_OK); })) return false;
    const bool isSent = job().files().size() > 1 && files_.makesJobEach() ? sendEach() : send();
    if (isSent) error_.clear();
    return isSent;
  } catch (const host::PPDChanged&) {
    throw;  // this dialog is on the PPD that was
  } catch (const Cancelled&) {
    page().tell(_("Nothing was printed."));
    return false;
  } catch (const host::Error& error) {
    error_ = error.what();
    page().tellError(error_);
    return false;
  }
}

bool CardDialog::send() {
  const std::string output = job().send();
  output_ = output_.value_or("") + output;
  return true;
}

/// What was not sent stays in the list.
bool CardDialog::sendEach() {
  SendingDialog sending(*this, job(), waiter_, files_.stopsAtFailure());
  sending.send();
  const dialog::Batch& batch = sending.batch();
  const auto ids = batch.sentIds();
  if (!ids.empty()) output_ = output_.value_or("") + job().sent(ids);
  const auto unsent = batch.unsentFiles();
  if (unsent.empty()) return true;
  files_.setFiles(unsent);
  filesChanged();
  if (batch.ppdChanged()) throw host::PPDChanged(*batch.ppdChanged());
  throw host::Error(dialog::progressLine(batch));
}

}  // namespace cardpanels::cardprint
