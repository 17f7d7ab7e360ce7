#include "app/settings_loader.h"

#include "fakes/program_fixture.h"

namespace orvane {
namespace {

class InitSettingsTest : public ProgramFixture {
 protected:
  void Init() {
    SettingsLoader(ini, tapi, prompts, supportLog, state, panel, [] {}).InitSettings();
  }
};

TEST_F(InitSettingsTest, LoadsTheSpeedDialFile) {
  constexpr const char* kNone = "Keine Kurzwahlnummer gespeichert!";
  const std::tuple<const char*, const char*, const char*> kCases[] = {
      {"A|111|B|222|\xBF", "A,B,", "111|222|"},
      {"A|111|B|222|", "A,B,", "111|222|"},
      {"A|1|\xBFX|999|\xBF", "A,X,", "1|999|"},
      {"\xBFX|999|\xBF", kNone, ""},
      {"", kNone, ""},
      {"|555|B|222|\xBF|\xBF", "B,", "222|"},
      {"A|1|B|2|C|3|D|4|E|5|F|6|G|7|H|8|I|9|J|10|\xBF", "A,B,C,D,E,F,G,H,", "1|2|3|4|5|6|7|8|"},
      {"M\xFCller|0\xDF|\xBF", "Müller,", "0ß|"}};
  constexpr std::string_view kBeforeName =
      "<?xml version='1.0' encoding='windows-1252'?><StackPanel Orientation='Horizontal'><Image "
      "VerticalAlignment='Center' Source='1'/><TextBlock Padding = '4' "
      "VerticalAlignment='Center'>";
  for (const auto& [file, expected, numbers] : kCases) {
    SCOPED_TRACE(file);
    WriteFile(UserFile("Kurzwahl.dat"), file);
    Init();
    std::string names;
    for (const std::string& entry : panel.speedDial) {
      const auto end = entry.find("</TextBlock></StackPanel>");
      names += end == entry.npos ? entry
                                 : entry.substr(kBeforeName.size(), end - kBeforeName.size()) + ",";
    }
    EXPECT_EQ(names, expected);
    EXPECT_EQ(panel.speedDialNumbers, numbers);
    EXPECT_EQ(panel.speedDialSelectable, expected != kNone);
  }
  EXPECT_TRUE(panel.speedDial[0].starts_with(kBeforeName));
}

TEST_F(InitSettingsTest, SurvivesAnySpeedDialFile) {
  WriteFile(UserFile("Kurzwahl.dat"),
            std::string(5'000'000, '\x81').append(1, '\xBF').append(9, 'x'));
  Init();
  EXPECT_EQ(panel.speedDial.size(), 2U);
  std::filesystem::remove(UserFile("Kurzwahl.dat"));
  std::filesystem::create_directory(UserFile("Kurzwahl.dat"));
  Init();
  ASSERT_EQ(prompts.markups.size(), 1U);
  EXPECT_NE(prompts.markups[0].text.find("Initialisierung - Einstellungen"), std::string::npos);
}

TEST_F(InitSettingsTest, ShowsTheDialMethod) {
  tapi.lineNames = {"ISDN 1", "ISDN 2"};
  const std::tuple<const char*, const char*, const char*, const char*, std::int32_t> kCases[] = {
      {"0", "1", "", "Kein CTI/Bitte konfigurieren.", -1},
      {"1", "3", "", "<Bereit>/COM3: initialisiert", -1},
      {"2", "1", "", "TAPI-Fehler!/Bitte konfigurieren.", -1},
      {"2", "1", "isdn 2", "TAPI-Fehler!/Bitte konfigurieren.", -1},
      {"2", "1", "ISDN 2", "<Bereit>/TAPI initialisiert", 1},
      {"77", "1", "ISDN 1", "<Bereit>/TAPI initialisiert", 0}};
  for (const auto& [cti, port, line, status, lineId] : kCases) {
    SCOPED_TRACE(std::string(cti) + " " + line);
    SetRegistry("CTI", cti);
    SetRegistry("ComPort", port);
    SetRegistry("TapiBez", line);
    Init();
    EXPECT_EQ(panel.status, status);
    EXPECT_EQ(state.settings.tapiLineId, lineId);
  }
  // A line that is known is opened; one that is missed is looked for anew until one was opened.
  EXPECT_EQ(tapi.log, (std::vector<std::string>{"init", "open 1 4 6 9", "open 0 4 6 9"}));
  tapi.tag = TapiTag::kClosed;
  tapi.log.clear();
  SetRegistry("TapiBez", "ISDN 3");
  for (int time = 0; time < 2; ++time) Init();
  EXPECT_EQ(tapi.log, (std::vector<std::string>{"init", "init"}));
}

TEST_F(InitSettingsTest, UsesDefaultsAndReadsTheIni) {
  Init();
  EXPECT_EQ(state.settings.comPortNumber, 1);
  EXPECT_EQ(state.settings.countryPrefix, "+49");
  EXPECT_FALSE(panel.externVisible);
  EXPECT_EQ(ini.lastFile, state.host.dataPath + "Global.ini");
  ini.values = {{{"Tel", "InternMax3"}, "0"}, {{"Tel", "LandVorwahl"}, "+43"}};
  Init();
  EXPECT_TRUE(panel.externVisible);
  EXPECT_EQ(state.settings.countryPrefix, "+43");
  ini.fail = true;
  Init();
  EXPECT_EQ(prompts.boxes.at(0).text, "Fehlernummer: 53 bei Prozedur: INI-Read");
}

TEST_F(InitSettingsTest, ReportsValuesOfTheWrongType) {
  for (const auto& [name, value, error] : {std::tuple{"CTI", "zwei", "Fehler 13,"},
                                           {"CTI", "", "Fehler 13,"},
                                           {"COMPort", "256", "Fehler 6,"},
                                           {"COMPort", "-1", "Fehler 6,"}}) {
    registry->values.clear();
    prompts.markups.clear();
    SetRegistry(name, value);
    Init();
    EXPECT_NE(prompts.markups.at(0).text.find(error), std::string::npos) << name << value;
  }
}

}  // namespace
}  // namespace orvane
