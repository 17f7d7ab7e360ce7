#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QMenu>
#include <QScreen>
#include <QTabBar>

#include "dial_window_history_fixture.h"
#include "remote/copy_data_text.h"

namespace orvane {
namespace {

constexpr const char* kAll = "Heute: 0641 1 0409; Gestern: 217; Älter: 0221471";

TEST_F(DialWindowHistory, LiesToTheRightOfTheDialPad) {
  const int screen = QGuiApplication::primaryScreen()->geometry().width();
  ASSERT_GT(screen, 0);
  const int wide = window->width();
  EXPECT_GT(wide, 318 + 650);
  EXPECT_EQ(window->pos().x(), screen >= wide - 2 ? screen - wide : 2);
  EXPECT_EQ(chrome->log.back(), "20");
  EXPECT_EQ(chrome->log[chrome->log.size() - 3], std::to_string(wide));
  EXPECT_EQ(Find<QWidget>("tabTab")->width() + 8 +
                Find<QWidget>("tabTab")->mapTo(window.get(), QPoint()).x(),
            wide - 1);
  EXPECT_EQ(window->height(), 541);

  window->move(10, 20);
  list->setFocus();
  window->ToggleHistory();
  EXPECT_EQ(window->size(), QSize(318, 541));
  EXPECT_FALSE(list->isVisible());
  EXPECT_EQ(FocusName(), "txtNr");
  Find<QWidget>("txtNr")->setEnabled(false);
  Click("cmdHistory");
  EXPECT_FALSE(window->HistoryShown());
  Find<QWidget>("txtNr")->setEnabled(true);
  Open();
  EXPECT_EQ(window->pos().y(), 20);

  window->SetNumberText("0301234");
  Click("cmdDial_0");
  EXPECT_TRUE(SessionShown());
  EXPECT_FALSE(window->HistoryShown()) << "a call closes the history";
}

TEST_F(DialWindowHistory, ShowsTheCallsOfTheFilters) {
  EXPECT_EQ(Shown(1),
            "Heute: 03.04.24 12:00 03.04.24 09:00 03.04.24 06:00; Gestern: 02.04.24 06:00; "
            "Älter: 01.10.23 12:00");
  EXPECT_EQ(Shown(3),
            "Heute: <Keine Nummer> Müller Straßenbau Alster Verlag; Gestern: Intern; "
            "Älter: Groß & Söhne");
  EXPECT_TRUE(list->isColumnHidden(0));
  const auto pick = [this](int period) {
    Find<QComboBox>("cboFilter")->setCurrentIndex(period);
    Q_EMIT Find<QComboBox>("cboFilter")->activated(period);
  };
  const std::tuple<std::function<void()>, const char*, const char*, const char*> kSteps[] = {
      {[&] { pick(7); }, "cboFilter", "7", "Gestern: 217"},
      {[&] { pick(6); }, "cboFilter", "6", "Heute:  0641 1 0409"},
      {[&] { Click("chkTelList_3"); }, "cTel3", "0", "Heute: 0641 1 0409"},
      {[&] { pick(0); }, "cboFilter", "0", kAll},
      {[&] { Click("chkTelList_1"); }, "cTel1", "0", "Gestern: 217"},
      {[&] { Click("chkTelList_0"); }, "cTel0", "0", ""},
      {[&] { Click("chkTelList_1"); }, "cTel1", "1", "Heute: 0641 1 0409; Älter: 0221471"},
      {[&] { Find<QTabBar>("tabTab")->setCurrentIndex(0); }, "TelTab", "0", ""},
      {[&] { Click("chkTelList_0"); }, "cTel0", "1", "Heute: 218"}};
  for (const auto& [step, setting, value, shown] : kSteps) {
    SCOPED_TRACE(std::string(setting) + "=" + value);
    step();
    EXPECT_EQ(Setting(setting), value);
    EXPECT_EQ(Shown(), shown);
    EXPECT_FALSE(prompts.busy);
  }
  EXPECT_EQ(TextOf("lblInf_1"), "1 Anruf");
  auto* tabs = Find<QTabBar>("tabTab");
  for (const int clicked : {1, 1, 0, 1}) {
    const auto statements = databases.statements.size();
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(clicked).center());
    EXPECT_EQ(databases.statements.size(), statements + 1);
    EXPECT_EQ(Setting("TelTab"), std::to_string(clicked));
    EXPECT_EQ(FocusName(), "repTel");
    Focus("txtNr");
  }

