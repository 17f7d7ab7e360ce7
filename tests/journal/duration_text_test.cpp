#include "journal/duration_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace orvane {
namespace {

TEST(FormatDurationTest, CountsFixedYearsAndMonths) {
  constexpr double kSecond = 1.0 / 86400;
  constexpr std::pair<double, const char*> kCases[] = {
      {65 * kSecond, "1 Min. 5 Sek. "},
      {2.0 / 24, "2 Std. "},
      {400 + 3 * kSecond, "1 Jahr 1 Monat 5 Tage 3 Sek. "},
      {31, "1 Monat 1 Tag "},
      {60, "2 Monate "},
      {365, "1 Jahr "},
      {731, "2 Jahre 1 Tag "},
      {kSecond, "1 Sek. "},
      {0.4 * kSecond, ""},
      {0, ""},
      {-1, ""},
      {1 - 0.4 * kSecond, "1 Tag "},
      {2 - kSecond, "1 Tag 23 Std. 59 Min. 59 Sek. "}};
  for (const double start : {0.0, 45385.378553240742}) {
    for (const auto& [days, text] : kCases) {
      EXPECT_EQ(FormatDuration(start, start + days), text) << days;
      const std::int64_t seconds = std::max(0LL, std::llround(days / kSecond));
      EXPECT_EQ(ParseDuration(text), seconds > 0 ? std::optional(seconds) : std::nullopt) << text;
    }
  }
}

TEST(FormatDurationTest, ReadsNothingIntoOtherTexts) {
  for (const char* text :
       {"", " ", "Besetzt", "5", "5 Min. 3", "Min. 5", "5 Sek. 3 Min.", "0 Sek.", "-5 Sek.",
        "1 Tage", "2 Tag", "5 Sek. 5 Sek.", "5x Sek.", "99999999999 Sek.", "5  Sek."}) {
    EXPECT_EQ(ParseDuration(text), std::nullopt) << text;
  }
  EXPECT_EQ(ParseDuration("1 Std. 5 Sek."), 3605);
}

}  // namespace
}  // namespace orvane
