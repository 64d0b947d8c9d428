#include "apps/cardprint-dialog/JobHeader.h"

#include <utility>

#include "apps/cardprint/Layout.h"
#include "dialog/OtherOptions.h"
#include "host/MediaOption.h"
#include "platform/Messages.h"

namespace cardpanels::cardprint {
namespace {

using platform::_;

constexpr int kHeaderMargin = 6;

}  // namespace

std::vector<std::string> JobHeader::captions() {
  return {_("Prin_ter"), _("Card si_ze"),         _("O_rientation"),
          _("Cop_ies"),  _("Fit to _whole card"), _("Ot_her Options…")};
}

JobHeader::JobHeader(Actions actions)
    : actions_(std::move(actions)),
      printer_([this](const std::string& queue) { actions_.changePrinter(queue); }),
      size_([this](const std::string& size) { chooseSize(size); }),
      orientation_([this](const std::string& value) {
        attributeChosen([&] { setOrientation(*job_, value); });
      }),
      fit_(_("Fit to _whole card"), true),
      others_(_("Ot_her Options…"), true),
      printerLabel_(_("Prin_ter"), true),
      sizeLabel_(_("Card si_ze"), true),
      orientationLabel_(_("O_rientation"), true),
      copiesLabel_(_("Cop_ies"), true) {
  set_row_spacing(kHeaderMargin);
  set_column_spacing(kHeaderMargin);
  property_margin() = kHeaderMargin;
  copies_.set_range(1, kMostCopies);
  copies_.set_increments(1, 10);
  copies_.set_numeric();
  copies_.signal_value_changed().connect(
      [this] { attributeChosen([this] { setCopies(*job_, copies_.get_value_as_int()); }); });
  fit_.signal_toggled().connect(
      [this] { attributeChosen([this] { setFitted(*job_, fit_.get_active()); }); });
  others_.signal_clicked().connect([this] { actions_.showOtherOptions(); });
  printer_.property_popup_shown().signal_changed().connect([this] {
    if (printer_.property_popup_shown()) actions_.openPrinters();
  });
  // Assistive technology reads a grid's last child first.
  attach(fit_, 4, 1, 2, 1);
  addRow(1, 2, orientationLabel_, orientation_);
  addRow(1, 0, sizeLabel_, size_);
  attach(others_, 6, 1);
  addRow(0, 4, copiesLabel_, copies_);
  addRow(0, 0, printerLabel_, printer_);
  show_all_children();
}

void JobHeader::addRow(int row, int column, Gtk::Label& label, Gtk::Widget& widget) {
  label.set_xalign(1);
  label.set_mnemonic_widget(widget);
  widget.set_hexpand(&widget != &copies_);
  attach(widget, column + 1, row, &widget == &printer_ ? 3 : 1, 1);
  attach(label, column, row);
}

void JobHeader::showJob(DialogJob& job) {
  job_ = &job;
  const bool hasQueue = !job.queue().queue.empty();
  printer_.set_visible(hasQueue);
  printerLabel_.set_visible(hasQueue);
  if (hasQueue) showPrinters(dialog::printerRows({}, job.printerName()));
  others_.set_visible(
      !dialog::otherOptions(job.panels().job(), job.panels().claimedKeys()).empty());
  std::vector<ChoiceBox::Item> turns;
  for (const Orientation& each : orientations()) turns.push_back({each.value, each.title});
  orientation_.showItems(turns, turns[orientationOf(job)].value);
  isShowing_ = true;
  fit_.set_active(isFitted(job));
  isShowing_ = false;
  refresh();
}

void JobHeader::refresh() {
  isShowing_ = true;
  copies_.set_value(copiesOf(*job_));
  isShowing_ = false;
  const host::JobOptions& job = job_->panels().job();
  const bool hasSize = job.hasOption(host::kPageSize);
  size_.set_visible(hasSize);
  sizeLabel_.set_visible(hasSize);
  if (!hasSize) return;
  const auto row = dialog::optionRow(job, host::kPageSize);
  std::vector<ChoiceBox::Item> sizes;
  for (const auto& each : row.items) sizes.push_back({each.choice, each.title});
  size_.showItems(sizes, row.chosen ? std::optional(row.items[*row.chosen].choice) : std::nullopt);
}

void JobHeader::attributeChosen(const std::function<void()>& set) {
  if (isShowing_) return;
  set();
  actions_.attributesChanged();
}

void JobHeader::chooseSize(const std::string& size) {
  job_->panels().change(host::kPageSize, size);
  refresh();  // also when it was refused
}

void JobHeader::showPrinters(const std::vector<dialog::PrinterRow>& rows) {
  std::vector<ChoiceBox::Item> items;
  items.reserve(rows.size());
  for (const auto& each : rows) items.push_back({each.queue, each.text});
  printer_.showItems(items, job_->printerName());
}

}  // namespace cardpanels::cardprint
