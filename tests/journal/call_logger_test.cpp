#include "journal/call_logger.h"

#include "app/date_time.h"
#include "contact_schema.h"
#include "fakes/program_fixture.h"

namespace orvane {
namespace {

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

  void LogCall(bool isStart, bool isBusy = false) {
    logger.LogCall(call, isStart, isBusy, clock.Now());
  }

  CurrentCall call;
};

TEST_F(CallLoggerTest, LooksTheContactUpUnlessTheHostHandedItIn) {
  LogCall(true);
  EXPECT_EQ(call.startText, "04/03/2024 09:05:07");
  EXPECT_EQ(panel.contactLabel, "Havelwerk Maschinenbau GmbH\r\nBerlin\r\n\r\nLindner, Katharina");
  EXPECT_TRUE(
      Executed("VALUES (1,-1,#04/03/2024 09:05:07#,'Havelwerk Maschinenbau GmbH','Berlin',"
               "'Lindner, Katharina','030123456',1,101)"));

  panel.contactLabel = "vom Host";
  panel.externTicked = false;
  call.company = "Muster GmbH";
  LogCall(true);
  EXPECT_EQ(panel.contactLabel, "vom Host");
  EXPECT_TRUE(Executed("VALUES (2,0,#04/03/2024 09:05:07#,'Muster GmbH',"));

  call.company.clear();
  call.lastDialedDigits = "217";
  LogCall(true);
  EXPECT_EQ(panel.contactLabel, "Intern\r\nEinkauf\r\n\r\nBrandt, Jonas");
}

TEST_F(CallLoggerTest, CompletesOnlyACallThatWasConnected) {
  for (const auto& [connected, busy] : {std::pair{false, false}, {true, true}, {true, false}}) {
    SCOPED_TRACE(std::to_string(connected) + std::to_string(busy));
    clock.now = {2024, 4, 3, 9, 5, 7, 0};
    LogCall(true);
    call.connectText = connected ? TimeText(clock.now) : "";
    call.connectDateTime = ToDateTime(clock.now);
    clock.now = {2024, 4, 3, 9, 6, 12, 900};
    LogCall(false, busy);
    EXPECT_EQ(Executed(busy ? "Dauer='Besetzt'" : "Dauer='1 Min. 5 Sek.'"), connected);
    EXPECT_EQ(panel.log.size(), connected && !busy ? 2U : 0U);
    EXPECT_EQ(call.startText.empty(), connected);
    EXPECT_EQ(call.connectText, "");
  }
  EXPECT_EQ(panel.log,
            (std::vector<std::string>{"Getrennt um 09:06:12", "Gesprächsdauer: 1 Min. 5 Sek. "}));
}

TEST_F(CallLoggerTest, ACallEndsInTheJournalItBeganIn) {
  LogCall(true);
  call.connectText = TimeText(clock.now);
  state.host.userPath = UserFolder(state.host, 18);
  databases.properties.clear();
  LogCall(false);
  EXPECT_NE(databases.Property("ConnectionString")->find("User\\17\\res\\TelList.fdb"),
            std::string::npos);
  EXPECT_EQ(state.host.userPath, UserFolder(state.host, 18));
}

TEST_F(CallLoggerTest, CompactsAJournalThatHasGrownAfterAnyCall) {
  for (const std::streamoff bytes : {9999999, 10000000}) {
    std::fstream file(UserFile("TelList.fdb"), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(bytes - 1).put('\0');
    file.close();
    LogCall(false);
    EXPECT_EQ(databases.compactions.size(), bytes > 9999999 ? 1U : 0U);
  }
  EXPECT_EQ(databases.compactions[0].second, state.host.userPath + "res\\TelList.OLD");
}

}  // namespace
}  // namespace orvane
