// Calls from the click to the journal, with a real telephone and a real far end.
#include <gtest/gtest.h>

#include "app/date_time.h"
#include "contract/qt_line_lab.h"
#include "dialing/line_events.h"
#include "dialing/tapi_dialer.h"
#include "fakes/program_fixture.h"
#include "fakes/temporary_folder.h"
#include "journal/call_logger.h"
#include "journal_schema.h"
#include "platform/databases/sqlite/sqlite_test_support.h"
#include "platform/lines/linux/sip_lines.h"
#include "platform/lines/tapi_lines.h"
#include "sip/sip_demo.h"

namespace orvane {
namespace {

using Lines = std::vector<std::string>;

class SipCallsTest : public SessionFixture {
 protected:
  SipCallsTest() {
    CreateJournalFile(UserFile("TelList.fdb"));
    Open("anna");
  }

  // Opens the line of the account, as the settings do.
  void Open(const std::string& user) {
    lines.Initialise();
    for (std::int32_t line = 0; line < lines.LineCount(); ++line) {
      if (lines.LineName(line) != demo.Account(user)) continue;
      lines.OpenLine(line, 4, 6, 9);
      state.settings.tapiLineId = line;
    }
    ASSERT_GE(state.settings.tapiLineId, 0);
  }
  void Click(const std::string& number) {
    if (!session.On()) session.HandIn({"Muster GmbH", "", "", 0, 0}, number);
    queue.Submit([this, number] { dialer.DialTAPI(number, clock.Now()); });
  }
  bool Logged(const std::string& text) {
    return RunQtUntil([&] { return !panel.log.empty() && panel.log.back() == text; });
  }
  bool SessionEnded() {
    return RunQtUntil([this] { return !panel.sessionOn; });
  }
  bool Contains(const std::filesystem::path& file, const std::string& text) {
    return ReadFile(file).find(text) != std::string::npos;
  }
  bool FarEndGot(const std::string& request) {
    return RunQtUntil([&] { return Contains(demo.FarEndLog(), "\n" + request + " sip:"); });
  }
  // Of the newest call: the number, the seconds from `clock.now` as it was at first to the row's
  // time, and the duration text.
  std::string JournalRow() {
    const double start = ToDateTime(FixedClock().now);
    return RawSqlite(UserFile("TelList.fdb"))
        .Run("SELECT Nr || '|' || CAST(round((Zeit - " + std::to_string(start) +
             ") * 86400) AS INTEGER) || '|' || coalesce(Dauer, '-') FROM o");
  }

  SipDemo demo{folder / "telephone"};
  QtEventLoop qtLoop;
  CallHandles handles;
  TapiLines lines{[this] {
    std::vector<std::unique_ptr<LineServiceProvider>> providers;
    providers.push_back(std::make_unique<SipLines>(
        qtLoop, handles, BaresipControl::Settings{"127.0.0.1", demo.ControlPort()}));
    return providers;
  }()};
  TapiDialer dialer{lines, locale, prompts, state.settings, session, panel};
  LineEvents events{lines, clock, prompts, queue, panel, dialer};
};

TEST_F(SipCallsTest, FromTheClickToTheHangUp) {
  Click("0301234*5#");
  EXPECT_TRUE(panel.sessionOn);
  clock.now.second += 3;
  ASSERT_TRUE(Logged("Verbunden um 09:05:10"));
  EXPECT_TRUE(FarEndGot("INVITE"));
  EXPECT_TRUE(Contains(demo.FarEndLog(), "\nINVITE sip:0301234*5%23@127.0.0.1:"));
  EXPECT_TRUE(panel.dialEnabled);
  clock.now.minute += 1;
  Click("0301234*5#");
  EXPECT_TRUE(panel.sessionOn);
  ASSERT_TRUE(SessionEnded());
  EXPECT_TRUE(FarEndGot("BYE"));
  EXPECT_EQ(panel.log,
            (Lines{"Verbunden um 09:05:10", "Getrennt um 09:06:10", "Gesprächsdauer: 1 Min. "}));
  EXPECT_EQ(JournalRow(), "03012345|3|1 Min. ");
}

TEST_F(SipCallsTest, CallsThatNeverConnectLeaveTheirRowAsItIs) {
  const struct {
    const char* number;
    bool hangUp;
    Lines log;
  } kCases[] = {
      {"03099901", false, {">>> Wählen: 03099901", "Die Leitung ist besetzt."}},
      {"03099902", true, {">>> Wählen: 03099902", ">>> Trennen..."}},
      {"03099903", false, {">>> Wählen: 03099903"}},
      {"03099906", false, {">>> Wählen: 03099906"}},
  };
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.number);
    panel.log.clear();
    RawSqlite(UserFile("TelList.fdb")).Run("DELETE FROM o");
    Click(test.number);
    EXPECT_TRUE(panel.sessionOn);
    if (test.hangUp) {
      ASSERT_TRUE(RunQtUntil([this] { return session.CallHandle() != 0; }));
      Click(test.number);
    }
    ASSERT_TRUE(SessionEnded());
    EXPECT_TRUE(panel.dialEnabled);
    EXPECT_EQ(panel.log, test.log);
    EXPECT_EQ(JournalRow(), std::string(test.number) + "|0|- ");
    EXPECT_TRUE(Contains(demo.FarEndLog(), "\nINVITE sip:" + std::string(test.number) + "@"));
  }
  EXPECT_TRUE(FarEndGot("CANCEL"));
  EXPECT_FALSE(Contains(demo.FarEndLog(), "\nBYE sip:"));
}

TEST_F(SipCallsTest, TheFarEndHangsUp) {
  Click("03099905");
  ASSERT_TRUE(Logged("Verbunden um 09:05:07"));
  clock.now.second += 4;
  ASSERT_TRUE(SessionEnded());
  EXPECT_EQ(panel.log.back(), "Gesprächsdauer: 4 Sek. ");
  EXPECT_EQ(JournalRow(), "03099905|0|4 Sek. ");
}

TEST_F(SipCallsTest, ATelephoneThatDiesInMidCallEndsItAndMayReturn) {
  Click("0301234");
  ASSERT_TRUE(Logged("Verbunden um 09:05:07"));
  demo.StopTelephone();
  ASSERT_TRUE(SessionEnded());
  EXPECT_EQ(session.CallHandle(), 0);
  demo.StartTelephone();
  lines.Initialise();
  Click("0301235");
  EXPECT_TRUE(Logged("Verbunden um 09:05:07"));
  EXPECT_TRUE(Contains(demo.FarEndLog(), "\nINVITE sip:0301235@"));
}

TEST_F(SipCallsTest, ACallTakenAtTheTelephoneCanBeHungUpHere) {
  Open("bert");
  demo.CallBert();
  ASSERT_TRUE(Logged("Verbunden um 09:05:07"));
  EXPECT_TRUE(panel.sessionOn);
  Click("");
  ASSERT_TRUE(SessionEnded());
  EXPECT_EQ(JournalRow(), "");
}

TEST_F(SipCallsTest, TheEndOfTheProgramHangsUp) {
  Click("0301234");
  ASSERT_TRUE(Logged("Verbunden um 09:05:07"));
  lines.ShutDown();
  EXPECT_TRUE(FarEndGot("BYE"));
}

}  // namespace
}  // namespace orvane
