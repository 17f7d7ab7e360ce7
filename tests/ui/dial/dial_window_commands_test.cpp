#include <QComboBox>

#include "area_codes/area_code_file.h"
#include "dial_window_fixture.h"

namespace orvane {
namespace {

class DialWindowCommands : public DialWindowFixture {
 protected:
  void SetUp() override {
    WriteFile(UserFile("Kurzwahl.dat"),
              "Pforte|11|A & <b>B</b>|22|\xBFLager|030 47 11 (ext.)|Labor|0305|\xBF");
    ShowWindow();
  }
  void Pick(int index) { Q_EMIT Find<QComboBox>("cboNr")->activated(index); }
  bool Visible(const char* name) { return Find<QWidget>(name)->isVisible(); }
};

TEST_F(DialWindowCommands, NumberFieldKeepsNumbersAndTellsWhereTheyLead) {
  std::filesystem::create_directories(folder / "res");
  CreateAreaCodeFile(folder / "res/VPB.rgt",
                     {{"0211", "Düsseldorf"}, {"43", "Österreich"}, {"352", "Luxemburg"}});
  for (const auto& [typed, kept, head] : {std::tuple{"030 / 12 34-56", "030 / 12 34-56", "Berlin"},
                                          {"O30x1y2", "3012", "<Inland>"},
                                          {"+49 (89) 5", "+49 (89) 5", "München"},
                                          {"0211", "0211", "Düsseldorf"},
                                          {"+49 (211) 1", "+49 (211) 1", "Düsseldorf"},
                                          {"(02!11) 1", "(02!11) 1", "Düsseldorf"},
                                          {"02", "02", "<Inland>"},
                                          {"0043 1", "0043 1", "Österreich"},
                                          {"+352 1", "+352 1", "Luxemburg"},
                                          {"+43 1", "+43 1", "Österreich"},
                                          {"0044", "0044", "<Ausland>"},
                                          {"43", "43", "<Inland>"},
                                          {"*43#", "*43#", "<Inland>"},
                                          {"*31#!", "*31#!", "<Inland>"},
                                          {"*#00", "*#00", "Bereit..."},
                                          {"äöü€", "", "Bereit..."}}) {
    SCOPED_TRACE(typed);
    window->SetNumberText(typed);
    EXPECT_EQ(window->NumberText(), kept);
    EXPECT_EQ(TextOf("lblHead"), head);
    EXPECT_EQ(TextOf("lblBase_1").empty(), TextOf("lblHead") != "Bereit...");
  }
  EXPECT_EQ(TextOf("lblBase_1"), "Bitte wählen Sie...");
}

TEST_F(DialWindowCommands, ButtonsFillTheNumberField) {
  SetClipboard("Tel. 040/99");
  SetRegistry("Wahlwdh", "089 1");
  for (const auto& [button, number, focus] : {std::tuple{"cmdGetClpbrd", " 040/99", "txtNr"},
                                              {"cmdWdh", "089 1", "txtNr"},
                                              {"cmdClear", "", "txtNr"},
                                              {"cmdNr_0", "0", "tabDisplay"},
                                              {"cmdNr_10", "0*", "tabDisplay"},
                                              {"cmdNr_11", "0*#", "tabDisplay"}}) {
    SCOPED_TRACE(button);
    Click(button);
    EXPECT_EQ(window->NumberText(), number);
    EXPECT_EQ(FocusName(), focus);
  }
  SetClipboard("");
  SetRegistry("Wahlwdh", "");
  for (const char* button : {"cmdGetClpbrd", "cmdWdh"}) {
    window->SetNumberText("123");
    Click(button);
    EXPECT_EQ(window->NumberText(), "") << button;
  }
}

TEST_F(DialWindowCommands, SpeedDialTakesNumberAndMark) {
  auto* list = Find<QComboBox>("cboNr");
  ASSERT_EQ(list->count(), 4);
  EXPECT_EQ(list->itemText(1), QStringLiteral("A & <b>B</b>"));
  for (const auto& [index, number, ticked, external] : {std::tuple{2, "030 47 11 ()", true, true},
                                                        {0, "11", false, false},
                                                        {3, "0305", false, true}}) {
    SCOPED_TRACE(index);
    Pick(index);
    EXPECT_EQ(window->NumberText(), number);
    EXPECT_EQ(window->ExternTicked(), ticked);
    EXPECT_EQ(list->currentIndex(), index);
    EXPECT_EQ(Visible("imgExt"), external);
    EXPECT_EQ(Visible("imgInt"), !external);
  }
  window->SetExternTicked(true);
  window->SetExternVisible(false);
  Pick(0);
  EXPECT_TRUE(window->ExternTicked());
  window->SetNumberText("999");
  EXPECT_EQ(list->currentIndex(), -1);

  WriteFile(UserFile("Kurzwahl.dat"), "");
  window->ReloadSettings();
  ASSERT_EQ(list->count(), 1);
  EXPECT_EQ(list->itemText(0), QStringLiteral("Keine Kurzwahlnummer gespeichert!"));
  Pick(0);
  EXPECT_EQ(window->NumberText(), "999");
}

TEST_F(DialWindowCommands, DialsAndHangsUp) {
  window->SetNumberText("030/1234");
  for (const bool session : {true, false}) {
    Click("cmdDial_0");
    EXPECT_EQ(SessionShown(), session);
    for (const char* button : {"cmdDial_0", "cmdDial_1"}) {
      EXPECT_EQ(Find<QAbstractButton>(button)->text(),
                session ? QStringLiteral("&Auflegen") : QStringLiteral("&Wählen"));
    }
    serial.Feed("OK\r\n");
    EXPECT_EQ(Log().front(), ">>> Wählen: 0301234");
  }
  EXPECT_EQ(serial.sent, "AT\rATDT 0301234\rATH0\r");
  EXPECT_EQ(Registry("Wahlwdh"), "030/1234");
  EXPECT_EQ(Log().back(), "Status: <OK>");
}

TEST_F(DialWindowCommands, RefusesOptionsAndHistoryDuringASession) {
  using Box = FakePrompts::Box;
  CreateJournalFile(UserFile("TelList.fdb"));
  window->SetNumberText("0301234");
  Click("cmdDial_0");
  prompts.boxes.clear();
  prompts.beeps = 0;
  Click("cmdHistory");
  EXPECT_FALSE(window->HistoryShown());
  Click("cmdOptionen");
  EXPECT_TRUE(window->isEnabled() && window->isVisible());
  EXPECT_EQ(prompts.boxes,
            (std::vector<Box>{
                {PromptIcon::kExclamation,
                 "Die Anrufhistorie kann nicht während einer Telefonsitzung geöffnet werden.",
                 "Ausführung nicht möglich!"},
                {PromptIcon::kExclamation,
                 "Optionen können nicht während einer Telefonsitzung geändert werden.",
                 "Ausführung nicht möglich!"}}));
  EXPECT_EQ(prompts.beeps, 2);
  Click("cmdDial_0");
  Click("cmdHistory");
  EXPECT_TRUE(window->HistoryShown());
}

TEST_F(DialWindowCommands, ClicksBehindABoxWaitForItsEnd) {
  window->SetNumberText("0301234");
  Click("cmdDial_0");
  prompts.whileShown = [this] {
    Click("cmdNr_4");
    Click("cmdNr_2");
    window->close();
    EXPECT_EQ(window->NumberText(), "0301234");
    EXPECT_TRUE(window->IsLoaded());
  };
  Click("cmdOptionen");
  EXPECT_EQ(window->NumberText(), "030123442");
  EXPECT_FALSE(window->IsLoaded());
}

TEST_F(DialWindowCommands, TheLogTakesTheVersionsPlace) {
  auto* log = Find<QListWidget>("lstCallProgress");
  EXPECT_TRUE(Visible("lblVer") && !Visible("shpBottom"));
  for (int line = 0; line < 30; ++line) window->AddStatus("Zeile " + std::to_string(line));
  window->AddStatus("");
  EXPECT_TRUE(!Visible("lblVer") && Visible("shpBottom"));
  EXPECT_EQ(log->currentRow(), -1);
  const QRect last = log->visualItemRect(log->item(30));
  EXPECT_TRUE(log->viewport()->rect().contains(last.center()));
}

TEST_F(DialWindowCommands, FreeAreasDragTheWindow) {
  int drags = 0;
  for (const char* area : {"panBase", "lblBase_0", "lblBase_1", "lblBase_2", "lblBase_3", "lblHead",
                           "lblAdr", "lstCallProgress", "grpFilter", "lblInf_0"}) {
    SCOPED_TRACE(area);
    QWidget* target = Find<QWidget>(area);
    if (auto* list = qobject_cast<QListWidget*>(target)) target = list->viewport();
    QTest::mousePress(target, Qt::RightButton);
    EXPECT_EQ(chrome->drags, drags);
    QTest::mousePress(target, Qt::LeftButton);
    EXPECT_EQ(chrome->drags, ++drags);
  }
  window->move(-200, 30);
  chrome->EndDrag();
  EXPECT_EQ(window->pos(), QPoint(-200, 30)) << "the full view stays where it was dropped";
  Click("hovSizer");
  QTest::mousePress(Find<QWidget>("lblHead"), Qt::LeftButton);
  window->move(-200, -200);
  chrome->EndDrag();
  EXPECT_EQ(window->pos(), QPoint(0, -1)) << "the compact view comes back";
  ++drags;
  Click("cmdClear");
  EXPECT_EQ(chrome->drags, drags);
}

TEST_F(DialWindowCommands, OnlyADoubleClickOnTheTitleSwitchesTheView) {
  constexpr quint64 kLongAgo = 10000;
  const struct {
    const char* what;
    Qt::MouseButton button;
    quint64 after;
    QPoint moved;
    bool switches;
  } kSecond[] = {
      {"soon and there", Qt::LeftButton, 200, {2, 1}, true},
      {"late", Qt::LeftButton, 2000, {}, false},
      {"elsewhere", Qt::LeftButton, 200, {12, 0}, false},
      {"another button", Qt::RightButton, 200, {}, false},
  };
  quint64 time = kLongAgo;
  for (const auto& second : kSecond) {
    SCOPED_TRACE(second.what);
    const int drags = chrome->drags;
    const int height = window->height();
    PressTitle(Qt::LeftButton, time);
    PressTitle(second.button, time + second.after, second.moved);
    EXPECT_EQ(window->height() != height, second.switches);
    const bool dragged = second.button == Qt::LeftButton && !second.switches;
    EXPECT_EQ(chrome->drags, drags + (dragged ? 2 : 1));
    time += kLongAgo;
  }
}

}  // namespace
}  // namespace orvane
