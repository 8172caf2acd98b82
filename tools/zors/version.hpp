// Versions, and what the processor has.
#pragma once

#include <string>

namespace tool {

/// The processor features that the library needs and that are missing, in words; empty where all are there.
std::string missingFeatures();
std::string versionText();

}  // namespace tool
