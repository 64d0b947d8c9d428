#pragma once

#include <string>
#include <vector>

#include "apps/cardprint/DialogJob.h"

/// How a job's documents are laid on the cards, and how many of them: attributes of the job, beside
/// the PPD's options.
namespace cardpanels::cardprint {

inline constexpr const char* kCopies = "copies";  // the attribute
inline constexpr int kMostCopies = 9999;

int copiesOf(const DialogJob& job);
void setCopies(DialogJob& job, int copies);

/// A way to turn a document.
struct Orientation {
  std::string value;  // of `orientation-requested`; empty for as it is
  std::string title;
};
std::vector<Orientation> orientations();

/// The place of the job's among `orientations`.
std::size_t orientationOf(const DialogJob& job);
void setOrientation(DialogJob& job, const std::string& value);

/// Whether documents are made as large as the card.
bool isFitted(const DialogJob& job);
void setFitted(DialogJob& job, bool isFitted);

}  // namespace cardpanels::cardprint
