#include "dialing/tapi_dialer.h"

#include "app/date_time.h"
#include "fakes/program_fixture.h"
#include "fakes/recording_test_dial.h"
#include "platform/tapi_control.h"

namespace orvane {
namespace {

using Lines = std::vector<std::string>;

class TapiDialerTest : public JournalFixture {
 protected:
  TapiDialerTest() {
    state.settings.tapiLineId = 0;
    call.company = "Muster GmbH";
    tapi.tag = TapiTag::kOpened;
  }
  void Click() {
    queue.Submit([this] { dialer.DialTAPI("00301234"); });
  }
  void Connect(std::int32_t handle) {
    dialer.OnCallState(handle, 1, kLineCallRingback);
    dialer.OnCallState(handle, 1, kLineCallConnected);
    dialer.OnConnected(handle);
  }
  void End(std::int32_t handle) {
    dialer.OnCallState(handle, 1, kLineCallDisconnected);
    dialer.OnDisconnected(handle);
    dialer.OnCallState(handle, 1, kLineCallIdle);
  }

  CallLogger logger = NewLogger(clock);
  TapiDialer dialer{tapi, clock, locale, prompts, state.settings, call, queue, logger, panel};
};

TEST_F(TapiDialerTest, ACallFromClickToHangUp) {
  Click();
  EXPECT_EQ(tapi.log, Lines{"call 0 00301234"});
  EXPECT_TRUE(panel.sessionOn);
  EXPECT_FALSE(panel.dialEnabled);
  dialer.OnCallState(7, 1, kLineCallDialing);
  EXPECT_TRUE(panel.dialEnabled);
  // Another call of the line touches this one neither before nor after it has a handle.
  for (const std::int32_t handle : {0, 7}) {
    EXPECT_EQ(call.tapiCallHandle, handle);
    Connect(8);
    dialer.OnBusy(8);
    End(8);
    EXPECT_TRUE(panel.sessionOn);
    EXPECT_EQ(call.tapiCallHandle, handle);
    if (handle == 0) Connect(7);
  }
  EXPECT_EQ(call.connectText, "04/03/2024 09:05:07");
  EXPECT_EQ(panel.log, Lines{"Verbunden um 09:05:07"});
  EXPECT_EQ(panel.dialFocused, 1);
  clock.now.minute = 6;
  Click();
  EXPECT_EQ(tapi.log.back(), "drop 0 7");
  EXPECT_TRUE(panel.sessionOn);
  End(7);
  EXPECT_FALSE(panel.sessionOn);
  EXPECT_TRUE(panel.dialEnabled);
  EXPECT_EQ(call.tapiCallHandle, 0);
  EXPECT_EQ(panel.log,
            (Lines{"Verbunden um 09:05:07", "Getrennt um 09:06:07", "Gesprächsdauer: 1 Min. "}));
  EXPECT_EQ(databases.statements.back(),
            "UPDATE o Set Zeit=#04/03/2024 09:05:07#, Dauer='1 Min.' WHERE Zeit=#04/03/2024 "
            "09:05:07#");
  EXPECT_EQ(call.startText, "");
}

TEST_F(TapiDialerTest, ACallThatIsEndedBeforeItRings) {
  // A line that does not tell which call it is going to place is believed.
  for (const std::int32_t told : {7, 0}) {
    SCOPED_TRACE(told);
    tapi.nextCall = told;
    panel.log.clear();
    Click();
    Click();
    EXPECT_EQ(panel.log, (Lines{">>> Wählen: 00301234", ">>> Trennen..."}));
    EXPECT_EQ(tapi.log.back(), "drop 0 0");
    EXPECT_TRUE(panel.sessionOn);
    databases.statements.clear();
    End(7);
    EXPECT_FALSE(panel.sessionOn);
    EXPECT_TRUE(databases.statements.empty());
  }
}

TEST_F(TapiDialerTest, ABusyLineKeepsTheSessionUntilItEnds) {
  for (const bool connectedBefore : {false, true}) {
    SCOPED_TRACE(connectedBefore);
    Click();
    dialer.OnCallState(7, 1, kLineCallRingback);
    call.connectText = connectedBefore ? TimeText(clock.now) : "";
    databases.statements.clear();
    dialer.OnBusy(7);
    EXPECT_EQ(panel.log.back(), "Die Leitung ist besetzt.");
    EXPECT_TRUE(panel.sessionOn);
    EXPECT_EQ(databases.statements.size(), connectedBefore ? 1U : 0U);
    End(7);
    EXPECT_FALSE(panel.sessionOn);
  }
  EXPECT_NE(databases.statements.at(0).find("Dauer='Besetzt'"), std::string::npos);
}

TEST_F(TapiDialerTest, ACallTakenAtTheTelephoneShowsAsASessionAndTouchesNoRow) {
  // A call before it that nobody answered left its row behind.
  Click();
  dialer.OnCallState(7, 1, kLineCallRingback);
  End(7);
  databases.statements.clear();
  Connect(9);
  EXPECT_TRUE(panel.sessionOn);
  Click();
  EXPECT_EQ(tapi.log.back(), "drop 0 9");
  End(9);
  EXPECT_FALSE(panel.sessionOn);
  EXPECT_EQ(panel.log, (Lines{"Verbunden um 09:05:07", "Aufgelegt.", "Getrennt um 09:05:07",
                              "Gesprächsdauer: "}));
  EXPECT_TRUE(databases.statements.empty());
}

TEST_F(TapiDialerTest, LooksAgainForALineThatWasNotThere) {
  state.settings.dialMethod = kDialMethodTapi;
  for (const std::int32_t line : {kNoTapiLine, 0}) {
    state.settings.tapiLineId = line;
    dialer.OnLineMessage("INSERVICE", "TapiLineDevState", 1);
  }
  EXPECT_EQ(panel.linesChanged, 1);
  // The options dialog must not hide that it is back, whatever line it has open.
  panel.windowEnabled = false;
  for (const std::int32_t line : {kNoTapiLine, 0}) {
    state.settings.tapiLineId = line;
    dialer.OnLineMessage("INSERVICE", "TapiLineDevState", 1);
  }
  EXPECT_EQ(panel.linesChanged, 3);
}

TEST_F(TapiDialerTest, ALostLineIsOpenedAgainByTheNextCall) {
  tapi.tag = TapiTag::kClosed;
  Click();
  EXPECT_EQ(tapi.log, (Lines{"open 0 4 6 9", "call 0 00301234"}));
}

TEST_F(TapiDialerTest, AFailingLineLeavesAUsableButton) {
  tapi.failing = true;
  Click();
  EXPECT_FALSE(panel.sessionOn);
  EXPECT_TRUE(panel.dialEnabled);
  EXPECT_NE(prompts.markups.at(0).text.find("\"DialTAPI\""), std::string::npos);
  tapi.failing = false;
  Click();
  Connect(7);
  tapi.failing = true;
  Click();
  EXPECT_TRUE(panel.sessionOn);
  EXPECT_TRUE(panel.dialEnabled);
}

TEST_F(TapiDialerTest, TheOptionsDialogGetsTheEventsWhileItIsOpen) {
  RecordingTestDial testDial;
  panel.windowEnabled = false;
  dialer.SetTestDial(&testDial);
  dialer.OnLineMessage("SUCCESS", "TapiLineOpen", 0);
  dialer.OnLineMessage("INVALLINEHANDLE", "TapiMakeCall", -5);
  Connect(7);
  dialer.OnBusy(7);
  End(7);
  EXPECT_EQ(testDial.log,
            (Lines{"TapiMessage: SUCCESS  TapiLineOpen  0",
                   "TapiMessage: INVALLINEHANDLE  TapiMakeCall  -5",
                   "*Verbindung hergestellt! - Handle, ID: 7  1", "focus", "session",
                   "*Verbindung getrennt! - Handle, ID: 7  1", "focus", "idle", "idle"}));
  EXPECT_FALSE(panel.sessionOn);
  EXPECT_EQ(call.tapiCallHandle, 0);
  // Neither a line's other calls nor any beside a call by the modem are the test call.
  for (const bool byModem : {false, true}) {
    testDial.byModem = byModem;
    call.placedCallHandle = byModem ? 0 : 8;
    testDial.log.clear();
    Connect(7);
    End(7);
    EXPECT_EQ(testDial.log, (Lines{"*Verbindung hergestellt! - Handle, ID: 7  1", "focus",
                                   "*Verbindung getrennt! - Handle, ID: 7  1", "focus"}));
  }
  EXPECT_TRUE(panel.log.empty() && databases.statements.empty());
}

TEST_F(TapiDialerTest, EventsBehindAMessageBoxKeepTheirOrder) {
  databases.FailOpen(kDbErrorFailed, "gesperrt");
  prompts.whileShown = [this] {
    prompts.whileShown = nullptr;
    Connect(7);
    clock.now.hour = 10;
    End(7);
    EXPECT_EQ(panel.log, Lines{">>> Wählen: 00301234"});
  };
  Click();
  EXPECT_FALSE(panel.sessionOn);
  EXPECT_EQ(panel.log.front(), "Verbunden um 09:05:07");
  EXPECT_EQ(panel.log.back(), "Gesprächsdauer: 1 Std. ");
}

}  // namespace
}  // namespace orvane
