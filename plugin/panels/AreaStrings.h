#pragma once

namespace cardpanels {

/// Joins four measurements, as typed, to one area text such as `0.5in 0.25in 2in 1in`. An absent or
/// empty one becomes `0px`; the empty text comes of four such ones, and of any of more than 20
/// characters. What is joined is not checked. Never null; the text stands until the next call.
const char* formatArea(const char* x, const char* y, const char* width, const char* height);

/// Splits an area text, with or without `Custom.` before it, into its four measurements: each an
/// unsigned decimal number and a unit, `in`, `cm`, `mm`, `px` or `"`. Signs are dropped; a number
/// without a unit before another number gets `px`. All four are empty for an absent area and for
/// what is none, such as a measurement of more than 20 characters. Never null; the texts stand
/// until the next call.
void parseArea(const char* area, const char*& x, const char*& y, const char*& width,
               const char*& height);

}  // namespace cardpanels
