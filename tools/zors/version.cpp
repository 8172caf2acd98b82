#include "version.hpp"

#include <fmt/format.h>

#include "zorcore.h"
#include "zors.h"

namespace tool {

namespace {

constexpr struct {
  unsigned long long bit;
  const char* name;
  bool needed;
} features[] = {{ZOR_CPU_SSE2, "SSE2", false}, {ZOR_CPU_SSE42, "SSE4.2", false}, {ZOR_CPU_POPCNT, "POPCNT", false},
                {ZOR_CPU_AVX, "AVX", false},   {ZOR_CPU_AVX2, "AVX2", true},     {ZOR_CPU_FMA, "FMA", true},
                {ZOR_CPU_BMI1, "BMI1", false}, {ZOR_CPU_BMI2, "BMI2", false},    {ZOR_CPU_F16C, "F16C", false}};

}  // namespace

std::string missingFeatures() {
  const auto enabled = zorGetEnabledCpuFeatures();
  std::string missing;
  for (const auto& feature : features) {
    if (feature.needed && !(enabled & feature.bit))
      missing += (missing.empty() ? "" : " and ") + std::string(feature.name);
  }
  return missing;
}

std::string versionText() {
  const auto* library = zorsGetLibVersion();
  std::string has;
  for (const auto& feature : features) {
    if (zorGetEnabledCpuFeatures() & feature.bit) has += std::string(" ") + feature.name;
  }
  return fmt::format("zors {}\nlibrary: {} {}\nprocessor:{}", ZORS_VERSION, library->Name, library->Version, has);
}

}  // namespace tool
