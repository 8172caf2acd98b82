#include "zors/types.h"
#include "zors_status.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>

extern "C" int zorsHeadersInC();

namespace {

TEST(Status, NamesAndTextsAreThoseOfTheHeader) {
  std::ifstream header(ZORS_SOURCE_DIR "/include/zors/types.h");
  int codes = 0;
  for (std::string line; std::getline(header, line);) {
    char name[64];
    ZorStatus status;
    int at = 0;
    if (std::sscanf(line.c_str(), " zor%60[A-Za-z] = %d, /* %n", name, &status, &at) != 2 || at == 0) continue;
    const bool isStatus = std::string(name).starts_with("Status") || std::string(name).starts_with("Warning");
    if (!isStatus) continue;
    ++codes;
    EXPECT_EQ(zorsStatusName(status), std::string("zor") + name);
    EXPECT_EQ(zorsStatusText(status), line.substr(std::size_t(at), line.find(" */") - std::size_t(at)));
  }
  EXPECT_EQ(codes, 51);
}
TEST(Status, OtherValuesAreUnknown) {
  for (ZorStatus status : {1, 2, 10, 28, -1, -14, -300, INT32_MIN, INT32_MAX}) {
    EXPECT_STREQ(zorsStatusName(status), "unknown status");
    EXPECT_STREQ(zorsStatusText(status), "unknown status");
  }
}
TEST(Status, ErrorsAreNegativeAndWarningsPositive) {
  for (ZorStatus status = -300; status <= 300; ++status) {
    const std::string name = zorsStatusName(status);
    if (name.starts_with("zorWarning")) {
      EXPECT_GT(status, 0) << name;
    } else if (name.starts_with("zorStatusBad")) {
      EXPECT_LT(status, 0) << name;
    }
  }
}

TEST(Headers, CompileAsC99) { EXPECT_EQ(zorsHeadersInC(), 1); }

}  // namespace
