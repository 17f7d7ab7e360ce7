#include <gtest/gtest.h>

#include "ui/logic/clipboard_offer.h"
#include "ui/logic/number_classifier.h"
#include "ui/logic/speed_dial_selection.h"

namespace orvane {

TEST(NumberFromClipboard, TakesWhatCouldBeANumber) {
  std::string umlauts = "1234";
  for (int i = 0; i < 30; ++i) umlauts += "ü";
  const std::pair<std::string, std::string> kCases[] = {
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
      {umlauts, "1234"},  // 34 characters in 64 bytes are short enough
      {"1234\xFF\x80", "1234"}};
  for (const auto& [text, number] : kCases) EXPECT_EQ(NumberFromClipboard(text), number) << text;
}

TEST(ClassifyPrefix, KnowsThePrefixesThatNeedNoTable) {
  constexpr std::pair<const char*, const char*> kCases[] = {
      {"0891", "München"},
      {"0301234", "Berlin"},
      {"0151998877 0160 0171", "<Mobilnetz>"},
      {"0321", "Ortsunabhängige Rufnummer"},
      {"01033", "Call-by-Call"},
      {"0180", "Shared-Cost-Dienst"},
      {"0123 0137 0141 0190", "Sonderrufnummer"},
      {"07001", "Persönliche Rufnummer"},
      {"08001", "Freephone"},
      {"09001", "Premium-Dienst"},
      {"001212555 001", "USA/Kanada"},
      {"0079", "Russland/Kasachstan"}};
  for (const auto& [numbers, label] : kCases) {
    std::istringstream words(numbers);
    for (std::string number; words >> number;) {
      EXPECT_EQ(ClassifyPrefix(number, number.starts_with("00")), (NumberClass{label, {}}))
          << number;
    }
  }
}

TEST(ClassifyPrefix, NamesTheCandidatesForTheAreaCodeTable) {
  const std::tuple<const char*, bool, NumberClass> kCases[] = {
      {"0211445566", false, {"<Inland>", {"0211", "02114", "021144"}}},
      {"217", false, {"<Inland>", {"217", "217", "217"}}},
      {"00431234", true, {"<Ausland>", {"43", "431", "4312"}}},
      {"0018761", true, {"<Ausland>", {"18", "187", "1876"}}},
      {"00", true, {"<Ausland>", {"", "", ""}}}};
  for (const auto& [number, international, expected] : kCases) {
    EXPECT_EQ(ClassifyPrefix(number, international), expected) << number;
  }
}

TEST(SpeedDialNumber, PicksTheFieldOfTheEntry) {
  for (const auto& [numbers, index, number] : {std::tuple{"111|222|", 0, "111"},
                                               {"111|222|", 1, "222"},
                                               {"111|222|", 2, ""},
                                               {"111|222|", 9, ""},
                                               {"", 0, ""},
                                               {"||333|", 2, "333"},
                                               {"111|", -1, ""}}) {
    EXPECT_EQ(SpeedDialNumber(numbers, index), number) << numbers << index;
  }
  std::string many;
  for (int i = 0; i < 300; ++i) many += std::to_string(1000 + i) + "|";
  EXPECT_EQ(SpeedDialNumber(many, 254), "1254");
  EXPECT_EQ(SpeedDialNumber(many, 255), "");
}

TEST(SpeedDialEntries, AreReadBackFromTheirMarkupWhateverTheName) {
  for (const std::string name : {"Zentrale", "", "A & B <GmbH>", "</TextBlock></StackPanel>"}) {
    for (const auto kind : {SpeedDialKind::kInternal, SpeedDialKind::kExternal}) {
      EXPECT_EQ(ParseSpeedDialEntry(SpeedDialItemMarkup(name, kind)), (SpeedDialEntry{name, kind}));
    }
  }
  for (const std::string text : {"Keine Kurzwahlnummer gespeichert!", "", "<StackPanel>"}) {
    EXPECT_EQ(ParseSpeedDialEntry(text), (SpeedDialEntry{text, std::nullopt}));
  }
  EXPECT_TRUE(MarkedExternal("030 1234 (ext.)"));
  EXPECT_FALSE(MarkedExternal("030 1234 (ext.) "));
}

}  // namespace orvane
