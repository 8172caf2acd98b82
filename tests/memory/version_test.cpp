#include <gtest/gtest.h>

#include <cstring>

#include "zors/memory.h"


namespace {

TEST(Version, TwoCallsGiveTheSameRecord) {
  const ZorLibraryVersion* const version = zorsGetLibVersion();
  ASSERT_NE(version, nullptr);
  EXPECT_EQ(zorsGetLibVersion(), version);
  EXPECT_EQ(version->major, 8);
  EXPECT_EQ(version->minor, 2);
  EXPECT_EQ(version->majorBuild, 3);
  EXPECT_EQ(version->build, 48108);
  EXPECT_EQ(std::memcmp(version->targetCpu, "l9\0\0", 4), 0);
  EXPECT_STREQ(version->Name, "zorSP AVX2 (l9)");
  EXPECT_STREQ(version->Version, "8.2.3 (r48108)");
  EXPECT_STREQ(version->BuildDate, "Jul 23 2015");
}

}  // namespace
