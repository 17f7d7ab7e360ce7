#include "dialing/modem_dialer.h"

#include "fakes/program_fixture.h"

namespace orvane {
namespace {

using std::chrono_literals::operator""s;
using Lines = std::vector<std::string>;

class ModemDialerTest : public JournalFixture {
 protected:
  ModemDialerTest() { session.HandIn({"Muster GmbH", "", "", 0, 0}, "0301234"); }
  void Click() {
    queue.Submit([this, at = clock.Now()] { modem.DialModem("00301234", at); });
  }

  ModemDialer modem{{serial, loop, clock, prompts, queue}, state.settings, session, panel};
};

TEST_F(ModemDialerTest, DialsWhenTheModemHasAnsweredWithTwoCharacters) {
  Click();
  EXPECT_TRUE(panel.sessionOn);
  EXPECT_EQ(panel.log, Lines{">>> Wählen: 00301234"});
  EXPECT_FALSE(session.Call().startText.empty());
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
  EXPECT_EQ(session.Call().startText, "");
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
    for (const bool on : {true, false}) {
      Click();
      EXPECT_EQ(panel.log, log);
      EXPECT_EQ(prompts.beeps, 1);
      EXPECT_EQ(panel.sessionOn, on);
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
    EXPECT_EQ(panel.log.size(), 5U) << "that the modem was not told is said again";
  }
}

TEST_F(ModemDialerTest, AfterTheHoldACableThatIsOutIsNoSuccess) {
  Click();
  serial.Feed("OK");
  loop.Advance(31s);
  serial.Unplug();
  EXPECT_EQ(panel.log.size(), 1U);
  Click();
  EXPECT_EQ(panel.log.at(1), ">>> Fehler Nr.8020: Fehler beim Lesen des Kommunikationsgeräts");
  EXPECT_EQ(panel.log.back(), "Fehler beim Lesen des Kommunikationsgeräts");
  EXPECT_FALSE(panel.sessionOn || serial.PortOpen());
}

TEST_F(ModemDialerTest, TheJournalHasTheMomentOfTheClick) {
  prompts.whileShown = [this] {
    if (session.On()) return;
    Click();
    clock.now.hour = 12;
  };
  queue.Submit([this] { prompts.ShowMessage(PromptIcon::kNone, "", ""); });
  EXPECT_EQ(session.Call().startText, "04/03/2024 09:05:07");
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

}  // namespace
}  // namespace orvane
