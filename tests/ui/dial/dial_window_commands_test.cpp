#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QListWidget>

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
};

TEST_F(DialWindowCommands, NumberFieldKeepsNumbersAndTellsWhereTheyLead) {
  struct Case {
    const char* typed;
    const char* kept;
    const char* head;
  };
  for (const Case& c : {Case{"030 / 12 34-56", "030 / 12 34-56", "Berlin"},
                        {"O30x1y2", "3012", "<Inland>"},
                        {"+49 (89) 5", "+49 (89) 5", "München"},
                        {"0043 1", "0043 1", "<Ausland>"},
                        {"+43 1", "+43 1", "<Ausland>"},
                        {"001 212", "001 212", "USA/Kanada"},
                        {"*31#!", "*31#!", "<Inland>"},
                        {"*#00", "*#00", "Bereit..."},
                        {"äöü€", "", "Bereit..."},
                        {"", "", "Bereit..."}}) {
    SCOPED_TRACE(c.typed);
    window->SetNumberText(c.typed);
    EXPECT_EQ(window->NumberText(), c.kept);
    EXPECT_EQ(TextOf("lblHead"), c.head);
    const bool idle = TextOf("lblHead") == "Bereit...";
    EXPECT_EQ(TextOf("lblBase_1"), idle ? "Bitte wählen Sie..." : "");
  }
}

TEST_F(DialWindowCommands, TypingALetterLeavesNumberAndCaretAlone) {
  window->SetNumberText("0305");
  auto* field = Find<QLineEdit>("txtNr");
  field->setFocus();
  field->setCursorPosition(2);
  Key(Qt::Key_A);
  QTest::keyClick(field, '1');
  EXPECT_EQ(window->NumberText(), "03105");
  EXPECT_EQ(field->cursorPosition(), 3);
}

TEST_F(DialWindowCommands, ButtonsFillTheNumberField) {
  SetClipboard("Tel. 040/99");
  SetRegistry("Wahlwdh", "089 1");
  struct Case {
    const char* button;
    const char* number;
    const char* focus;
  };
  for (const Case& c : {Case{"cmdGetClpbrd", " 040/99", "txtNr"},
                        {"cmdWdh", "089 1", "txtNr"},
                        {"cmdClear", "", "txtNr"},
                        {"cmdNr_0", "0", "tabDisplay"},
                        {"cmdNr_7", "07", "tabDisplay"},
                        {"cmdNr_10", "07*", "tabDisplay"},
                        {"cmdNr_11", "07*#", "tabDisplay"}}) {
    SCOPED_TRACE(c.button);
    Click(c.button);
    EXPECT_EQ(window->NumberText(), c.number);
    EXPECT_EQ(FocusName(), c.focus);
  }
  SetClipboard("");
  SetRegistry("Wahlwdh", "");
  for (const char* button : {"cmdGetClpbrd", "cmdWdh"}) {
    SCOPED_TRACE(button);
    window->SetNumberText("123");
    Click(button);
    EXPECT_EQ(window->NumberText(), "");
  }
}

TEST_F(DialWindowCommands, ADisabledNumberFieldStaysAsItIs) {
  window->SetNumberText("123");
  SetClipboard("456");
  SetRegistry("Wahlwdh", "789");
  Find<QWidget>("txtNr")->setEnabled(false);
  Focus("tabDisplay");
  for (const char* button : {"cmdGetClpbrd", "cmdWdh", "cmdNr_1", "cmdHistory"}) Click(button);
  Focus("tabDisplay");
  Key(Qt::Key_5);
  EXPECT_EQ(window->NumberText(), "123");
  EXPECT_TRUE(prompts.boxes.empty());
  EXPECT_FALSE(window->NumberEnabled());
  Find<QWidget>("txtNr")->setEnabled(true);
  window->setEnabled(false);
  EXPECT_TRUE(window->NumberEnabled());
}

TEST_F(DialWindowCommands, SpeedDialTakesNumberAndMark) {
  auto* list = Find<QComboBox>("cboNr");
  ASSERT_EQ(list->count(), 4);
  EXPECT_EQ(list->itemText(1), QStringLiteral("A & <b>B</b>"));
  struct Case {
    int index;
    const char* number;
    bool extern_;
    const char* marker;
  };
  for (const Case& c : {Case{2, "030 47 11 ()", true, "imgExt"},
                        {0, "11", false, "imgInt"},
                        {3, "0305", false, "imgExt"}}) {
    SCOPED_TRACE(c.index);
    Pick(c.index);
    EXPECT_EQ(window->NumberText(), c.number);
    EXPECT_EQ(window->ExternTicked(), c.extern_);
    EXPECT_EQ(list->currentIndex(), c.index);
    for (const std::string marker : {"imgInt", "imgExt"}) {
      EXPECT_EQ(Find<QWidget>(marker.c_str())->isVisible(), marker == c.marker);
    }
  }
  window->SetExternTicked(true);
  window->SetExternVisible(false);
  Pick(0);
  EXPECT_TRUE(window->ExternTicked());
  window->SetNumberText("999");
  EXPECT_EQ(list->currentIndex(), -1);
}

