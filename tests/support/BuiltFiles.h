#pragma once

#include <string>

/// What was built, and what lies in the checkout.
namespace cardpanels::test {

/// The plug-in's bundle.
std::string builtBundle();

/// cardprint without its dialog and without a display, in English, for a shell that puts arguments
/// behind it.
std::string cardprintCommand();

/// The PPD of a printer for both sides with everything.
std::string duplexPPD();

}  // namespace cardpanels::test
