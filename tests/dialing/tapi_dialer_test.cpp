#include "dialing/tapi_dialer.h"

#include "app/date_time.h"
#include "dialing/line_events.h"
#include "dialing/trial_dialer.h"
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
    tapi.tag = TapiTag::kOpened;
    session.HandIn({"Muster GmbH", "", "", 0, 0}, "0301234");
  }
  void Click() {
    queue.Submit([this, at = clock.Now()] { dialer.DialTAPI("00301234", at); });
  }
  void Connect(std::int32_t handle) {
    events.OnCallState(handle, 1, kLineCallRingback);
    events.OnCallState(handle, 1, kLineCallConnected);
    events.OnConnected(handle);
  }
  void End(std::int32_t handle) {
    events.OnCallState(handle, 1, kLineCallDisconnected);
    events.OnDisconnected(handle);
    events.OnCallState(handle, 1, kLineCallIdle);
  }
  const CurrentCall& Call() { return session.Call(); }

  TapiDialer dialer{tapi, locale, prompts, state.settings, session, panel};
  LineEvents events{tapi, clock, prompts, queue, panel, dialer};
};

TEST_F(TapiDialerTest, ACallFromClickToHangUp) {
  Click();
  EXPECT_EQ(tapi.log, Lines{"call 0 00301234"});
  EXPECT_TRUE(panel.sessionOn);
  EXPECT_FALSE(panel.dialEnabled);
  events.OnCallState(7, 1, kLineCallDialing);
  EXPECT_TRUE(panel.dialEnabled);
  // Another call of the line touches this one neither before nor after it has a handle.
  for (const std::int32_t handle : {0, 7}) {
    EXPECT_EQ(session.CallHandle(), handle);
    Connect(8);
    events.OnBusy(8);
    End(8);
    EXPECT_TRUE(panel.sessionOn);
    EXPECT_EQ(session.CallHandle(), handle);
    if (handle == 0) Connect(7);
  }
  EXPECT_EQ(Call().connectText, "04/03/2024 09:05:07");
  EXPECT_EQ(panel.log, Lines{"Verbunden um 09:05:07"});
  EXPECT_EQ(panel.dialFocused, 1);
  clock.now.minute = 6;
  Click();
  EXPECT_EQ(tapi.log.back(), "drop 0 7");
  EXPECT_TRUE(panel.sessionOn);
  EXPECT_FALSE(panel.dialEnabled);
  End(7);
  EXPECT_FALSE(panel.sessionOn);
  EXPECT_TRUE(panel.dialEnabled);
  EXPECT_EQ(session.CallHandle(), 0);
  EXPECT_EQ(panel.log,
            (Lines{"Verbunden um 09:05:07", "Getrennt um 09:06:07", "Gesprächsdauer: 1 Min. "}));
  EXPECT_EQ(databases.statements.back(),
            "UPDATE o Set Zeit=#04/03/2024 09:05:07#, Dauer='1 Min.' WHERE Zeit=#04/03/2024 "
            "09:05:07#");
  EXPECT_EQ(Call().startText, "");
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
    Click();
    EXPECT_EQ(panel.log.size(), 2U) << "said once";
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
    events.OnCallState(7, 1, kLineCallRingback);
    if (connectedBefore) events.OnConnected(7);
    databases.statements.clear();
    events.OnBusy(7);
    EXPECT_EQ(panel.log.back(), "Die Leitung ist besetzt.");
    EXPECT_TRUE(panel.sessionOn);
    EXPECT_EQ(databases.statements.size(), connectedBefore ? 1U : 0U);
    End(7);
    EXPECT_FALSE(panel.sessionOn);
  }
  EXPECT_NE(databases.statements.at(0).find("Dauer='Besetzt'"), std::string::npos);
}

TEST_F(TapiDialerTest, ACallTakenAtTheTelephoneIsASessionOfItsOwn) {
  // Calls before it that nobody answered, or that could not be placed, left a row behind.
  Click();
  events.OnCallState(7, 1, kLineCallRingback);
  End(7);
  tapi.failing = true;
  Click();
  tapi.failing = false;
  const std::string contact = panel.contactLabel;
  EXPECT_FALSE(contact.empty());
  for (const bool hungUpHere : {true, false}) {
    SCOPED_TRACE(hungUpHere);
    databases.statements.clear();
    events.OnBusy(9);
    EXPECT_FALSE(panel.sessionOn);
    Connect(9);
    EXPECT_TRUE(panel.sessionOn);
    EXPECT_EQ(panel.contactLabel, "") << "the contact is another call's";
    if (hungUpHere) Click();
    EXPECT_EQ(tapi.log.back() == "drop 0 9", hungUpHere);
    events.OnBusy(9);
    tapi.log.emplace_back();
    End(9);
    EXPECT_FALSE(panel.sessionOn);
    EXPECT_EQ(panel.contactLabel, contact);
    EXPECT_EQ(panel.log, (Lines{"Verbunden um 09:05:07", "Aufgelegt.", "Getrennt um 09:05:07",
                                "Gesprächsdauer: "}));
    EXPECT_TRUE(databases.statements.empty());
  }
}