TEST_F(DialWindowCommands, AnEmptySpeedDialListSaysSoAndPicksNothing) {
  WriteFile(UserFile("Kurzwahl.dat"), "");
  window->ReloadSettings();
  auto* list = Find<QComboBox>("cboNr");
  ASSERT_EQ(list->count(), 1);
  EXPECT_EQ(list->itemText(0), QStringLiteral("Keine Kurzwahlnummer gespeichert!"));
  window->SetNumberText("123");
  Pick(0);
  EXPECT_EQ(window->NumberText(), "123");
}

TEST_F(DialWindowCommands, DialsAndHangsUp) {
  window->SetNumberText("030/1234");
  Click("cmdDial_0");
  EXPECT_TRUE(window->SessionOn());
  for (const char* button : {"cmdDial_0", "cmdDial_1"}) {
    EXPECT_EQ(Find<QAbstractButton>(button)->text(), QStringLiteral("&Auflegen"));
  }
  EXPECT_FALSE(Find<QAbstractButton>("cmdDial_1")->isChecked());
  serial.Feed("OK\r\n");
  EXPECT_EQ(serial.sent, "AT\rATDT 0301234\r");
  ASSERT_FALSE(Log().empty());
  EXPECT_EQ(Log().front(), ">>> Wählen: 0301234");
  EXPECT_EQ(Registry("Wahlwdh"), "030/1234");

  Click("cmdDial_0");
  EXPECT_FALSE(window->SessionOn());
  EXPECT_EQ(Find<QAbstractButton>("cmdDial_0")->text(), QStringLiteral("&Wählen"));
  EXPECT_EQ(Log().back(), "Status: <OK>");
}

TEST_F(DialWindowCommands, RefusesOptionsAndHistoryDuringASession) {
  const FakePrompts::Box options{
      PromptIcon::kNone, "Die Optionen sind in dieser Version noch nicht enthalten.", "Brisko"};
  const FakePrompts::Box history{
      PromptIcon::kNone, "Die Anrufhistorie ist in dieser Version noch nicht enthalten.", "Brisko"};
  const FakePrompts::Box noOptions{
      PromptIcon::kExclamation,
      "Optionen können nicht während einer Telefonsitzung geändert werden.",
      "Ausführung nicht möglich!"};
  const FakePrompts::Box noHistory{
      PromptIcon::kExclamation,
      "Die Anrufhistorie kann nicht während einer Telefonsitzung geöffnet werden.",
      "Ausführung nicht möglich!"};
  for (const bool session : {false, true}) {
    SCOPED_TRACE(session);
    prompts.boxes.clear();
    window->SetDialButtonIdle(!session);
    Click("cmdOptionen");
    Click("cmdHistory");
    EXPECT_EQ(prompts.boxes,
              session ? (std::vector{noOptions, noHistory}) : (std::vector{options, history}));
    EXPECT_EQ(prompts.beeps, session ? 2 : 0);
    EXPECT_FALSE(window->HistoryShown());
    EXPECT_EQ(window->SessionOn(), session);
  }
}

TEST_F(DialWindowCommands, ClicksBehindABoxWaitForItsEnd) {
  prompts.whileShown = [this] {
    Click("cmdNr_4");
    Click("cmdNr_2");
    window->close();
    EXPECT_EQ(window->NumberText(), "");
    EXPECT_TRUE(window->IsLoaded());
  };
  Click("cmdOptionen");
  EXPECT_EQ(window->NumberText(), "42");
  EXPECT_FALSE(window->IsLoaded());
}

TEST_F(DialWindowCommands, TheLogTakesTheVersionsPlace) {
  auto* log = Find<QListWidget>("lstCallProgress");
  EXPECT_TRUE(Find<QWidget>("lblVer")->isVisible());
  EXPECT_FALSE(Find<QWidget>("shpBottom")->isVisible());
  for (int line = 0; line < 30; ++line) window->AddStatus("Zeile " + std::to_string(line));
  window->AddStatus("");
  EXPECT_FALSE(Find<QWidget>("lblVer")->isVisible());
  EXPECT_TRUE(Find<QWidget>("shpBottom")->isVisible());
  EXPECT_EQ(Log().size(), 31U);
  EXPECT_EQ(log->currentRow(), -1);
  EXPECT_TRUE(log->selectedItems().empty());
  const QRect last = log->visualItemRect(log->item(30));
  EXPECT_TRUE(log->viewport()->rect().contains(last.center()));
}

TEST_F(DialWindowCommands, FreeAreasDragTheWindow) {
  for (const char* area : {"panBase", "lblBase_0", "lblBase_1", "lblBase_2", "lblBase_3", "lblHead",
                           "lblAdr", "lstCallProgress"}) {
    SCOPED_TRACE(area);
    QWidget* target = Find<QWidget>(area);
    if (auto* list = qobject_cast<QListWidget*>(target)) target = list->viewport();
    chrome->drags = 0;
    QTest::mousePress(target, Qt::RightButton);
    EXPECT_EQ(chrome->drags, 0);
    QTest::mousePress(target, Qt::LeftButton);
    EXPECT_EQ(chrome->drags, 1);
  }
  window->move(-200, 30);
  chrome->EndDrag();
  EXPECT_EQ(window->pos(), QPoint(-200, 30)) << "the full view stays where it was dropped";
  Click("cmdClear");
  EXPECT_EQ(chrome->drags, 1);
}

}  // namespace
}  // namespace orvane