  // A new window begins as the last one was left, and stores nothing by that.
  Find<QTabBar>("tabTab")->setCurrentIndex(0);
  registry->denyWrites = true;
  MakeWindow();
  ShowWindow();
  EXPECT_EQ(databases.statements.back(),
            "SELECT DISTINCT Zeit,Ext,Nr,Firma,Ort,Person FROM i WHERE NOT Nr IS NULL");
  Open();
  EXPECT_EQ(Shown(), "Heute: 218");
}

TEST_F(DialWindowHistory, TextFilterNarrowsWhileTyping) {
  const std::tuple<const char*, const char*, const char*> kCases[] = {
      {"STRASSE", "Heute: 0641 1", "1 von 5 Anrufen"},
      {"straße", "Heute: 0641 1", "1 von 5 Anrufen"},
      {"mÜller", "Heute: 0641 1", "1 von 5 Anrufen"},
      {"mueller", "Heute: 0641 1", "1 von 5 Anrufen"},
      {"Jüttner", "Gestern: 217", "1 von 5 Anrufen"},
      {"muller", "", "0 von 5 Anrufen"},
      {"ÖZT 217", "Gestern: 217", "1 von 5 Anrufen"},
      {"  einkauf ", "Gestern: 217", "1 von 5 Anrufen"},
      {"03.04.24", "Heute:  0641 1 0409", "3 von 5 Anrufen"},
      {"hamburg hans", "", "0 von 5 Anrufen"},
      {".*", "", "0 von 5 Anrufen"},
      {"", "Heute:  0641 1 0409; Gestern: 217; Älter: 0221471", "5 Anrufe"}};
  const auto statements = databases.statements.size();
  for (const auto& [text, shown, count] : kCases) {
    SCOPED_TRACE(text);
    Find<QLineEdit>("txtFilter")->setText(QString::fromUtf8(text));
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(TextOf("lblInf_1"), count);
  }
  EXPECT_EQ(databases.statements.size(), statements) << "typing does not ask the journal";
  list->setFixedHeight(90);
  for (const char* text : {"groß", ""}) {
    Find<QLineEdit>("txtFilter")->setText(QString::fromUtf8(text));
    EXPECT_TRUE(list->viewport()->rect().contains(list->visualRect(list->currentIndex()).center()));
  }

  // A folded group opens for a search and folds again after it.
  const QModelIndex today = list->model()->index(0, 0);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    QPoint(10, list->visualRect(Row(0, 0)).top() - 5));
  ASSERT_FALSE(list->isExpanded(today));
  Focus("txtFilter");
  Type("verlag");
  EXPECT_EQ(window->NumberText(), "");
  EXPECT_TRUE(list->isExpanded(list->model()->index(0, 0)));
  EXPECT_EQ(Shown(), "Heute: 0409");
  Click("cmdClrTextFilter");
  EXPECT_EQ(Find<QLineEdit>("txtFilter")->text(), QString());
  EXPECT_FALSE(list->isExpanded(list->model()->index(0, 0)));
}

TEST_F(DialWindowHistory, MouseAndKeysTakeAndCopyNumbers) {
  window->SetNumberText("99");
  DoubleClick(list->model()->index(1, 1));
  EXPECT_EQ(window->NumberText(), "99") << "a group has no number";
  DoubleClick(Row(0, 1));
  EXPECT_EQ(window->NumberText(), "0641 1");
  EXPECT_EQ(FocusName(), "txtNr");

  QApplication::setKeyboardInputInterval(60'000);
  const std::tuple<std::vector<int>, const char*, const char*> kKeys[] = {
      {{Qt::Key_Home, Qt::Key_Down, Qt::Key_Down}, "", "0641 1"},
      {{Qt::Key_End}, "", "0221471"},
      {{Qt::Key_Home}, "öz", "217"},
      {{Qt::Key_End}, "alster", "0409"},
      {{Qt::Key_Home}, "0221", "0221471"},
      {{Qt::Key_Home}, "m", "0641 1"},
      {{Qt::Key_Home}, "mm", "0221471"},
      {{Qt::Key_Home}, "mE", "0221471"},
      {{Qt::Key_Home}, "00", "0221471"},
      {{Qt::Key_Home}, "-", "0641 1"},
      {{Qt::Key_Home, Qt::Key_Left}, "als", "0409"},
      {{Qt::Key_Home, Qt::Key_Left}, "+4", "0641 1"},
      {{Qt::Key_End, Qt::Key_Up, Qt::Key_Up}, "", "217"}};
  for (const auto& [keys, typed, number] : kKeys) {
    SCOPED_TRACE(typed);
    list->setFocus();
    for (const int key : keys) Key(key);
    Type(typed);
    EXPECT_EQ(FocusName(), "repTel");
    Key(Qt::Key_Return);
    EXPECT_EQ(window->NumberText(), number);
  }

  list->setFocus();
  list->setCurrentIndex(Row(1, 0));
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("217"));
  const std::tuple<int, bool, const char*> kMenus[] = {{1, true, "0641 1"}, {0, false, ""}};
  for (const auto& [row, hasNumber, taken] : kMenus) {
    list->setCurrentIndex(Row(0, row));
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(list->viewport(), &asked);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    for (QAction* action : menu->actions()) action->trigger();
    EXPECT_EQ(menu->actions().back()->isEnabled(), hasNumber);
    EXPECT_EQ(window->NumberText(), taken);
    menu->close();
  }
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("0641 1"));
}

