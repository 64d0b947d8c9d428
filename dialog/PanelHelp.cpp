#include "dialog/PanelHelp.h"

#include <initializer_list>
#include <span>
#include <string_view>

#include "platform/ASCII.h"
#include "platform/Messages.h"

namespace cardpanels::dialog {
namespace {

using platform::_;
using platform::filled;

// The choices, by their places, with which the panels show more of a side.
constexpr std::size_t kResinRibbon = 3;
constexpr std::size_t kResinAreas = 11;
constexpr std::size_t kPeelOffAreas = 12;

/// The title of a choice by its place, "" for none.
std::string choiceTitle(const ppd_option_t* option, std::size_t place) {
  if (option == nullptr) return {};
  const std::span choices(option->choices, static_cast<std::size_t>(option->num_choices));
  return place < choices.size() ? choices[place].text : "";
}

/// The first of these options that the printer has, null for none.
ppd_option_t* firstOf(ppd_file_t* ppd, std::initializer_list<const char*> keys) {
  for (const char* key : keys) {
    if (auto* option = ppd != nullptr ? ppdFindOption(ppd, key) : nullptr) return option;
  }
  return nullptr;
}

bool measuresFromBottom(ppd_file_t* ppd) {
  const ppd_attr_t* const origin =
      ppd != nullptr ? ppdFindAttr(ppd, "cardpanelsOrigin", nullptr) : nullptr;
  return origin != nullptr && origin->value != nullptr &&
         platform::equalIgnoringCase(origin->value, "BottomLeft");
}

void addMeasuring(Paragraphs& text, ppd_file_t* ppd) {
  text.emplace_back(
      _("An area is four measurements: X, Y, width, and height. Type each as a number with a unit: "
        "in, cm, mm, px, or \" for inches. A number without a unit counts pixels. Leave all four "
        "fields empty for no area."));
  text.emplace_back(measuresFromBottom(ppd)
                        ? _("X 0 and Y 0 is the bottom left corner of the card.")
                        : _("X 0 and Y 0 is the top left corner of the card."));
  text.emplace_back(_(
      "In the picture of the card, draw an area with the mouse, drag it or one of its edges. With "
      "the keyboard, arrows choose an area and move it by 1 mm, with Ctrl by 0.1 mm, and with "
      "Shift they change its size; Delete clears it, Insert makes a new one, Enter goes to its "
      "fields."));
}

Paragraphs ribbonHelp(ppd_file_t* ppd) {
  Paragraphs text{_("Choose the ribbon that each side of the card is printed with.")};
  const std::string ribbon = choiceTitle(firstOf(ppd, {"frontRibbon", "backRibbon"}), kResinRibbon);
  const std::string areas = choiceTitle(firstOf(ppd, {"frontResin", "backResin"}), kResinAreas);
  if (ribbon.empty() || areas.empty()) return text;
  text.push_back(filled(_("With the ribbon “{ribbon}” you also choose what is printed in black "
                          "resin, and with the resin “{areas}” the fields for areas show."),
                        {{"ribbon", ribbon}, {"areas", areas}}));
  text.emplace_back(_(
      "The page “Include” has up to three areas that are printed in resin, and the page “Exclude” "
      "up to three that are not."));
  addMeasuring(text, ppd);
  return text;
}

Paragraphs peelOffHelp(ppd_file_t* ppd) {
  Paragraphs text{
      _("Choose the parts of each side that stay free of film, such as a chip or a "
        "magnetic stripe.")};
  const std::string areas = choiceTitle(firstOf(ppd, {"frontPO", "backPO"}), kPeelOffAreas);
  if (areas.empty()) return text;
  text.push_back(filled(_("With “{areas}” the fields for areas show: up to three peel-off areas, "
                          "which stay free of film, and up to three non-peel-off areas, which "
                          "keep it."),
                        {{"areas", areas}}));
  addMeasuring(text, ppd);
  return text;
}

Paragraphs textOf(std::string_view kind, ppd_file_t* ppd) {
  if (kind.ends_with(".RibbonPanelKind")) return ribbonHelp(ppd);
  if (kind.ends_with(".PeelOffKind")) return peelOffHelp(ppd);
  if (kind.ends_with(".UltravioletKind")) {
    return {_("Choose what is printed on each side of the card in ultraviolet ink, which shows "
              "under ultraviolet light only."),
            _("MAC is an additional ultraviolet mark, such as a serial number or a pattern.")};
  }
  if (kind.ends_with(".ThermalLaminateKind")) {
    return {_("Choose the sides of the card that get a protective laminate.")};
  }
  if (kind.ends_with(".CardHandlingKind")) {
    return {_("Rotation turns what is printed on a side of the card."),
            _("Card flip turns the card over, when it enters the printer or for the encoding of "
              "its magnetic stripe.")};
  }
  return {};
}

const char* keys() { return _("Ctrl+Page Up and Ctrl+Page Down go to the panel above and below."); }

}  // namespace

Paragraphs panelHelp(platform::PrintPanel& panel, ppd_file_t* ppd) {
  Paragraphs text = textOf(panel.panelKind().value_or(""), ppd);
  text.emplace_back(keys());
  return text;
}

Paragraphs summaryHelp() {
  return {_("This is all that is chosen on the panels. To change something, go to its panel."),
          keys()};
}

}  // namespace cardpanels::dialog
