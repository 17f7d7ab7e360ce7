#include "app/unscramble_setting.h"

#include <gtest/gtest.h>

#include "scramble_setting.h"

namespace orvane {

// Stored values of existing installations: these pairs may never change.
TEST(UnscrambleSetting, ReadsWhatHostsHaveStored) {
  constexpr std::pair<const char*, const char*> kCases[] = {
      {"", ""},
      {"a", "EF0080"},
      {"sa", "FDC5120F"},
      {"~.~", "F08A5E538B"},
      {"SRV-TALMIX\\SQL2017", "DDF676AEA430F23C58AA09FBA1AE15E360844042"},
      {"Grün§7€", "C9D6DCED57463E24F2"}};
  for (const auto& [plain, stored] : kCases) {
    EXPECT_EQ(UnscrambleSetting(stored, kScrambleKey, kScrambleRounds), plain);
    EXPECT_EQ(ScrambleSetting(plain, kScrambleKey, kScrambleRounds), stored);
  }
}

TEST(UnscrambleSetting, LeavesOtherTextUnchanged) {
  // A plain marker, a missing digit, wrong checksum and text, lower case, no text, other signs.
  for (const std::string& text :
       {std::string("~.~"), std::string("FDC5120"), std::string("FDC51210"),
        std::string("ADC5120F"), std::string("fdc5120f"), std::string("0001"), std::string("SRVÜ"),
        std::string("FDC5 120F"), std::string("FD\0C5120F", 9), std::string(1'000'001, 'A')}) {
    EXPECT_EQ(UnscrambleSetting(text, kScrambleKey, kScrambleRounds), text);
  }
}

}  // namespace orvane
