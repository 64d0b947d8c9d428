#pragma once

#include <string>

namespace cardpanels::host {
struct CardGeometry;
}

/// What people read about lengths on a card: in the user's language, in millimeters, or in inches
/// where the locale measures so (`LC_MEASUREMENT`), with the locale's decimal point (`LC_NUMERIC`).
namespace cardpanels::dialog {

struct CardArea;

/// Whether the locale measures in inches.
bool measuresInInches();

/// `number` rounded to so many decimals, without zeros at the end, with a point in every language.
std::string decimalText(double number, int decimals);

/// A length in points, such as `3 mm` or `0.118 in`.
std::string lengthText(double points);

/// The size of the card, such as `85.6 × 54 mm`. Empty when the PPD tells none.
std::string cardSizeText(const host::CardGeometry& card);

/// What is said of two lengths in points, such as `25 by 8 mm`.
std::string sizeInWords(double width, double height);

/// What a number without a unit means in a field, and how long that is on this printer.
std::string unitHelp(const host::CardGeometry& card);

/// What an area includes or excludes, with its measurements as typed, such as
/// `Includes 25mm × 8mm at X 12mm, Y 5mm`. Missing ones are `0px`, as in the job. Empty for no
/// area.
std::string areaText(const CardArea& area);

}  // namespace cardpanels::dialog
