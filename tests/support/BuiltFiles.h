#pragma once

#include <string>

/// What was built, and what lies in the checkout.
namespace cardpanels::test {

/// The plug-in's bundle.
std::string builtBundle();

/// The PPD of a printer for both sides with everything.
std::string duplexPPD();

}  // namespace cardpanels::test