TEST_F(DialWindowHistory, ColumnsStayAsTheUserArrangedThem) {
  const auto clickHeader = [this](int column) {
    QHeaderView& header = *list->header();
    const QPoint at(header.sectionViewportPosition(column) + 30, header.height() / 2);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, at);
  };
  // The room that is left for the last column is not the user's doing.
  list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  Click("cmdHistory");
  EXPECT_EQ(Setting("TelSpalten"), "");
  Open();
  clickHeader(3);
  EXPECT_EQ(Shown(3),
            "Heute: <Keine Nummer> Alster Verlag Müller Straßenbau; Gestern: Intern; "
            "Älter: Groß & Söhne");
  clickHeader(3);
  EXPECT_EQ(Shown(3),
            "Heute: Müller Straßenbau Alster Verlag <Keine Nummer>; Gestern: Intern; "
            "Älter: Groß & Söhne");
  list->header()->moveSection(list->header()->visualIndex(5), 1);
  list->header()->resizeSection(2, 77);
  Click("cmdHistory");

  MakeWindow();
  ShowWindow();
  Open();
  EXPECT_EQ(list->header()->visualIndex(5), 1);
  EXPECT_EQ(list->header()->sectionSize(2), 77);
  EXPECT_EQ(Shown(2), "Heute: 0641 1 0409 ; Gestern: 217; Älter: 0221471");
  EXPECT_TRUE(list->isColumnHidden(0));
}

TEST_F(DialWindowHistory, SaysWhyThereIsNothingToShow) {
  const std::tuple<std::function<void()>, const char*, const char*> kCases[] = {
      {[&] { std::filesystem::remove(Journal()); }, "konnte nicht gefunden werden",
       "(-2147467259) Fehler bei Anmeldung!"},
      {[&] { WriteFile(Journal(), std::string(4096, 'x')); }, "Nicht erkennbares Datenbankformat",
       "(-2147467259) Fehler bei Anmeldung!"},
      {[&] { databases.FailOpen(kDbErrorProviderNotFound, "Provider fehlt"); },
       "Telefonliste konnte nicht initialisiert werden!\r\rProvider fehlt",
       "Zugriffsfehler bei 'Perch: ReopenTelDB',  3706"}};
  QImage waiting;
  prompts.whileShown = [&] {
    EXPECT_TRUE(prompts.busy);
    EXPECT_EQ(Shown() + TextOf("lblInf_1"), "") << "no message beside the calls of another choice";
    waiting = list->viewport()->grab().toImage();
  };
  for (const auto& [spoil, text, title] : kCases) {
    SCOPED_TRACE(text);
    spoil();
    EXPECT_NE(ShownAgain().find(text), std::string::npos);
    ASSERT_EQ(prompts.boxes.size(), 1U);
    EXPECT_EQ(prompts.boxes[0].title, title);
    EXPECT_EQ(TextOf("lblInf_1"), "0 Anrufe");
    EXPECT_NE(list->viewport()->grab().toImage(), waiting) << "it says that there are no calls";
    Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    Find<QLineEdit>("txtFilter")->setText(QStringLiteral("x"));
    Find<QLineEdit>("txtFilter")->clear();
  }
  databases.Heal();
  std::filesystem::remove(Journal());
  CreateJournalFile(Journal(), kCalls);
  EXPECT_EQ(ShownAgain(), "Heute:  0641 1 0409; Gestern: 217; Älter: 0221471");
}

TEST_F(DialWindowHistory, ShowsRowsThatHoldNothing) {
  std::filesystem::remove(Journal());
  CreateJournalFile(Journal(),
                    "INSERT INTO o (ID) VALUES (1),(2);"
                    "INSERT INTO o (ID,Ext,Zeit,Nr) VALUES (3,-1,45385.5,'0409')");
  ShownAgain();
  ShownAgain();
  for (const auto& [column, texts] : {std::pair{1, "Heute: 03.04.24 12:00; Älter: "},
                                      {2, "Heute: 0409; Älter: "},
                                      {5, "Heute: ; Älter: "}}) {
    EXPECT_EQ(Shown(column), texts);
    list->sortByColumn(column, Qt::AscendingOrder);
  }
  Find<QLineEdit>("txtFilter")->setText(QStringLiteral("0409"));
  EXPECT_EQ(TextOf("lblInf_1"), "1 von 2 Anrufen");
  Find<QLineEdit>("txtFilter")->clear();
  DoubleClick(Row(1, 0));
  EXPECT_EQ(window->NumberText(), "");
}

TEST_F(DialWindowHistory, ShowsTheCallsOfTheUserThatTheHostNames) {
  std::filesystem::create_directories(folder / "Daten/User/18/res");
  CreateJournalFile(folder / "Daten/User/18/res/TelList.fdb",
                    "INSERT INTO o (ID,Ext,Zeit,Nr) VALUES (1,0,45385.5,'99')");
  FakeChannel host{desktop};
  for (const PeerWindow& peer : host.Windows()) {
    host.SendCopyData(peer, MakeCopyData("TX:18~Dial~0|030 1234"));
  }
  EXPECT_EQ(state.host.userNumber, 18);
  EXPECT_EQ(Shown(), "Heute: 99");
}

}  // namespace
}  // namespace orvane
