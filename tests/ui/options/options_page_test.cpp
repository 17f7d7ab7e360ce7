// What the controls of the page "Kommunikationseinstellungen" do.
#include <QTabWidget>

#include "ui/options/options_dialog_fixture.h"

namespace orvane {
namespace {

using Lines = std::vector<std::string>;

class OptionsPageTest : public OptionsDialogFixture {};

TEST_F(OptionsPageTest, TheDialMethodDecidesWhatCanBeChosen) {
  OpenOptions();
  EXPECT_EQ(Progress(), "<Bereit>");
  EXPECT_TRUE(In("grpDeakt")->isHidden());
  const struct {
    const char* method;
    const char* progress;
    bool covered;
    const char* shown;
    bool monitor;
  } kSteps[] = {
      {"optDial_1", "<Status für Comm-Port - OK>", false, "optComPort_1", false},
      {"optDial_2", "<Status für TAPI - OK>", false, "lstLineSel", true},
      {"optDial_0", "<CTI deaktiviert>", true, "optComPort_1", false},
      // The cover stays on the direct way to the lines.
      {"optDial_2", "<Status für TAPI - OK>", true, "lstLineSel", true},
      {"optDial_1", "<Status für Comm-Port - OK>", false, "optComPort_1", false},
  };
  for (const auto& step : kSteps) {
    SCOPED_TRACE(step.progress);
    Choose(step.method);
    EXPECT_EQ(Progress(), step.progress);
    EXPECT_EQ(In("grpDeakt")->isVisible(), step.covered);
    EXPECT_TRUE(In(step.shown)->isVisible());
    EXPECT_EQ(Enabled("chkAnrufmonitor"), step.monitor);
    EXPECT_EQ(Enabled("tabConf"), !step.covered);
  }
  // A click on what is selected counts, too.
  dialog->AppendProgress("mehr");
  Choose("optDial_1");
  EXPECT_EQ(Progress(), "<Status für Comm-Port - OK>");
  Choose("optDial_0");
  EXPECT_EQ(In("grpDeakt")->pos(), In("lblDialHead")->pos());
  EXPECT_TRUE(In("grpDeakt")->geometry().contains(In("tabConf")->geometry()));
}

TEST_F(OptionsPageTest, OnlyPortsThatExistCanBeChosen) {
  serialPorts = {"COM12", "COM3"};
  OpenOptions();
  Choose("optDial_1");
  for (int port = 1; port <= kComPortChoices; ++port) {
    EXPECT_EQ(Enabled(("optComPort_" + std::to_string(port)).c_str()), port == 3) << port;
  }
}

TEST_F(OptionsPageTest, TheTestNumberIsFilteredAndDecidesAboutTheButton) {
  OpenOptions();
  const struct {
    const char* method;
    const char* typed;
    const char* kept;
    bool enabled;
  } kCases[] = {
      {"optDial_2", "+49 (30) 12-34", "+49 (30) 12-34", true},
      {"optDial_2", "ab3c0 1\xC3\xA4", "30 1", true},
      {"optDial_2", "000", "000", false},
      {"optDial_2", "*#!", "*#!", false},
      {"optDial_1", "0301", "0301", true},
      {"optDial_0", "0301", "0301", false},
  };
  for (const auto& [method, typed, kept, enabled] : kCases) {
    SCOPED_TRACE(typed);
    Choose(method);
    Type("txtTestNr", typed);
    EXPECT_EQ(FieldText("txtTestNr"), kept);
    EXPECT_EQ(Enabled("cmdDial"), enabled);
  }
  Choose("optDial_1");
  EXPECT_TRUE(Enabled("cmdDial"));
}

TEST_F(OptionsPageTest, TheButtonEndsWhateverItShowsAndTakesTheFocusOnlyWhereItIsSeen) {
  OpenOptions();
  Choose("optDial_0");
  In<QTabWidget>("tabTab")->setCurrentIndex(1);
  CallTakenAtTheTelephone();
  EXPECT_EQ(FocusName(), "cmdAktion_0");
  In<QTabWidget>("tabTab")->setCurrentIndex(0);
  EXPECT_TRUE(Enabled("cmdDial"));
  ClickIn("cmdDial");
  EXPECT_EQ(tapi.log, Lines{"drop 1 7"});
  EXPECT_FALSE(dialog->TestDial().On() || Enabled("cmdDial"));
}

TEST_F(OptionsPageTest, ATestCallNeedsALine) {
  OpenOptions();
  Type("txtTestNr", "301");
  state.settings.tapiLineId = kNoTapiLine;
  const std::string before = Progress();
  ClickIn("cmdDial");
  EXPECT_EQ(
      prompts.boxes,
      std::vector<FakePrompts::Box>(
          {{PromptIcon::kExclamation, "Bitte wählen Sie zuerst ein TAPI-Gerät aus.", "Testwahl"}}));
  EXPECT_EQ(Progress(), before);
  EXPECT_FALSE(dialog->TestDial().On());
}

TEST_F(OptionsPageTest, SelectingALineClosesAndOpensAtOnce) {
  OpenOptions();
  EXPECT_EQ(tapi.log, Lines());
  EXPECT_EQ(In<QListWidget>("lstLineSel")->currentRow(), 1);
  CallTakenAtTheTelephone();
  EXPECT_TRUE(dialog->TestDial().On());
  ChooseLine(0);
  EXPECT_EQ(tapi.log, (Lines{"close 1", "open 0 4 6 9"}));
  EXPECT_EQ(state.settings.tapiLineId, 0);
  EXPECT_FALSE(dialog->TestDial().On());
  EXPECT_EQ(FocusName(), "tabConf");
  CallTakenAtTheTelephone();
  ChooseLine(0);
  EXPECT_EQ(tapi.log, (Lines{"close 1", "open 0 4 6 9", "close 0", "open 0 4 6 9"}));
  EXPECT_FALSE(dialog->TestDial().On());
  // The arrow keys go on from there.
  Key(Qt::Key_Down);
  EXPECT_EQ(state.settings.tapiLineId, 1);
  EXPECT_EQ(FocusName(), "tabConf");
}

TEST_F(OptionsPageTest, KeysSelectALineWhereNoneIsSelected) {
  SetRegistry("TapiBez", "");
  for (const int key : {Qt::Key_Home, Qt::Key_Down, Qt::Key_Up}) {
    state.settings.tapiLineId = kNoTapiLine;
    OpenOptions();
    In<QListWidget>("lstLineSel")->clearSelection();
    In("lstLineSel")->setFocus(Qt::TabFocusReason);
    Key(key);
    EXPECT_EQ(state.settings.tapiLineId, 0);
    ClickIn("cmdAktion_1");
  }
}

TEST_F(OptionsPageTest, AListThatIsReadAnewMayLackTheCurrentLine) {
  OpenOptions();
  tapi.lineNames = {"Lager", "Büro", "Flur"};
  ClickIn("cmdConfigDlg_3");
  EXPECT_EQ(In<QListWidget>("lstLineSel")->currentRow(), 0);
  EXPECT_EQ(state.settings.tapiLineId, 0);
  state.settings.tapiLineId = 2;
  for (const Lines& lines : {Lines{"Büro"}, Lines{"Büro", "Lager", ""}}) {
    tapi.log.clear();
    prompts.boxes.clear();
    tapi.lineNames = lines;
    ClickIn("cmdConfigDlg_3");
    EXPECT_EQ(tapi.log, (Lines{"shutdown", "init"}));
    EXPECT_EQ(prompts.boxes,
              (std::vector<FakePrompts::Box>{{PromptIcon::kExclamation,
                                              "Der TAPI-Treiber wurde entfernt oder umbenannt.",
                                              "TAPI-Treiber nicht mehr gültig!"}}));
    EXPECT_TRUE(In<QListWidget>("lstLineSel")->selectedItems().isEmpty());
  }
  EXPECT_EQ(In<QPlainTextEdit>("txtTapiInfo")->toPlainText().toStdString(),
            "TAPI-Geräteliste wurde erneut ausgelesen.");
}

TEST_F(OptionsPageTest, TheDriverIsDescribed) {
  tapi.info.switchInfo = "Anlage";
  tapi.info.providerInfo = "Treiber 1";
  tapi.info.version = 0x20000;
  OpenOptions();
  ClickIn("cmdConfigDlg_2");
  EXPECT_EQ(In<QPlainTextEdit>("txtTapiInfo")->toPlainText().toStdString(),
            "Treiber-Informationen =====================\nTreibername: Lager\nSwitchInfo: "
            "Anlage\nProviderInfo: Treiber 1\nTAPI Version: 131072");
}

TEST_F(OptionsPageTest, TheSystemsDialogsAreShownOrSaidToBeMissing) {
  OpenOptions();
  const auto shown = [this](std::vector<const char*> buttons) {
    prompts.boxes.clear();
    tapi.log.clear();
    for (const char* button : buttons) ClickIn(button);
    Lines lines = tapi.log;
    for (const auto& box : prompts.boxes) lines.push_back(box.title + ": " + box.text);
    return lines;
  };
  EXPECT_EQ(shown({"cmdConfigDlg_0", "cmdConfigDlg_1"}), (Lines{"dialling 1", "device 1"}));
  tapi.failing = true;
  EXPECT_EQ(shown({"cmdConfigDlg_0", "cmdConfigDlg_1"}),
            (Lines{"dialling 1", "device 1",
                   "Wählparameter: Für dieses TAPI-Gerät gibt es keine Wählparameter einzustellen.",
                   "Treibereinstellung: Der Treiber dieses TAPI-Geräts hat keine Einstellungen."}));
  state.settings.tapiLineId = kNoTapiLine;
  EXPECT_EQ(shown({"cmdConfigDlg_0", "cmdConfigDlg_1", "cmdConfigDlg_2"}),
            (Lines{"Wählparameter: Bitte wählen Sie zuerst ein TAPI-Gerät aus.",
                   "Treibereinstellung: Bitte wählen Sie zuerst ein TAPI-Gerät aus.",
                   "Treiber-Information: Bitte wählen Sie zuerst ein TAPI-Gerät aus."}));
  EXPECT_TRUE(prompts.markups.empty());
}

TEST_F(OptionsPageTest, ATestCallThroughALineIsFollowed) {
  OpenOptions();
  Type("txtAmtIntern", " 9 ");
  Type("txtTestNr", "0 30/1");
  // Enter in the number dials it; it does not apply the options.
  QTest::keyClick(In("txtTestNr"), Qt::Key_Return);
  EXPECT_EQ(tapi.log, (Lines{"call 1 90 30/1"}));
  EXPECT_EQ(Progress(),
            "<Bereit>\n<09:05:07, Beginn der Befehlskette>\nÖffne TAPI-Line: #1\nTAPI-Gerät: "
            "Lager\nGegenstelle wird angewählt: 90 30/1\n<09:05:07, Ende der Befehlskette>");
  EXPECT_EQ(Registry("TestRufNr"), "0 30/1");
  EXPECT_EQ(Registry("TestRufNrIE"), "0");
  EXPECT_EQ(In<QAbstractButton>("cmdDial")->text(), QStringLiteral("&Auflegen"));

  tapi.events->OnCallState(7, 8, kLineCallRingback);
  tapi.events->OnCallState(7, 8, kLineCallConnected);
  EXPECT_TRUE(ProgressEndsWith("*Verbindung hergestellt! - Handle, ID: 7  8"));
  EXPECT_EQ(FocusName(), "cmdDial");
  tapi.events->OnConnected(7);
  EXPECT_TRUE(dialog->TestDial().On());
  // Neither what is typed or chosen nor a registry that takes nothing keeps it from being ended.
  Type("txtTestNr", "");
  Choose("optDial_0");
  registry->deniedName = "TestRufNr";
  ClickIn("cmdDial");
  EXPECT_EQ(tapi.log.back(), "drop 1 7");
  EXPECT_EQ(Progress(),
            "<CTI deaktiviert>\n<09:05:07, Beginn der Befehlskette>\nVerbindung wird "
            "getrennt...\n<09:05:07, Ende der Befehlskette>");
  EXPECT_FALSE(Enabled("cmdDial"));
  tapi.events->OnCallState(7, 8, kLineCallDisconnected);
  tapi.events->OnDisconnected(7);
  tapi.events->OnCallState(7, 8, kLineCallIdle);
  EXPECT_TRUE(ProgressEndsWith("*Verbindung getrennt! - Handle, ID: 7  8"));
  EXPECT_FALSE(dialog->TestDial().On() || Enabled("cmdDial"));
  EXPECT_EQ(dialog->TestDial().CallHandle(), 0);
  EXPECT_EQ(Log(), Lines());
  EXPECT_TRUE(databases.statements.empty());
}

TEST_F(OptionsPageTest, ATestCallThroughTheModemEndsTheWayItBegan) {
  SetRegistry("CTI", "1");
  OpenOptions();
  Choose("optComPort_3");
  Choose("optIntExt_1");
  Type("txtAmtExtern", "0");
  Type("txtTestNr", "301");
  ClickIn("cmdDial");
  serial.Feed("OK");
  EXPECT_EQ(serial.CommPort(), 3);
  EXPECT_EQ(serial.sent, "AT\rATDT 0301\r");
  EXPECT_EQ(Registry("TestRufNrIE"), "1");
  Choose("optDial_2");
  Type("txtTestNr", "");
  ClickIn("cmdDial");
  EXPECT_EQ(serial.sent, "AT\rATDT 0301\rATH0\r");
  EXPECT_FALSE(dialog->TestDial().On());
  EXPECT_EQ(Registry("TestRufNr"), "301");
  Type("txtTestNr", "301");
  // Selecting a line ends the call before it, too.
  Choose("optDial_1");
  ClickIn("cmdDial");
  Choose("optDial_2");
  ChooseLine(0);
  EXPECT_EQ(serial.sent, "AT\rATDT 0301\rATH0\rAT\rATH0\r");
  EXPECT_FALSE(dialog->TestDial().On());
}

TEST_F(OptionsPageTest, SwitchingThePageMovesTheFocusToTheCommands) {
  OpenOptions();
  EXPECT_EQ(FocusName(), "optDial_2");
  In<QTabWidget>("tabTab")->setCurrentIndex(1);
  EXPECT_EQ(FocusName(), "cmdAktion_0");
  QTest::mousePress(In("lblHead"), Qt::LeftButton);
  QTest::mousePress(In("panHead"), Qt::LeftButton, {}, QPoint(3, 3));
  EXPECT_EQ(dialogChrome->drags, 2);
}

}  // namespace
}  // namespace orvane
