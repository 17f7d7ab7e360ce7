#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

#include "fakes/program_fixture.h"
#include "ui/dial/frm_dial.h"
#include "ui/style/application_style.h"

namespace orvane {

// Records what the window asks of its chrome; a test ends a drag with EndDrag.
class FakeChrome : public WindowChrome {
 public:
  bool SetTopmost(int flag, bool noActivate) override {
    log.push_back("topmost " + std::to_string(flag) + (noActivate ? " quietly" : ""));
    return true;
  }
  void AddDropShadow() override { log.emplace_back("shadow"); }
  void SetRoundedRegion(int width, int height, int ellipse) override {
    for (const int number : {width, height, ellipse}) log.push_back(std::to_string(number));
  }
  void Drag(std::function<void()> finished) override {
    ++drags;
    dragFinished_ = std::move(finished);
  }
  void EndDrag() { std::exchange(dragFinished_, nullptr)(); }

  std::vector<std::string> log;
  int drags = 0;

 private:
  std::function<void()> dragFinished_;
};

// The real dial window on the fake machine. Modem at COM1, extern box shown, empty clipboard.
class DialWindowFixture : public ProgramFixture {
 protected:
  DialWindowFixture() {
    SetRegistry("CTI", "1");
    ini.values[{"Tel", "InternMax3"}] = "0";
    SetClipboard("");
    MakeWindow();
  }

  // A new window in place of the old one, for instance after a change of the desktop's look.
  void MakeWindow() {
    window.reset();
    const auto newChrome = [this](QWidget& widget) {
      auto made = std::make_unique<FakeChrome>();
      (widget.parentWidget() == nullptr ? chrome : dialogChrome) = made.get();
      return made;
    };
    const DialSystem system{{tapi, serial, [this] { return serialPorts; }, channel, loop, clock,
                             locale, prompts, newChrome},
                            newRegistry,
                            ini,
                            databases,
                            background,
                            supportLog};
    window = std::make_unique<frmDial>(system, state, queue, journal);
  }

  void ShowWindow() {
    window->Show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }

  template <typename Control>
  Control* Find(const char* name) {
    auto* control = window->findChild<Control*>(QString::fromLatin1(name));
    if (control == nullptr) throw std::out_of_range(std::string("no control ") + name);
    return control;
  }

  // As the dial button shows it.
  bool SessionShown() { return Find<QAbstractButton>("cmdDial_0")->isChecked(); }
  std::string TextOf(const char* label) { return Find<QLabel>(label)->text().toStdString(); }
  void Click(const char* name) { QTest::mouseClick(Find<QWidget>(name), Qt::LeftButton); }
  // A press on the program's name, at a time in ms.
  void PressTitle(Qt::MouseButton button, quint64 time, QPoint fromCentre = {}) {
    auto* title = Find<QWidget>("lblBase_0");
    const QPointF place = title->rect().center() + fromCentre;
    QMouseEvent event(QEvent::MouseButtonPress, place, title->mapToGlobal(place), button, button,
                      {});
    event.setTimestamp(time);
    QApplication::sendEvent(title, &event);
  }
  void Focus(const char* name) { Find<QWidget>(name)->setFocus(); }
  // A key as the system delivers it: to the control with the focus.
  void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    PressKey(key, modifiers);
    ReleaseKey(key, modifiers);
  }
  void PressKey(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyPress(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
  }
  void ReleaseKey(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyRelease(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
  }
  static std::string FocusName() {
    const QWidget* widget = QApplication::focusWidget();
    return widget == nullptr ? std::string() : widget->objectName().toStdString();
  }
  static void SetClipboard(const char* text) {
    QApplication::clipboard()->setText(QString::fromUtf8(text));
  }
  // The lines of the call progress log.
  std::vector<std::string> Log() {
    std::vector<std::string> lines;
    const auto* log = Find<QListWidget>("lstCallProgress");
    for (int row = 0; row < log->count(); ++row) {
      lines.push_back(log->item(row)->text().toStdString());
    }
    return lines;
  }

  ApplicationStyle style{*static_cast<QApplication*>(QApplication::instance())};
  std::unique_ptr<frmDial> window;
  FakeChrome* chrome = nullptr;
  // The options dialog's, while there is one.
  FakeChrome* dialogChrome = nullptr;
};

}  // namespace orvane
