#include "dialing/trial_dialer.h"

#include <gtest/gtest.h>

#include "fakes/program_fixture.h"
#include "fakes/recording_test_dial.h"

namespace orvane {
namespace {

using std::chrono_literals::operator""s;
using Lines = std::vector<std::string>;
constexpr auto kModem = Session::Way::kModem;
constexpr auto kLine = Session::Way::kLine;

class TrialDialerTest : public JournalFixture {
 protected:
  TrialDialerTest() {
    tapi.lineNames = {"Büro", "Lager"};
    tapi.tag = TapiTag::kOpened;
    state.settings.tapiLineId = 1;
  }
  // What the dialog was told since the last question.
  Lines Told() { return std::exchange(dialog.log, {}); }
  // A call of the line, from its connection to its end.
  void ForeignCall(std::int32_t handle) {
    test.CallState(handle, 1, kLineCallConnected, clock.Now());
    test.Connected(handle, clock.Now());
    test.CallState(handle, 1, kLineCallDisconnected, clock.Now());
    test.Disconnected(handle, clock.Now());
    test.CallState(handle, 1, kLineCallIdle, clock.Now());
  }

  static constexpr const char* kBegin = "<09:05:07, Beginn der Befehlskette>";
  static constexpr const char* kEnd = "<09:05:07, Ende der Befehlskette>";
  RecordingTestDial dialog;
  TrialDialer test{tapi, {serial, loop, clock, prompts, queue}, locale, state.settings, dialog};
};

TEST_F(TrialDialerTest, ThroughTheModemTheCommandsEndWithTheHoldOrTheHangUp) {
  const Lines placed = {kBegin, "session", "Gegenstelle wird angewählt: 0217",
                        ">>> Wählbefehl über 'COM3' gesendet."};
  test.Click(kModem, "0217");
  serial.Feed("OK");
  EXPECT_EQ(serial.sent, "AT\rATDT 0217\r");
  EXPECT_EQ(Told(), placed);
  // Hanging up is a chain of commands within the first one. The way is that of the call.
  test.Click(kLine, "0217");
  EXPECT_EQ(serial.sent, "AT\rATDT 0217\rATH0\r");
  EXPECT_EQ(Told(), (Lines{kBegin, ">>> Auflegesignal wurde gesendet.", "Status: <OK>", "idle",
                           kEnd, kEnd}));
  test.Click(kModem, "0217");
  serial.Feed("OK");
  Told();
  loop.Advance(31s);
  EXPECT_EQ(Told(), Lines{kEnd});
  EXPECT_TRUE(test.On());
  test.Click(kModem, "");
  EXPECT_EQ(Told(),
            (Lines{kBegin, ">>> Auflegesignal wurde gesendet.", "Status: <OK>", "idle", kEnd}));
  // A cable that is pulled ends the wait; hanging up then has nothing to be proud of.
  test.Click(kModem, "0217");
  Told();
  serial.Unplug();
  EXPECT_EQ(Told(), (Lines{">>> Fehler Nr.8020: Fehler beim Lesen des Kommunikationsgeräts",
                           "Fehler beim Lesen des Kommunikationsgeräts", kEnd}));
  test.Click(kModem, "");
  EXPECT_EQ(Told(), (Lines{kBegin, ">>> Fehler Nr.8020: Fehler beim Lesen des Kommunikationsgeräts",
                           "Fehler beim Lesen des Kommunikationsgeräts", "idle", kEnd}));
  EXPECT_TRUE(databases.statements.empty() && panel.log.empty());
}

TEST_F(TrialDialerTest, AModemThatIsNotThereEndsTheCommandsAtOnce) {
  serial.busyPorts = {3};
  test.Click(kModem, "0217");
  EXPECT_EQ(Told(), (Lines{kBegin, "session", ">>> Fehler Nr.8005: Anschluss bereits geöffnet",
                           "Anschluss bereits geöffnet", kEnd}));
  EXPECT_TRUE(test.On());
  test.Click(kModem, "");
  EXPECT_EQ(Told(), (Lines{kBegin, "idle", kEnd}));
}

TEST_F(TrialDialerTest, OpensALineThatWasLost) {
  tapi.tag = TapiTag::kClosed;
  test.Click(kLine, "1");
  EXPECT_EQ(tapi.log, (Lines{"open 1 4 6 9", "call 1 1"}));
  EXPECT_EQ(Told(), (Lines{kBegin, "session", "Öffne TAPI-Line: #1", "TAPI-Gerät: Lager",
                           "Gegenstelle wird angewählt: 1", kEnd}));
  EXPECT_TRUE(dialog.enabled);
}

TEST_F(TrialDialerTest, ReportsAFailureAndIsIdleAgain) {
  for (const std::int32_t line : {1, kNoTapiLine}) {
    SCOPED_TRACE(line);
    tapi.failing = line == 1;
    state.settings.tapiLineId = line;
    prompts.markups.clear();
    test.Click(kLine, "1");
    EXPECT_FALSE(test.On() || dialog.pressed);
    EXPECT_TRUE(dialog.enabled);
    ASSERT_EQ(prompts.markups.size(), 1U);
    EXPECT_NE(prompts.markups[0].text.find("\"TAPI-Testwahl\""), std::string::npos);
  }
}

TEST_F(TrialDialerTest, OtherCallsOfTheLineAreOnlyTold) {
  const Lines told = {"*Verbindung hergestellt! - Handle, ID: 8  1", "focus",
                      "*Verbindung getrennt! - Handle, ID: 8  1", "focus"};
  for (const auto way : {kLine, kModem}) {
    test.Click(way, "1");
    Told();
    ForeignCall(8);
    EXPECT_EQ(Told(), told);
    EXPECT_TRUE(test.On());
    test.End();
    test.LineGone();
    EXPECT_FALSE(test.On());
  }
  // The end of the call that was hung up, and then one at the telephone itself.
  test.Click(kLine, "1");
  test.Click(kLine, "1");
  EXPECT_EQ(tapi.log.back(), "drop 1 0");
  ForeignCall(7);
  EXPECT_EQ(test.CallHandle(), 0);
  test.CallState(9, 1, kLineCallRingback, clock.Now());
  test.Connected(9, clock.Now());
  EXPECT_TRUE(test.On());
  test.Click(kModem, "");
  EXPECT_EQ(tapi.log.back(), "drop 1 9");
}

}  // namespace
}  // namespace orvane
