#pragma once

#include <QTreeView>

#include "dial_window_fixture.h"

namespace orvane {

// Today is Wednesday, the 3rd of April 2024, day 45385.
inline constexpr const char* kCalls =
    "INSERT INTO o (ID,Ext,Zeit,Firma,Ort,Person,Nr) VALUES"
    " (1,-1,45200.5,'Groß & Söhne','0022 Köln','Meier, Hans','0221471'),"
    " (2,0,45384.25,'Intern','Einkauf','Öztürk-Juettner, Mehmet','217'),"
    " (3,-1,45385.375,'Müller Straßenbau','+49 641','-','0641 1'),"
    " (4,-1,45385.5,'<Keine Nummer>','','',NULL),"
    " (5,-1,45385.25,'Alster Verlag','Hamburg','<b>Aydin','0409');"
    "INSERT INTO i (ID,Ext,Zeit,Firma,Nr) VALUES (1,0,45385.1,'Herein','218');";

class DialWindowHistory : public DialWindowFixture {
 protected:
  void SetUp() override {
    CreateJournalFile(Journal(), kCalls);
    ShowWindow();
    Open();
  }
  std::filesystem::path Journal() const { return UserFile("TelList.fdb"); }
  void Open() {
    Click("cmdHistory");
    list = Find<QTreeView>("repTel");
  }
  // The captions of the groups, each followed by those of its calls, one column of each.
  std::string Shown(int column = 2) const {
    std::string text;
    const QAbstractItemModel& model = *list->model();
    for (int group = 0; group < model.rowCount(); ++group) {
      const QModelIndex parent = model.index(group, 0);
      text += (group > 0 ? "; " : "") + parent.data().toString().toStdString() + ":";
      for (int row = 0; row < model.rowCount(parent); ++row) {
        text += " " + model.index(row, column, parent).data().toString().toStdString();
      }
    }
    return text;
  }
  std::string Setting(const char* name) {
    return state.host.registry->Read("Dial", name).value_or("");
  }
  QModelIndex Row(int group, int row) const {
    return list->model()->index(row, 2, list->model()->index(group, 0));
  }
  void DoubleClick(const QModelIndex& index) {
    const QPoint middle = list->visualRect(index).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, middle);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, middle);
  }
  // What a click in the filters shows, and the message that comes with it.
  std::string ShownAgain() {
    prompts.boxes.clear();
    Click("chkTelList_3");
    EXPECT_FALSE(prompts.busy);
    return Shown() + (prompts.boxes.empty() ? "" : "!" + prompts.boxes[0].text);
  }
  // As a keyboard does it, with Shift as a key of its own.
  static void Type(const char* text) {
    for (const QChar c : QString::fromUtf8(text)) {
      const bool shift = c.isUpper() || c == u'*';
      QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(),
                          static_cast<Qt::Key>(c.toUpper().unicode()), c,
                          shift ? Qt::ShiftModifier : Qt::NoModifier);
    }
  }

  QTreeView* list = nullptr;
};

}  // namespace orvane
