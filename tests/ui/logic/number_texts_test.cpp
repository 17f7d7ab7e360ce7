#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ui/logic/clipboard_offer.h"
#include "ui/logic/number_classification.h"
#include "ui/logic/speed_dial_selection.h"

namespace orvane {
namespace {

TEST(NumberFromClipboard, TakesWhatCouldBeANumber) {
  struct Case {
    std::string text;
    std::string number;
  };
  const Case cases[] = {
      {"", ""},
      {"Tel: 030 / 12 345", "030 / 12 345"},
      {"123", ""},
      {"a1b2c3d4", "1234"},
      {" +49 (30) 1234-5 ", "+49 (30) 1234-5"},
      {"<*31#>\t12\\34", "<*31#>12\\34"},
      {std::string(24, '1'), std::string(24, '1')},
      {std::string(25, '1'), ""},
      {"1234" + std::string(30, 'x'), "1234"},
      {"1234" + std::string(31, 'x'), ""},
      // 34 characters in 64 bytes are short enough.
      {"1234" +
           [] {
             std::string umlauts;
             for (int i = 0; i < 30; ++i) umlauts += "ü";
             return umlauts;
           }(),
       "1234"},
      {"1234\xFF\x80", "1234"},
  };
  for (const auto& [text, number] : cases) {
    SCOPED_TRACE(text);
    EXPECT_EQ(NumberFromClipboard(text), number);
  }
}

TEST(ClassifyPrefix, KnowsThePrefixesThatNeedNoTable) {
  struct Case {
    const char* number;
    bool international;
    const char* label;
  };
  const Case cases[] = {
      {"0691", false, "Frankfurt am Main"},
      {"0891", false, "München"},
      {"0401", false, "Hamburg"},
      {"0301234", false, "Berlin"},
      {"0151998877", false, "<Mobilnetz>"},
      {"0160", false, "<Mobilnetz>"},
      {"0171", false, "<Mobilnetz>"},
      {"0321", false, "Ortsunabhängige Rufnummer"},
      {"01033", false, "Call-by-Call"},
      {"0180", false, "Shared-Cost-Dienst"},
      {"0123", false, "Sonderrufnummer"},
      {"0137", false, "Sonderrufnummer"},
      {"0141", false, "Sonderrufnummer"},
      {"0190", false, "Sonderrufnummer"},
      {"07001", false, "Persönliche Rufnummer"},
      {"08001", false, "Freephone"},
      {"09001", false, "Premium-Dienst"},
      {"001212555", true, "USA/Kanada"},
      {"001", true, "USA/Kanada"},
      {"0079", true, "Russland/Kasachstan"},
  };
  for (const auto& [number, international, label] : cases) {
    SCOPED_TRACE(number);
    EXPECT_EQ(ClassifyPrefix(number, international), (NumberClass{label, {}}));
  }
}

TEST(ClassifyPrefix, NamesTheCandidatesForTheAreaCodeTable) {
  struct Case {
    const char* number;
    bool international;
    NumberClass expected;
  };
  const Case cases[] = {
      {"0211445566", false, {"<Inland>", {"0211", "02114", "021144"}}},
      {"217", false, {"<Inland>", {"217", "217", "217"}}},
      {"00431234", true, {"<Ausland>", {"43", "431", "4312"}}},
      {"0018761", true, {"<Ausland>", {"18", "187", "1876"}}},
      {"00", true, {"<Ausland>", {"", "", ""}}},
  };
  for (const auto& [number, international, expected] : cases) {
    SCOPED_TRACE(number);
    EXPECT_EQ(ClassifyPrefix(number, international), expected);
  }
}

TEST(SpeedDialNumber, PicksTheFieldOfTheEntry) {
  struct Case {
    const char* numbers;
    int index;
    const char* number;
  };
  const Case cases[] = {
      {"111|222|", 0, "111"},
      {"111|222|", 1, "222"},
      {"111|222|", 2, ""},
      {"111|222|", 9, ""},
      {"", 0, ""},
      {"||333|", 2, "333"},
      {"111|", -1, ""},
  };
  for (const auto& [numbers, index, number] : cases) {
    SCOPED_TRACE(std::string(numbers) + " " + std::to_string(index));
    EXPECT_EQ(SpeedDialNumber(numbers, index), number);
  }
  std::string many;
  for (int i = 0; i < 300; ++i) many += std::to_string(1000 + i) + "|";
  EXPECT_EQ(SpeedDialNumber(many, 254), "1254");
  EXPECT_EQ(SpeedDialNumber(many, 255), "");
}

TEST(SpeedDialEntries, AreReadBackFromTheirMarkupWhateverTheName) {
  for (const std::string name : {"Zentrale", "", "A & B <GmbH>", "</TextBlock></StackPanel>"}) {
    for (const auto kind : {SpeedDialKind::kInternal, SpeedDialKind::kExternal}) {
      SCOPED_TRACE(name);
      EXPECT_EQ(ParseSpeedDialEntry(SpeedDialItemMarkup(name, kind)), (SpeedDialEntry{name, kind}));
    }
  }
  for (const std::string text : {"Keine Kurzwahlnummer gespeichert!", "", "<StackPanel>"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(ParseSpeedDialEntry(text), (SpeedDialEntry{text, std::nullopt}));
  }
  EXPECT_TRUE(MarkedExternal("030 1234 (ext.)"));
  EXPECT_FALSE(MarkedExternal("030 1234 (ext.) "));
}

}  // namespace
}  // namespace orvane
