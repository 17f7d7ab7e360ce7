#include <gtest/gtest.h>

#include "fakes/temporary_folder.h"
#include "platform/settings/linux/profile_ini_file.h"

namespace orvane {

TEST(ProfileIniFile, AHugeFileDoesNotHoldTheProgram) {
  const TemporaryFolder folder;
  const auto file = folder.Write("a.ini", "[Tel]\nx=" + std::string(5'000'000, 'x') + "\ny=1");
  EXPECT_EQ(ProfileIniFile().Read("Tel", "y", file.string(), "fallback"), "fallback");
  EXPECT_EQ(ProfileIniFile().Read("Tel", "y", "/dev/zero", "fallback"), "fallback");
}

TEST(ProfileIniFile, UmlautsOfNamesIgnoreTheLetterCase) {
  const TemporaryFolder folder;
  const std::string file = folder.Write("a.ini", "[\xDC\x42]\n\x8EL=1\n\xFF=2").string();
  EXPECT_EQ(ProfileIniFile().Read("üb", "žl", file, ""), "1");
  EXPECT_EQ(ProfileIniFile().Read("ÜB", "Ÿ", file, ""), "2");
}

}  // namespace orvane
