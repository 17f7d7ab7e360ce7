// How the options dialog opens and ends, and what becomes of what the user chose.
#include <QTabWidget>

#include "app/file_text.h"
#include "remote/copy_data_text.h"
#include "ui/options/options_dialog_fixture.h"

namespace orvane {
namespace {

using Lines = std::vector<std::string>;

class OptionsEndingTest : public OptionsDialogFixture {
 protected:
  void HostSends(const std::string& text) {
    FakeChannel host{desktop};
    for (const PeerWindow& peer : host.Windows()) host.SendCopyData(peer, MakeCopyData(text));
  }
  void StartTestCall() {
    Type("txtTestNr", "301");
    ClickIn("cmdDial");
    ASSERT_TRUE(dialog->TestDial().On());
  }
  std::string SpeedDialBytes() { return ReadWholeFile(state.host.userPath + "res\\Kurzwahl.dat"); }
};

TEST_F(OptionsEndingTest, TheDialWindowGoesAndComesBack) {
  const std::pair<const char*, std::function<void()>> kWays[] = {
      {"apply", [this] { ClickIn("cmdAktion_0"); }},
      {"cancel", [this] { ClickIn("cmdAktion_1"); }},
      {"Enter", [this] { QTest::keyClick(In("txtAmtIntern"), Qt::Key_Return); }},
      {"Escape", [this] { QTest::keyClick(In("txtAmtIntern"), Qt::Key_Escape); }},
      {"window manager", [this] { dialog->close(); }},
  };
  for (const auto& [name, end] : kWays) {
    SCOPED_TRACE(name);
    serial.SetPortOpen(true);
    OpenOptions();
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(window->isEnabled());
    EXPECT_FALSE(serial.PortOpen());
    EXPECT_EQ(chrome->log.back(), "topmost 0 quietly");
    serial.SetPortOpen(true);
    end();
    EXPECT_TRUE(Gone());
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(window->isEnabled());
    EXPECT_FALSE(serial.PortOpen());
    EXPECT_FALSE(prompts.busy);
    EXPECT_EQ(chrome->log.back(), "topmost -1 quietly");
    EXPECT_EQ(tapi.log, (Lines{"close 1", "open 1 4 6 9"}));
    EXPECT_EQ(state.settings.tapiLineId, 1);
  }
}

TEST_F(OptionsEndingTest, WhatIsAppliedIsWhatIsLoaded) {
  OpenOptions();
  std::vector<std::pair<std::string, std::string>> fields = {
      {"txtTestNr", "+49 (30) 1"}, {"txtAmtIntern", " 9"}, {"txtAmtExtern", "0,"}};
  for (int row = 0; row < 8; ++row) {
    for (const char* column : {"txtKNi", "txtKWi", "txtKNe", "txtKWe"}) {
      const std::string name = column + ("_" + std::to_string(row));
      fields.emplace_back(name, row == 5 ? "" : "ÄÖÜ äöü ß é €" + name);
    }
  }
  for (const auto& [name, text] : fields) Type(name.c_str(), text.c_str());
  Choose("optDial_1");
  Choose("optComPort_3");
  Choose("optIntExt_1");
  ClickIn("cmdAktion_0");
  ASSERT_TRUE(Gone());
  const std::string bytes = SpeedDialBytes();
  EXPECT_TRUE(bytes.starts_with("\xC4\xD6\xDC \xE4\xF6\xFC \xDF \xE9 \x80txtKNi_0|")) << bytes;
  EXPECT_TRUE(bytes.ends_with("txtKWe_7|")) << bytes;
  EXPECT_EQ(TextOf("lblBase_3"), "COM3: initialisiert");
  EXPECT_EQ(state.settings.tapiLineId, kNoTapiLine);

  OpenOptions();
  for (const auto& [name, text] : fields) EXPECT_EQ(FieldText(name.c_str()), text) << name;
  EXPECT_TRUE(Checked("optDial_1") && Checked("optComPort_3") && Checked("optIntExt_1"));
  ClickIn("cmdAktion_0");
  EXPECT_EQ(SpeedDialBytes(), bytes);
}

TEST_F(OptionsEndingTest, CancellingGivesTheLineBackAndWritesNothing) {
  OpenOptions();
  const auto before = registry->values;
  ChooseLine(0);
  Type("txtAmtExtern", "7");
  Type("txtKNi_0", "Neu");
  ClickIn("cmdAktion_1");
  EXPECT_EQ(tapi.log, (Lines{"close 1", "open 0 4 6 9", "close 0", "open 1 4 6 9"}));
  EXPECT_EQ(state.settings.tapiLineId, 1);
  EXPECT_EQ(registry->values, before);
  EXPECT_FALSE(std::filesystem::exists(UserFile("Kurzwahl.dat")));

  // A line that went away meanwhile is missing afterwards, and one that moved is found again.
  OpenOptions();
  tapi.lineNames = {"Lager"};
  ClickIn("cmdConfigDlg_3");
  ClickIn("cmdAktion_1");
  EXPECT_EQ(state.settings.tapiLineId, 0);
  for (const bool listed : {true, false}) {
    SCOPED_TRACE(listed);
    tapi.lineNames = {"Büro", "Lager"};
    tapi.goneLine = -1;
    MakeWindow();
    OpenOptions();
    prompts.markups.clear();
    if (listed) tapi.goneLine = 1;
    if (!listed) tapi.lineNames = {"Büro"};
    ClickIn("cmdAktion_1");
    EXPECT_EQ(state.settings.tapiLineId, kNoTapiLine);
    EXPECT_EQ(TextOf("lblBase_2"), "TAPI-Fehler!");
    EXPECT_TRUE(prompts.markups.empty());
  }
  // Without a line before there is none afterwards.
  OpenOptions();
  ChooseLine(0);
  ClickIn("cmdAktion_1");
  EXPECT_EQ(state.settings.tapiLineId, kNoTapiLine);
  EXPECT_EQ(tapi.log.back(), "close 0");
}

TEST_F(OptionsEndingTest, ApplyingThatFailsKeepsEveryEdit) {
  tapi.lineNames = {"Büro", "Flur"};
  OpenOptions();
  ChooseLine(0);
  Type("txtAmtExtern", "7");
  Type("txtKNi_0", "Neu");
  for (const char* denied : {"TestRufNr", "TapiBez"}) {
    SCOPED_TRACE(denied);
    registry->deniedName = denied;
    prompts.markups.clear();
    prompts.whileShown = [this] { EXPECT_TRUE(dialog->isVisible()); };
    ClickIn("cmdAktion_0");
    ASSERT_EQ(prompts.markups.size(), 1U);
    EXPECT_NE(prompts.markups[0].text.find("\"Optionen übernehmen\""), std::string::npos);
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(prompts.busy);
    EXPECT_EQ(state.settings.tapiLineId, 0);
    EXPECT_EQ(tapi.log.back(), "open 0 4 6 9");
    EXPECT_EQ(FieldText("txtKNi_0"), "Neu");
    EXPECT_EQ(Registry("AmtExt"), "");
  }
  // The monitor comes last, when the rest is in force: cancelling keeps that.
  registry->deniedName = "TapiMon";
  prompts.markups.clear();
  Choose("chkAnrufmonitor");
  ClickIn("cmdAktion_0");
  ASSERT_EQ(prompts.markups.size(), 1U);
  EXPECT_NE(prompts.markups[0].text.find("Alle anderen Einstellungen wurden übernommen."),
            std::string::npos);
  ClickIn("cmdAktion_1");
  EXPECT_TRUE(Gone());
  EXPECT_EQ(state.settings.outsideLineExt, "7");
  EXPECT_EQ(Registry("TapiBez"), "Büro");
  EXPECT_EQ(state.settings.tapiLineId, 0);
  EXPECT_EQ(tapi.log.back(), "open 0 4 6 9");
}

TEST_F(OptionsEndingTest, ACharacterThatTheFileLacksIsNamedBeforeAnythingIsWritten) {
  OpenOptions();
  const auto values = registry->values;
  Type("txtKNe_1", "Micha\u0142 \U0001F600");
  Type("txtAmtExtern", "7");
  ClickIn("cmdAktion_0");
  EXPECT_EQ(prompts.boxes,
            (std::vector<FakePrompts::Box>{
                {PromptIcon::kExclamation,
                 "Kurzwahlbezeichnung extern 2: Das Zeichen „\u0142“ kann nicht "
                 "gespeichert werden.\r\rBitte schreiben Sie den Eintrag ohne dieses "
                 "Zeichen. Bisher wurde nichts gespeichert.",
                 "Kurzwahlspeicher"}}));
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(FocusName(), "txtKNe_1");
  EXPECT_EQ(FieldText("txtAmtExtern"), "7");
  EXPECT_EQ(registry->values, values);
  EXPECT_EQ(tapi.log, Lines());
  EXPECT_FALSE(std::filesystem::exists(UserFile("Kurzwahl.dat")));
  // An umlaut in two parts is no such character.
  Type("txtKNe_1", "u\u0308");
  ClickIn("cmdAktion_0");
  EXPECT_TRUE(Gone());
  EXPECT_NE(SpeedDialBytes().find("|\xFC|"), std::string::npos);
}

TEST_F(OptionsEndingTest, ALineThatIsGoneIsAppliedAndReportedAsMissing) {
  const struct {
    const char* name;
    Lines lines;
    std::size_t reports;
  } kCases[] = {{"not listed", {"Lager"}, 0},
                {"without a name", {"", "Lager"}, 0},
                {"listed, but not to be opened", {"Büro", "Lager"}, 1}};
  for (const auto& [name, lines, reports] : kCases) {
    SCOPED_TRACE(name);
    tapi.lineNames = {"Büro", "Lager"};
    tapi.goneLine = -1;
    SetRegistry("TapiBez", "Lager");
    MakeWindow();
    OpenOptions();
    ASSERT_EQ(TextOf("lblBase_2"), "<Bereit>");
    ChooseLine(0);
    tapi.lineNames = lines;
    tapi.goneLine = 0;
    ClickIn("cmdAktion_0");
    EXPECT_TRUE(Gone());
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(prompts.busy);
    EXPECT_EQ(Registry("TapiBez"), "Büro");
    EXPECT_EQ(state.settings.tapiLineId, kNoTapiLine);
    EXPECT_EQ(TextOf("lblBase_2") + TextOf("lblBase_3"), "TAPI-Fehler!Bitte konfigurieren.");
    EXPECT_EQ(prompts.markups.size(), reports);
  }
}

TEST_F(OptionsEndingTest, ALineThatComesBackMeanwhileIsOpenedAtTheEnd) {
  for (const bool isBack : {false, true}) {
    SCOPED_TRACE(isBack);
    tapi.lineNames = {"Büro"};
    SetRegistry("TapiBez", "Lager");
    MakeWindow();
    OpenOptions();
    ASSERT_EQ(TextOf("lblBase_2"), "TAPI-Fehler!");
    ChooseLine(0);
    if (isBack) tapi.lineNames = {"Büro", "Lager"};
    tapi.events->OnLineMessage("INSERVICE", "TapiLineDevState", 64);
    ClickIn("cmdAktion_1");
    EXPECT_TRUE(Gone());
    EXPECT_EQ(TextOf("lblBase_2"), isBack ? "<Bereit>" : "TAPI-Fehler!");
    EXPECT_EQ(state.settings.tapiLineId, isBack ? 1 : kNoTapiLine);
  }
}

TEST_F(OptionsEndingTest, AHostThatDoesNotAnswerIsNoReasonToSayAnything) {
  FakeChannel tray{desktop};
  for (const bool there : {false, true}) {
    int heard = 0;
    // It takes the message and never lets the sender go on, who gives up.
    if (there)
      tray.Hook(
          1, "TALMIX_TRAY18", [&](const auto&, const auto&) { ++heard; }, [] {});
    OpenOptions();
    Type("txtAmtExtern", there ? "1" : "2");
    ClickIn("cmdAktion_0");
    EXPECT_TRUE(Gone());
    EXPECT_EQ(heard, there ? 1 : 0);
    EXPECT_TRUE(window->isVisible() && window->isEnabled());
    EXPECT_EQ(state.settings.outsideLineExt, there ? "1" : "2");
    EXPECT_TRUE(prompts.boxes.empty() && prompts.markups.empty() && !prompts.busy);
  }
}

TEST_F(OptionsEndingTest, ASpeedDialFileThatCannotBeReadIsNotOverwritten) {
  ShowWindow();
  std::filesystem::create_directory(UserFile("Kurzwahl.dat"));
  OpenOptions();
  ASSERT_EQ(prompts.markups.size(), 1U);
  EXPECT_NE(prompts.markups[0].text.find("\"Optionen - Initialisierung #\""), std::string::npos);
  EXPECT_FALSE(Enabled("txtKNi_0"));
  EXPECT_EQ(In<QListWidget>("lstLineSel")->currentRow(), 1);
  Type("txtAmtExtern", "7");
  ClickIn("cmdAktion_0");
  EXPECT_TRUE(Gone());
  EXPECT_EQ(Registry("AmtExt"), "7");
  EXPECT_TRUE(std::filesystem::is_directory(UserFile("Kurzwahl.dat")));
}

TEST_F(OptionsEndingTest, TheHostIsHeardWhileTheDialogIsOpen) {
  std::filesystem::create_directories(folder / "Daten/User/23/res");
  OpenOptions();
  ChooseLine(0);
  HostSends("TX:23~Dial~0|030 1234");
  EXPECT_TRUE(window->isVisible());
  EXPECT_FALSE(window->isEnabled());
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(window->NumberText(), "030 1234");
  // The other user's settings wait, so that the line under test stays the current one.
  EXPECT_EQ(state.settings.tapiLineId, 0);
  Type("txtKNi_0", "Neu");
  ClickIn("cmdAktion_0");
  EXPECT_TRUE(Gone());
  EXPECT_TRUE(std::filesystem::exists(UserFile("Kurzwahl.dat")));
  EXPECT_EQ(SpeedDialBytes(), "");
}

TEST_F(OptionsEndingTest, TheProgramCanEndInATestCall) {
  for (const char* method : {"1", "2"}) {
    for (const bool killed : {true, false}) {
      SCOPED_TRACE(std::string(method) + (killed ? " killed" : " closed"));
      SetRegistry("CTI", method);
      serial.sent.clear();
      MakeWindow();
      OpenOptions();
      StartTestCall();
      // The modem's call waits out its half minute.
      serial.Feed("OK");
      EXPECT_EQ(loop.PendingTimers(), serial.PortOpen() ? 1 : 0);
      if (killed) {
        HostSends("TX:17~X|KillMySelf|");
        EXPECT_FALSE(window->IsLoaded());
        EXPECT_TRUE(loop.quit);
      } else {
        dialog->close();
        EXPECT_TRUE(window->isVisible());
      }
      EXPECT_TRUE(Gone());
      EXPECT_FALSE(serial.PortOpen());
      EXPECT_EQ(loop.PendingTimers(), 0);
      EXPECT_EQ(serial.sent, *method == '1' ? "AT\rATDT 301\r" : "");
      // The program let go of its registry when it ended.
      state.host.registry = newRegistry();
      BindHostRegistry(*state.host.registry);
      EXPECT_EQ(Registry("CTI"), method);
      state.host.userNumber = 17;
    }
  }
}

}  // namespace
}  // namespace orvane
