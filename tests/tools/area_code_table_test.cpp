#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>

#include "area_codes/place_name.h"
#include "fakes/temporary_folder.h"
#include "platform/databases/sqlite/sqlite_services.h"
#include "platform/text/ansi.h"
#include "ui/logic/number_classifier.h"

namespace orvane {
namespace {

const std::filesystem::path kTable = ORVANE_BUILD_DIR "/data/VPB.rgt";

// The table's rows, read as the dialer reads it.
std::vector<std::pair<std::string, std::string>> Rows(const std::string& condition = "") {
  const auto connection = SqliteServices().NewConnection();
  connection->SetMode(DbMode::kRead);
  connection->SetProvider("Microsoft.Jet.OLEDB.4.0");
  connection->SetProperty("Data Source", kTable.string());
  connection->Open();
  std::vector<std::pair<std::string, std::string>> result;
  const auto rows = connection->Execute("SELECT VW,Ort FROM VW" + condition);
  for (; !rows->AtEnd(); rows->MoveNext()) {
    result.emplace_back(std::get<std::string>(rows->Field(0)),
                        std::get<std::string>(rows->Field(1)));
  }
  return result;
}

TEST(AreaCodeTable, NamesPlacesAndCountriesInGerman) {
  const auto rows = Rows();
  const std::map<std::string, std::string> table(rows.begin(), rows.end());
  for (const auto& [prefix, place] : {std::pair{"030", "Berlin"},
                                      {"0211", "Düsseldorf"},
                                      {"0212", "Solingen"},
                                      {"02129", "Haan (Rheinland)"},
                                      {"0221", "Köln"},
                                      {"0341", "Leipzig"},
                                      {"0345", "Halle (Saale)"},
                                      {"0961", "Weiden in der Oberpfalz"},
                                      {"06021", "Aschaffenburg"},
                                      {"033056", "Mühlenbeck"},
                                      {"1", "USA/Kanada"},
                                      {"7", "Russland/Kasachstan"},
                                      {"39", "Italien"},
                                      {"41", "Schweiz"},
                                      {"43", "Österreich"},
                                      {"44", "Vereinigtes Königreich"},
                                      {"47", "Norwegen"},
                                      {"49", "Deutschland"},
                                      {"61", "Australien"},
                                      {"262", "Réunion"},
                                      {"352", "Luxemburg"},
                                      {"358", "Finnland"},
                                      {"383", "Kosovo"},
                                      {"590", "Guadeloupe"},
                                      {"599", "Curaçao"},
                                      {"852", "Hongkong"},
                                      {"1684", "Amerikanisch-Samoa"},
                                      {"1808", "Hawaii"},
                                      {"1876", "Jamaika"}}) {
    SCOPED_TRACE(prefix);
    ASSERT_TRUE(table.contains(prefix));
    EXPECT_EQ(table.at(prefix), place);
  }
  for (const std::string_view listed : kListedAmericanCodes) {
    EXPECT_TRUE(table.contains(std::string(listed))) << listed;
  }
}

TEST(AreaCodeTable, IsCompleteAndCanBeShown) {
  std::size_t german = 0;
  std::size_t countries = 0;
  for (const auto& [prefix, place] : Rows()) {
    SCOPED_TRACE(prefix);
    SCOPED_TRACE(place);
    EXPECT_TRUE(std::ranges::all_of(prefix, [](char c) { return c >= '0' && c <= '9'; }));
    EXPECT_FALSE(place.empty());
    EXPECT_EQ(DecodeAnsi(EncodeAnsi(place)), place) << "a letter that German users do not have";
    if (prefix.starts_with('0')) {
      if (prefix.size() >= 4) ++german;
      EXPECT_TRUE(prefix.size() >= 3 && prefix.size() <= 6);
    } else if (prefix.size() < 4) {
      ++countries;
    }
  }
  EXPECT_GT(german, 5200U);
  EXPECT_GT(countries, 210U);
}

TEST(AreaCodeTable, GivesTheLongestOfSeveralPrefixesFirst) {
  for (const char* candidates :
       {"'0212','02129','021291'", "'02129','0212'", "'021291','02129','0212'"}) {
    const auto rows = Rows(" WHERE VW IN(" + std::string(candidates) + ")");
    ASSERT_EQ(rows.size(), 2U) << candidates;
    EXPECT_EQ(rows[0].first, "02129") << candidates;
  }
}

TEST(AreaCodeTable, IsTheSameFileEachTimeItIsBuilt) {
  const TemporaryFolder folder;
  const std::filesystem::path again = folder.Write("VPB.rgt", "an older one");
  ASSERT_EQ(std::system((ORVANE_AREA_CODE_BUILDER " " + again.string()).c_str()), 0);
  EXPECT_TRUE(ReadFile(again) == ReadFile(kTable));
}

TEST(PlaceName, IsWrittenAsPeopleWriteIt) {
  for (const auto& [raw, name] : {std::pair{"Köln", "Köln"},
                                  {"Mühlenbeck Kreis Oberhavel", "Mühlenbeck"},
                                  {"Rohrsen Kreis Nienburg Weser", "Rohrsen"},
                                  {"Halle Saale", "Halle (Saale)"},
                                  {"Frankfurt (Oder)", "Frankfurt (Oder)"},
                                  {"Weiden in der Oberpfalz", "Weiden in der Oberpfalz"},
                                  {"Neustadt in Sachsen", "Neustadt in Sachsen"},
                                  {"Herxheim bei Landau Pfalz", "Herxheim bei Landau (Pfalz)"},
                                  {"Tabarz Thüringer Wald", "Tabarz (Thüringer Wald)"},
                                  {"Bad Elster", "Bad Elster"},
                                  {"Bad Grund Harz", "Bad Grund (Harz)"},
                                  {"Markt Schwaben", "Markt Schwaben"},
                                  {"Burg bei Magdeburg", "Burg bei Magdeburg"},
                                  {"Emden Stadt", "Emden"},
                                  {"St Peter Schwarzwald", "St. Peter (Schwarzwald)"},
                                  {"Gross Kreutz", "Groß Kreutz"},
                                  {"Wolterdingen Schwarzw", "Wolterdingen (Schwarzwald)"},
                                  {"Weil Der Stadt", "Weil der Stadt"}}) {
    EXPECT_EQ(PlaceName(raw), name);
  }
}

}  // namespace
}  // namespace orvane
