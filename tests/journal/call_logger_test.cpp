#include "journal/call_logger.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "app/date_time.h"
#include "contact_schema.h"
#include "fakes/program_fixture.h"
#include "journal_schema.h"

namespace orvane {
namespace {

TEST(FormatDurationTest, CountsFixedYearsAndMonths) {
  constexpr double kSecond = 1.0 / 86400;
  const struct {
    double days;
    const char* text;
  } kCases[] = {
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
      {2 - kSecond, "1 Tag 23 Std. 59 Min. 59 Sek. "},
  };
  for (const double start : {0.0, 45385.378553240742}) {
    for (const auto& test : kCases) {
      SCOPED_TRACE(test.days);
      EXPECT_EQ(FormatDuration(start, start + test.days), test.text);
    }
  }
}

class CallLoggerTest : public ProgramFixture {
 protected:
  CallLoggerTest() {
    CreateJournalFile(UserFile("TelList.fdb"));
    CreateDemoContactFile(folder / "Daten/CONTACT.FDB");
    state.databases.journal = databases.NewConnection();
    call.lastDialedDigits = "030123456";
    call.canonicalNumber = "4930123456";
    panel.externTicked = true;
  }

  bool Executed(const std::string& part) const {
    return std::any_of(
        databases.statements.begin(), databases.statements.end(),
        [&part](const std::string& sql) { return sql.find(part) != std::string::npos; });
  }

  CallLogger logger{services, state, call, panel};
};

TEST_F(CallLoggerTest, LooksTheContactUpUnlessTheHostHandedItIn) {
  logger.LogCall(true, false);
  EXPECT_EQ(call.startText, "04/03/2024 09:05:07");
  EXPECT_EQ(panel.contactLabel, "Havelwerk Maschinenbau GmbH\r\nBerlin\r\n\r\nLindner, Katharina");
  EXPECT_TRUE(
      Executed("VALUES (1,-1,#04/03/2024 09:05:07#,'Havelwerk Maschinenbau GmbH','Berlin',"
               "'Lindner, Katharina','030123456',1,101)"));

  databases.statements.clear();
  panel.contactLabel = "vom Host";
  panel.externTicked = false;
  call.company = "Muster GmbH";
  logger.LogCall(true, false);
  EXPECT_FALSE(Executed("Adressen"));
  EXPECT_FALSE(Executed("Benutzer"));
  EXPECT_EQ(panel.contactLabel, "vom Host");
  EXPECT_TRUE(Executed("VALUES (2,0,#04/03/2024 09:05:07#,'Muster GmbH',"));

  call.company.clear();
  call.lastDialedDigits = "217";
  logger.LogCall(true, false);
  EXPECT_EQ(panel.contactLabel, "Intern\r\nEinkauf\r\n\r\nBrandt, Jonas");
}

TEST_F(CallLoggerTest, CompletesOnlyACallThatWasConnected) {
  const struct {
    bool connected, busy;
    const char* duration;
    std::vector<std::string> log;
  } kCases[] = {
      {false, false, "", {}},
      {true, true, "Dauer='Besetzt'", {}},
      {true,
       false,
       "Dauer='1 Min. 5 Sek.'",
       {"Getrennt um 09:06:12", "Gesprächsdauer: 1 Min. 5 Sek. "}},
  };
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.duration);
    clock.now = {2024, 4, 3, 9, 5, 7, 0};
    databases.statements.clear();
    panel.log.clear();
    logger.LogCall(true, false);
    call.connectText = test.connected ? TimeText(clock.now) : "";
    call.connectDateTime = ToDateTime(clock.now);
    clock.now = {2024, 4, 3, 9, 6, 12, 900};
    logger.LogCall(false, test.busy);
    EXPECT_EQ(Executed("UPDATE"), test.connected);
    EXPECT_TRUE(Executed(test.duration));
    EXPECT_EQ(panel.log, test.log);
    EXPECT_EQ(call.startText.empty(), test.connected);
    EXPECT_EQ(call.connectText, "");
  }
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
  for (const std::uintmax_t bytes : {9999999U, 10000000U}) {
    std::filesystem::resize_file(UserFile("TelList.fdb"), bytes);
    databases.compactions.clear();
    logger.LogCall(false, false);
    EXPECT_EQ(databases.compactions.size(), bytes > 9999999U ? 1U : 0U);
  }
}

}  // namespace
}  // namespace orvane
