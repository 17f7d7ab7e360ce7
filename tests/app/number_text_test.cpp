#include "app/number_text.h"

#include <gtest/gtest.h>

#include "platform/errors.h"

namespace orvane {

TEST(NumberTextTest, ReadsTheLeadingNumberAndRoundsItWithin32Bits) {
  constexpr std::pair<const char*, double> kCases[] = {
      {"17", 17},    {" 1 7x", 17}, {"", 0},     {"x17", 0},  {"-3", -3},  {"+4", 4},
      {"2.5a", 2.5}, {"+-4", 0},    {"nan", 0},  {"inf", 0},  {"-inf", 0}, {".5", 0.5},
      {"-", 0},      {"1e5", 1},    {"0x10", 0}, {"\xff", 0}, {"7~", 7}};
  for (const auto& [text, value] : kCases) EXPECT_EQ(LeadingNumber(text), value) << text;
  EXPECT_EQ(RoundToInt32(2.5), 2);
  EXPECT_EQ(RoundToInt32(3.5), 4);
  EXPECT_EQ(RoundToInt32(-2147483648.0), -2147483648);
  EXPECT_THROW(RoundToInt32(2147483648.0), PlatformError);
  EXPECT_THROW(RoundToInt32(LeadingNumber(std::string(400, '9'))), PlatformError);
}

}  // namespace orvane
