#include "dialing/modem_dialer.h"

#include "dialing/trial_modem_dialer.h"
#include "fakes/program_fixture.h"
#include "fakes/recording_test_dial.h"

namespace orvane {
namespace {

using std::chrono_literals::operator""s;
using Lines = std::vector<std::string>;

class ModemDialerTest : public JournalFixture {
 protected:
  ModemDialerTest() {
    call.company = "Muster GmbH";
    call.lastDialedDigits = "0301234";
  }
  void Click() {
    queue.Submit([this] { modem.DialModem("00301234"); });
  }

  CallLogger logger = NewLogger(clock);
  ModemDialer modem{{serial, loop, clock, prompts, queue}, state.settings, call, logger, panel};
};

TEST_F(ModemDialerTest, DialsWhenTheModemHasAnsweredWithTwoCharacters) {
  Click();
  EXPECT_TRUE(panel.sessionOn);
  EXPECT_EQ(panel.log, Lines{">>> Wählen: 00301234"});
  EXPECT_FALSE(call.startText.empty());
  serial.Feed("O");
  EXPECT_EQ(serial.sent, "AT\r");
  serial.Feed("K");
  serial.Feed("\r\nCONNECT");
  EXPECT_EQ(serial.sent, "AT\rATDT 00301234\r");
  loop.Advance(29s);
  EXPECT_EQ(modem.CurrentPhase(), ModemCall::Phase::kHolding);
  loop.Advance(2s);
  EXPECT_EQ(modem.CurrentPhase(), ModemCall::Phase::kNone);
  EXPECT_TRUE(panel.sessionOn);
  EXPECT_TRUE(serial.PortOpen());

  Click();
  EXPECT_EQ(serial.sent, "AT\rATDT 00301234\rATH0\r");
  EXPECT_FALSE(serial.PortOpen());
  EXPECT_FALSE(panel.sessionOn);
  EXPECT_EQ(call.startText, "");
  EXPECT_EQ(panel.log, (Lines{">>> Wählen: 00301234", ">>> Aufgelegt.", "Status: <OK>"}));
  EXPECT_EQ(databases.statements.size(), 3U) << "one row, and nothing to complete";
}

TEST_F(ModemDialerTest, ACallThatWasHungUpNeverDials) {
  Click();
  Click();
  serial.Feed("\r\nOK\r\n");
  EXPECT_EQ(serial.sent, "AT\rATH0\r");
  Click();
  serial.Feed("\r\nOK\r\n");
  EXPECT_EQ(serial.sent, "AT\rATH0\rAT\rATDT 00301234\r");
  Click();
  EXPECT_EQ(loop.PendingTimers(), 0);
}

TEST_F(ModemDialerTest, TellsWhatIsWrongWithThePort) {
  const std::pair<std::uint8_t, Lines> kCases[] = {
      {9, {">>> Fehler Nr.8002: Ungültige Anschlussnummer", "Ungültige Anschlussnummer"}},
      {3, {">>> Fehler Nr.8005: Anschluss bereits geöffnet", "Anschluss bereits geöffnet"}},
      {17, {">>> Fehler Nr.: 1010101", "Keine Kommunikationseinheit an Bus #17"}}};
  serial.busyPorts = {3};
  for (const auto& [port, log] : kCases) {
    panel.log.clear();
    prompts.beeps = 0;
    state.settings.comPortNumber = port;
    if (port == 17) serial.SetCommPort(9);
    // The second click hangs up; there is nothing to close and nothing to say.
    for (const bool session : {true, false}) {
      Click();
      EXPECT_EQ(panel.log, log);
      EXPECT_EQ(prompts.beeps, 1);
      EXPECT_EQ(panel.sessionOn, session);
    }
  }
  EXPECT_EQ(serial.sent, "");
  EXPECT_TRUE(databases.statements.empty());
}

TEST_F(ModemDialerTest, ACableThatIsPulledEndsTheWaitWithAMessage) {
  for (const bool answered : {false, true}) {
    SCOPED_TRACE(answered);
    panel.log.clear();
    Click();
    if (answered) serial.Feed("OK");
    serial.Unplug();
    EXPECT_EQ(modem.CurrentPhase(), ModemCall::Phase::kNone);
    EXPECT_EQ(panel.log, (Lines{">>> Wählen: 00301234",
                                ">>> Fehler Nr.8020: Fehler beim Lesen des Kommunikationsgeräts",
                                "Fehler beim Lesen des Kommunikationsgeräts"}));
    EXPECT_EQ(loop.PendingTimers(), 0);
    Click();
    EXPECT_FALSE(panel.sessionOn);
    EXPECT_FALSE(serial.PortOpen());
  }
}

TEST_F(ModemDialerTest, AnOrderToCloseComesBeforeTheDialCommand) {
  databases.FailOpen(kDbErrorFailed, "Die Datei ist gesperrt.");
  prompts.whileShown = [this] {
    queue.Submit([this] { modem.Abandon(); });
    serial.Feed("OK");
  };
  Click();
  EXPECT_EQ(serial.sent, "AT\r");
}

TEST_F(ModemDialerTest, WhatHappensBehindAMessageBoxWaitsForIt) {
  databases.FailOpen(kDbErrorFailed, "Die Datei ist gesperrt.");
  prompts.whileShown = [this] {
    serial.Feed("OK");
    EXPECT_EQ(serial.sent, "AT\r");
    Click();
    EXPECT_TRUE(panel.sessionOn);
  };
  Click();
  EXPECT_EQ(prompts.boxes.size(), 1U);
  EXPECT_EQ(serial.sent, "AT\rATH0\r") << "a call that is hung up is not dialled any more";
  EXPECT_FALSE(panel.sessionOn);
}

TEST_F(ModemDialerTest, TheTestDialUsesItsOwnPortAndNoJournal) {
  RecordingTestDial dialog;
  TrialModemDialer test{{serial, loop, clock, prompts, queue}, dialog};
  test.TestDialModem("0217");
  EXPECT_EQ(serial.CommPort(), 3);
  serial.Feed("OK");
  EXPECT_EQ(serial.sent, "AT\rATDT 0217\r");
  test.TestDialModem("0217");
  test.TestDialModem("");
  serial.busyPorts = {3};
  serial.SetPortOpen(false);
  EXPECT_EQ(
      dialog.log,
      (Lines{"session", "Gegenstelle wird angewählt: 0217", ">>> Wählbefehl über 'COM3' gesendet.",
             ">>> Auflegesignal wurde gesendet.", "Status: <OK>", "idle", "session",
             "Gegenstelle wird angewählt: ", ">>> Wählbefehl über 'COM3' gesendet."}));
  test.TestDialModem("");
  EXPECT_EQ(dialog.log.back(), "idle");
  test.TestDialModem("");
  EXPECT_EQ(dialog.log.back(), "Anschluss bereits geöffnet");
  EXPECT_TRUE(dialog.pressed);
  EXPECT_TRUE(databases.statements.empty());
  EXPECT_TRUE(panel.log.empty());
}

}  // namespace
}  // namespace orvane
