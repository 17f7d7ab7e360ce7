#include "app/unscramble_setting.h"

#include <gtest/gtest.h>

#include <string>

#include "scramble_setting.h"

namespace orvane {
namespace {

std::string Unscramble(std::string_view text) {
  return UnscrambleSetting(text, kScrambleKey, kScrambleRounds);
}

// Stored values of existing installations: these pairs may never change.
TEST(UnscrambleSetting, ReadsWhatHostsHaveStored) {
  const struct {
    std::string plain;
    std::string stored;
  } cases[] = {
      {"", ""},
      {"a", "EF0080"},
      {"sa", "FDC5120F"},
      {"~.~", "F08A5E538B"},
      {"SRV-TALMIX\\SQL2017", "DDF676AEA430F23C58AA09FBA1AE15E360844042"},
      {"Grün§7€", "C9D6DCED57463E24F2"},
  };
  for (const auto& item : cases) {
    SCOPED_TRACE(item.plain);
    EXPECT_EQ(Unscramble(item.stored), item.plain);
    EXPECT_EQ(ScrambleSetting(item.plain, kScrambleKey, kScrambleRounds), item.stored);
  }
}

TEST(UnscrambleSetting, LeavesOtherTextUnchanged) {
  const std::string cases[] = {
      "~.~",       // the plain marker
      "FDC5120",   // a digit is missing
      "FDC51210",  // wrong checksum
      "ADC5120F",  // wrong text
      "fdc5120f",  // the host writes upper case
      "0001",      // a checksum without a text
      "FDC5 120F", "GG", "SRVÜ", std::string("FD\0C5120F", 9), std::string(1'000'001, 'A'),
  };
  for (const auto& text : cases) {
    SCOPED_TRACE(text.substr(0, 20));
    EXPECT_EQ(Unscramble(text), text);
  }
}

TEST(UnscrambleSetting, InvertsEveryByteUnderEveryKey) {
  std::string plain;
  for (int c = 1; c < 128; ++c) plain += static_cast<char>(c);
  plain += "ÄÖÜäöüß€¿ÿ";
  for (const std::string key : {"", "k", "Talmix-Nordel", "ein Schlüssel, länger als der Text"}) {
    for (const int rounds : {-1, 0, 1, 7}) {
      SCOPED_TRACE(key + " " + std::to_string(rounds));
      const auto stored = ScrambleSetting(plain, key, rounds);
      EXPECT_EQ(UnscrambleSetting(stored, key, rounds), plain);
    }
  }
  EXPECT_NE(ScrambleSetting(plain, "k", 1), ScrambleSetting(plain, "k", 2));
  EXPECT_NE(ScrambleSetting(plain, "k", 1), ScrambleSetting(plain, "K", 1));
}

}  // namespace
}  // namespace orvane
