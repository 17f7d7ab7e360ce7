#include "dialing/dial_command.h"

#include "fakes/program_fixture.h"

namespace orvane {
namespace {

class DialCommandTest : public JournalFixture {
 protected:
  DialCommandTest() {
    state.settings.dialMethod = kDialMethodModem;
    state.settings.outsideLineExt = " 0 ";
    state.settings.outsideLineInt = "*";
    panel.externVisible = true;
  }
  void Click(const std::string& number) {
    panel.numberText = number;
    dial.Click(clock.Now());
  }
  void ClickAnew(const std::string& number) {
    session.Abandon();
    Click(number);
  }

  ModemDialer modem{{serial, loop, clock, prompts, queue}, state.settings, session, panel};
  TapiDialer tapiDialer{tapi, locale, prompts, state.settings, session, panel};
  RedialMemory redial{newRegistry, background};
  DialCommand dial{prompts, supportLog, state, session, panel, redial, modem, tapiDialer};
};

TEST_F(DialCommandTest, BuildsTheDialString) {
  const std::tuple<const char*, bool, bool, const char*, const char*, const char*, bool> kCases[] =
      {{"030/1234", true, true, "00301234", "0301234", "49301234", true},
       {"030/1234", true, false, "*0301234", "0301234", "", false},
       {"030/1234", false, false, "00301234", "0301234", "49301234", true},
       {"217", true, true, "*217", "217", "", false},
       {"217", false, true, "*217", "217", "", false},
       {"+49 (30) 12!34", true, true, "00301234", "0301234", "493012!34", true},
       {"*31#", true, true, "0*31#", "31", "49*31#", true}};
  for (const auto& [number, visible, ticked, dialString, digits, canonical, tickedAfter] : kCases) {
    SCOPED_TRACE(number);
    panel.externVisible = visible;
    panel.externTicked = ticked;
    ClickAnew(number);
    EXPECT_EQ(dial.DialString(), dialString);
    EXPECT_EQ(session.Call().lastDialedDigits, digits);
    EXPECT_EQ(session.Call().canonicalNumber, canonical);
    EXPECT_EQ(panel.externTicked, tickedAfter);
    EXPECT_EQ(Registry("Wahlwdh"), number);
    EXPECT_EQ(panel.log.front(), std::string(">>> Wählen: ") + dialString);
  }
}

TEST_F(DialCommandTest, KeepsTheContactOnlyWhileTheNumberIsTheSame) {
  databases.FailOpen(kDbErrorFailed, "fehlt");
  for (const auto& [before, number, kept] : {std::tuple{"0301234", "030 1234", true},
                                             {"+49 30 1234", "+49 30 1234", true},
                                             {"+49 30 1234", "030/1234", true},
                                             {"0301234", "+49 30 1234", true},
                                             {"0301234", "030 12345", false},
                                             {"431234", "+43 1234", false},
                                             {"+43 1234", "431234", false}}) {
    for (const bool dialledBefore : {false, true}) {
      SCOPED_TRACE(std::string(before) + " " + number + (dialledBefore ? " dialled" : ""));
      panel.externTicked = true;
      session.HandIn({"Muster GmbH", "", "", 7, 0}, before);
      if (dialledBefore) ClickAnew(before);
      EXPECT_EQ(panel.contactLabel, "Muster GmbH\r\n\r\n\r\n");
      ClickAnew(number);
      EXPECT_EQ(session.Call().company, kept ? "Muster GmbH" : "");
      EXPECT_EQ(session.Call().addressKey, kept ? 7 : 0);
      EXPECT_EQ(panel.contactLabel == "Muster GmbH\r\n\r\n\r\n", kept);
    }
  }
}

TEST_F(DialCommandTest, ChoosesTheWayOfDialling) {
  const std::tuple<std::uint8_t, std::uint8_t, std::int32_t, bool, int> kCases[] = {
      {0, 1, -1, false, 0}, {1, 3, -1, false, 3}, {1, 0, -1, false, 0},
      {2, 1, -1, false, 0}, {3, 1, 0, false, 0},  {0, 3, -1, true, 1}};
  for (const auto& [method, port, line, devDial, dialledPort] : kCases) {
    SCOPED_TRACE(static_cast<int>(method));
    panel.devDialTicked = devDial;
    serial.SetPortOpen(false);
    prompts.beeps = 0;
    state.settings.dialMethod = method;
    state.settings.comPortNumber = port;
    state.settings.tapiLineId = line;
    ClickAnew("0301234");
    EXPECT_EQ(panel.sessionOn, dialledPort != 0);
    if (panel.sessionOn) {
      EXPECT_EQ(serial.CommPort(), dialledPort);
    } else {
      EXPECT_EQ(prompts.beeps, 1);
      EXPECT_EQ(panel.log, (std::vector<std::string>{"Automatische Anwahl nicht möglich.",
                                                     "Sie müssen zunächst unter Optionen",
                                                     "die CTI-Telefonwahl konfigurieren."}));
    }
  }
  tapi.tag = TapiTag::kOpened;
  state.settings.dialMethod = kDialMethodTapi;
  state.settings.tapiLineId = 0;
  panel.devDialTicked = false;
  ClickAnew("*0301234#");
  EXPECT_TRUE(panel.sessionOn);
  EXPECT_EQ(tapi.log, std::vector<std::string>{"call 0 **0301234#"});
}

TEST_F(DialCommandTest, NeedsAUserAndLeavesTheHistoryFirst) {
  panel.externTicked = true;
  ClickAnew("0301234");
  EXPECT_EQ(session.Call().canonicalNumber, "49301234");
  session.Abandon();
  SetRegistry("Wahlwdh", "");
  state.host.userNumber = 0;
  Click("0301234");
  EXPECT_EQ(session.Call().canonicalNumber + Registry("Wahlwdh"), "");
  EXPECT_FALSE(panel.sessionOn);
  state.host.userNumber = 17;
  panel.historyShown = true;
  registry->denyWrites = true;
  Click("0301234");
  EXPECT_FALSE(panel.historyShown);
  EXPECT_TRUE(panel.sessionOn);
  registry->denyWrites = false;
  // Ends the call without preparing again, and the way it was placed.
  state.settings.dialMethod = kDialMethodTapi;
  state.settings.tapiLineId = 0;
  Click("0999");
  EXPECT_TRUE(tapi.log.empty());
  EXPECT_EQ(session.Call().lastDialedDigits, "0301234");
  EXPECT_EQ(Registry("Wahlwdh"), "");
  EXPECT_FALSE(panel.sessionOn);
  EXPECT_EQ(panel.log.back(), "Status: <OK>");
}

}  // namespace
}  // namespace orvane
