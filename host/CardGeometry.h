#pragma once

namespace cardpanels::host {

class JobOptions;

/// What a job's marks say about the card. Lengths are in points (1/72 inch).
struct CardGeometry {
  static constexpr double kUsualDotsPerInch = 300;

  /// What the printer cannot reach at each edge.
  struct Margins {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    bool operator==(const Margins&) const = default;
  };

  double width = 0;
  double height = 0;
  Margins margins = {};

  double dotsPerInchAcross = kUsualDotsPerInch;
  double dotsPerInchDown = kUsualDotsPerInch;

  /// Whether the PPD names the resolution; without it, the usual one is only a guess.
  bool hasResolution = false;

  /// Whether 0/0 is the bottom left corner (`*cardpanelsOrigin: BottomLeft`), else the top left.
  bool countsFromBottom = false;

  /// Whether the PPD tells the size; without it, width and height are 0.
  bool hasSize() const { return width > 0 && height > 0; }

  bool operator==(const CardGeometry&) const = default;
};

/// The card as `job` is marked now. Its size is that of the marked page size, which may be a custom
/// one; without a mark, of the PPD's default or else first one. Its resolution is what the marked
/// choice of `Resolution` sets in the printer (`HWResolution`) or is called (`300x600dpi`), else
/// what any other marked choice sets, else `*DefaultResolution`.
CardGeometry cardGeometry(const JobOptions& job);

}  // namespace cardpanels::host
