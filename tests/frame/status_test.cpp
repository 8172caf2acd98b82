#include "zors_status.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <string>

extern "C" int zorsHeadersInC();

namespace {

TEST(Status, NamesAndTextsAreThoseOfTheHeader) {
  std::ifstream header(ZORS_SOURCE_DIR "/include/zors.h");
  const std::regex line(R"( *(zor(?:Status|Warning)\w+) = (-?\d+), +/\* (.*) \*/)");
  int codes = 0;
  std::smatch found;
  for (std::string text; std::getline(header, text);) {
    if (!std::regex_match(text, found, line)) continue;
    ++codes;
    const ZorStatus status = std::stoi(found[2]);
    EXPECT_EQ(zorsStatusName(status), found[1].str());
    EXPECT_EQ(zorsStatusText(status), found[3].str());
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
