#include "journal/call_logger.h"

#include "app/date_time.h"
#include "contact_schema.h"
#include "fakes/program_fixture.h"

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
    }
  }
}

class CallLoggerTest : public JournalFixture {
 protected:
  CallLoggerTest() {
    CreateDemoContactFile(folder / "Daten/CONTACT.FDB");
    call.lastDialedDigits = "030123456";
    call.canonicalNumber = "4930123456";
    panel.externTicked = true;
  }
  // Whether a statement since the last question holds that text.
  bool Executed(const std::string& part) {
    std::string all;
    for (const auto& sql : std::exchange(databases.statements, {})) all += sql;
    return all.find(part) != std::string::npos;
  }

  CallLogger logger = NewLogger(clock);
};

TEST_F(CallLoggerTest, LooksTheContactUpUnlessTheHostHandedItIn) {
  logger.LogCall(true, false);
  EXPECT_EQ(call.startText, "04/03/2024 09:05:07");
  EXPECT_EQ(panel.contactLabel, "Havelwerk Maschinenbau GmbH\r\nBerlin\r\n\r\nLindner, Katharina");
  EXPECT_TRUE(
      Executed("VALUES (1,-1,#04/03/2024 09:05:07#,'Havelwerk Maschinenbau GmbH','Berlin',"
               "'Lindner, Katharina','030123456',1,101)"));

  panel.contactLabel = "vom Host";
  panel.externTicked = false;
  call.company = "Muster GmbH";
  logger.LogCall(true, false);
  EXPECT_EQ(panel.contactLabel, "vom Host");
  EXPECT_TRUE(Executed("VALUES (2,0,#04/03/2024 09:05:07#,'Muster GmbH',"));

  call.company.clear();
  call.lastDialedDigits = "217";
  logger.LogCall(true, false);
  EXPECT_EQ(panel.contactLabel, "Intern\r\nEinkauf\r\n\r\nBrandt, Jonas");
}

TEST_F(CallLoggerTest, CompletesOnlyACallThatWasConnected) {
  for (const auto& [connected, busy] : {std::pair{false, false}, {true, true}, {true, false}}) {
    SCOPED_TRACE(std::to_string(connected) + std::to_string(busy));
    clock.now = {2024, 4, 3, 9, 5, 7, 0};
    logger.LogCall(true, false);
    call.connectText = connected ? TimeText(clock.now) : "";
    call.connectDateTime = ToDateTime(clock.now);
    clock.now = {2024, 4, 3, 9, 6, 12, 900};
    logger.LogCall(false, busy);
    EXPECT_EQ(Executed(busy ? "Dauer='Besetzt'" : "Dauer='1 Min. 5 Sek.'"), connected);
    EXPECT_EQ(panel.log.size(), connected && !busy ? 2U : 0U);
    EXPECT_EQ(call.startText.empty(), connected);
    EXPECT_EQ(call.connectText, "");
  }
  EXPECT_EQ(panel.log,
            (std::vector<std::string>{"Getrennt um 09:06:12", "Gesprächsdauer: 1 Min. 5 Sek. "}));
}

TEST_F(CallLoggerTest, ACallEndsInTheJournalItBeganIn) {
  logger.LogCall(true, false);
  call.connectText = TimeText(clock.now);
  state.host.userPath = UserFolder(state.host, 18);
  databases.properties.clear();
  logger.LogCall(false, false);
  EXPECT_EQ(databases.Property("Data Source"), UserFolder(state.host, 17) + "res\\TelList.fdb");
  EXPECT_EQ(state.host.userPath, UserFolder(state.host, 18));
  EXPECT_EQ(state.databases.journalConnectionString, "");
}

TEST_F(CallLoggerTest, CompactsAJournalThatHasGrownAfterAnyCall) {
  for (const std::streamoff bytes : {9999999, 10000000}) {
    std::fstream journal(UserFile("TelList.fdb"), std::ios::in | std::ios::out | std::ios::binary);
    journal.seekp(bytes - 1).put('\0');
    journal.close();
    logger.LogCall(false, false);
    EXPECT_EQ(databases.compactions.size(), bytes > 9999999 ? 1U : 0U);
  }
}

}  // namespace
}  // namespace orvane
