#include "dialing/number_preparation.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

struct Case {
  const char *text, *prefix, *number;
};

TEST(NumberPreparationTest, PreparesTheDialForm) {
  const Case kCases[] = {{"+49 (30) 123-45", "+49", "03012345"},
                         {"0049301234", "+49", "0301234"},
                         {"+43 1 234", "+49", "00431234"},
                         {"+4930", "+49", "030"},
                         {"+49030", "+49", "030"},
                         {" 030/12.34\\5 ", "+49", "03012345"},
                         {"(0049) 30", "+49", "004930"},
                         {"0 049", "+49", "0049"},
                         {"*31#", "+49", "*31#"},
                         {"+43 1", "", "00431"},
                         {"+49", "+49", "0"},
                         {"", "+49", ""}};
  for (const auto& [text, prefix, number] : kCases) {
    EXPECT_EQ(PrepareDialNumber(text, prefix), number) << text;
  }
}

TEST(NumberPreparationTest, NormalizesToTheInternationalForm) {
  const Case kCases[] = {{"+43 1 234", "+49", "431234"},
                         {"0049 30 1234", "+49", "49301234"},
                         {"030 1234", "+49", "49301234"},
                         {"301234", "+49", "49301234"},
                         {"(00) 49 30", "+49", "4930"},
                         {"030 1234", "49", ""},
                         {"030 1234", "+4", ""},
                         {"030 1234", "+43", "43301234"},
                         {"", "+49", "49"}};
  for (const auto& [text, prefix, number] : kCases) {
    EXPECT_EQ(NormalizeNumber(text, prefix), number) << text;
  }
}

TEST(NumberPreparationTest, FiltersCharactersWithoutRegardToCase) {
  EXPECT_EQ(FilterChars("aBcä1", "Abä", true), "aBä");
  EXPECT_EQ(FilterChars("aBcä1", "Abä", false), "c1");
  EXPECT_EQ(FilterChars("Tel: +49 (30) 1-2!", kNumberFieldCharacters, true), " +49 (30) 1-2!");
  EXPECT_EQ(FilterChars("\xff\x80z", "z", true), "z");
  EXPECT_EQ(FilterChars("\x80"
                        "5",
                        kDigits, true),
            "5");
  for (const char* text : {"", "0", "00 - 00", "*#!"}) EXPECT_FALSE(HoldsNumber(text)) << text;
  for (const char* text : {"1", "0 - 9", "*31#"}) EXPECT_TRUE(HoldsNumber(text)) << text;
}

}  // namespace
}  // namespace orvane
