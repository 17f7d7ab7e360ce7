#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>

#include "platform/tapi_control.h"
#include "ui/dial/dial_window_fixture.h"
#include "ui/options/frm_optionen.h"

namespace orvane {

// The dial window on the fake machine with two telephone lines, of which the second is configured.
class OptionsDialogFixture : public DialWindowFixture {
 protected:
  OptionsDialogFixture() {
    tapi.lineNames = {"Büro", "Lager"};
    SetRegistry("CTI", "2");
    SetRegistry("TapiBez", "Lager");
  }
  void OpenOptions() {
    if (!window->isVisible()) ShowWindow();
    Gone();
    tapi.log.clear();
    Click("cmdOptionen");
    dialog = window->findChild<frmOptionen*>();
    ASSERT_NE(dialog, nullptr);
    // Without a screen nobody is active once the dial window has gone.
    QCoreApplication::processEvents();
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
  }
  // Whether the dialog is gone; removes it as the event loop would.
  bool Gone() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return window->findChild<frmOptionen*>() == nullptr;
  }
  template <typename Control = QWidget>
  Control* In(const char* name) {
    auto* control = dialog->findChild<Control*>(QString::fromLatin1(name));
    if (control == nullptr) throw std::out_of_range(std::string("no control ") + name);
    return control;
  }
  void ClickIn(const char* name) { QTest::mouseClick(In(name), Qt::LeftButton); }
  // Where the mark is; the rest of a wide radio button does not take clicks.
  void Choose(const char* name) {
    QTest::mouseClick(In(name), Qt::LeftButton, {}, QPoint(10, In(name)->height() / 2));
  }
  void ChooseLine(int row) {
    auto* list = In<QListWidget>("lstLineSel");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(row)).center());
  }
  void CallTakenAtTheTelephone() {
    tapi.events->OnCallState(7, 8, kLineCallConnected);
    tapi.events->OnConnected(7);
  }
  void Type(const char* field, const char* text) {
    In<QLineEdit>(field)->setText(QString::fromUtf8(text));
  }
  std::string FieldText(const char* field) { return In<QLineEdit>(field)->text().toStdString(); }
  std::string Progress() {
    return In<QPlainTextEdit>("txtCallProgress")->toPlainText().toStdString();
  }
  bool ProgressEndsWith(const std::string& line) { return Progress().ends_with("\n" + line); }
  bool Checked(const char* name) { return In<QAbstractButton>(name)->isChecked(); }
  bool Enabled(const char* name) { return In(name)->isEnabled(); }

  frmOptionen* dialog = nullptr;
};

}  // namespace orvane