TEST_F(TapiDialerTest, ACallThroughTheModemIsNoneOfTheLine) {
  session.Begin(Session::Way::kModem);
  session.LogStart(clock.Now());
  databases.statements.clear();
  Connect(7);
  events.OnBusy(7);
  End(7);
  EXPECT_TRUE(panel.sessionOn);
  EXPECT_EQ(Call().connectText, "");
  EXPECT_TRUE(panel.log.empty() && databases.statements.empty());
  EXPECT_EQ(panel.dialFocused, 0);
}

TEST_F(TapiDialerTest, LooksAgainForALineThatWasNotThere) {
  state.settings.dialMethod = kDialMethodTapi;
  const auto inService = [this] {
    for (const std::int32_t line : {kNoTapiLine, 0}) {
      state.settings.tapiLineId = line;
      events.OnLineMessage("INSERVICE", "TapiLineDevState", 1);
    }
  };
  inService();
  EXPECT_EQ(panel.linesChanged, 1);
  // The options dialog must not hide that it is back, whatever line it has open.
  panel.windowEnabled = false;
  inService();
  EXPECT_EQ(panel.linesChanged, 3);
  panel.windowEnabled = true;
  session.Begin(Session::Way::kModem);
  inService();
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
  EXPECT_EQ(Call().startText, "");
  EXPECT_NE(prompts.markups.at(0).text.find("\"DialTAPI\""), std::string::npos);
  tapi.failing = false;
  // What the line refuses later comes as a message.
  for (const char* function : {"TapiMakeCall", "TapiLineDrop"}) {
    SCOPED_TRACE(function);
    Click();
    EXPECT_FALSE(panel.dialEnabled);
    events.OnLineMessage("SUCCESS", function, 0);
    events.OnLineMessage("FAILED", "TapiLineClose", -5);
    EXPECT_FALSE(panel.dialEnabled);
    events.OnLineMessage("FAILED", function, -5);
    EXPECT_TRUE(panel.sessionOn && panel.dialEnabled);
    Connect(7);
  }
  tapi.failing = true;
  Click();
  EXPECT_TRUE(panel.sessionOn);
  EXPECT_TRUE(panel.dialEnabled);
}

TEST_F(TapiDialerTest, TheOptionsDialogGetsTheEventsWhileItIsOpen) {
  RecordingTestDial dialog;
  TrialDialer trial{tapi, {serial, loop, clock, prompts, queue}, locale, state.settings, dialog};
  panel.windowEnabled = false;
  events.OnConnected(7);
  events.SetTestDial(&trial);
  events.OnLineMessage("SUCCESS", "TapiLineOpen", 0);
  events.OnLineMessage("SUCCESS", "TapiLineClose", 0);
  events.OnLineMessage("INVALLINEHANDLE", "TapiMakeCall", -5);
  Connect(7);
  events.OnBusy(7);
  End(7);
  EXPECT_EQ(dialog.log,
            (Lines{"TapiMessage: SUCCESS  TapiLineOpen  0",
                   "TapiMessage: INVALLINEHANDLE  TapiMakeCall  -5",
                   "*Verbindung hergestellt! - Handle, ID: 7  1", "focus", "session",
                   "*Verbindung getrennt! - Handle, ID: 7  1", "focus", "idle", "idle"}));
  EXPECT_FALSE(panel.sessionOn);
  EXPECT_EQ(session.CallHandle() + trial.CallHandle(), 0);
  EXPECT_TRUE(panel.log.empty() && databases.statements.empty());
}

// The moments count at which the line reported it, and the time between them, whatever the clock on
// the wall does meanwhile.
TEST_F(TapiDialerTest, EventsBehindAMessageBoxKeepTheirOrderAndTheirMoments) {
  session.SetNumber("", "217", "+49");
  databases.FailOpen(kDbErrorFailed, "gesperrt");
  prompts.whileShown = [this] {
    prompts.whileShown = nullptr;
    clock.now.second = 17;
    Connect(7);
    clock.now = {2024, 4, 3, 8, 5, 37, 0};
    clock.aheadOfUniversal -= 1.0 / 24;
    End(7);
    clock.now.day = 5;
    EXPECT_EQ(panel.log, Lines{">>> Wählen: 00301234"});
  };
  Click();
  EXPECT_FALSE(panel.sessionOn);
  EXPECT_EQ(panel.log,
            (Lines{"Verbunden um 09:05:17", "Getrennt um 08:05:37", "Gesprächsdauer: 20 Sek. "}));
}

}  // namespace
}  // namespace orvane
