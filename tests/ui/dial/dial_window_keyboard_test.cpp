#include <QCheckBox>
#include <set>

#include "dial_window_fixture.h"

namespace orvane {
namespace {

class DialWindowKeyboard : public DialWindowFixture {
 protected:
  void SetUp() override { ShowWindow(); }

  // The number of the lit key, or -1; -2 for more than one.
  int LitKey() {
    int lit = -1;
    for (int key = 0; key < 12; ++key) {
      const std::string name = "cmdNr_" + std::to_string(key);
      if (Find<QAbstractButton>(name.c_str())->isChecked()) lit = lit == -1 ? key : -2;
    }
    return lit;
  }
};

TEST_F(DialWindowKeyboard, TypesANumberFromAnywhere) {
  const std::tuple<Qt::Key, Qt::KeyboardModifiers, const char*, int> kCases[] = {
      {Qt::Key_7, Qt::NoModifier, "1237", 7},
      {Qt::Key_0, Qt::KeypadModifier, "1230", 0},
      {Qt::Key_Asterisk, Qt::ShiftModifier, "123*", 10},
      {Qt::Key_Plus, Qt::NoModifier, "123*", 10},
      {Qt::Key_Asterisk, Qt::KeypadModifier, "123*", 10},
      {Qt::Key_NumberSign, Qt::NoModifier, "123#", 11},
      {Qt::Key_Plus, Qt::KeypadModifier, "123#", 11},
      {Qt::Key_Slash, Qt::KeypadModifier, "123#", 11},
      {Qt::Key_Comma, Qt::KeypadModifier, "123#", 11},
      {Qt::Key_Space, Qt::NoModifier, "123 ", -1},
      {Qt::Key_Backspace, Qt::NoModifier, "12", -1},
      {Qt::Key_A, Qt::NoModifier, "123", -1},
      {Qt::Key_Minus, Qt::KeypadModifier, "123", -1},
      {Qt::Key_5, Qt::ControlModifier, "123", -1},
      {Qt::Key_5, Qt::AltModifier, "123", -1}};
  for (const char* focus : {"tabDisplay", "cboNr", "chkExtern", "lstCallProgress", "cmdOptionen"}) {
    for (const auto& [key, modifiers, number, lit] : kCases) {
      SCOPED_TRACE(std::string(focus) + " key " + std::to_string(key));
      window->SetNumberText("123");
      Focus(focus);
      PressKey(key, modifiers);
      EXPECT_EQ(window->NumberText(), number);
      EXPECT_EQ(LitKey(), lit);
      EXPECT_EQ(FocusName(), std::string(number).size() > 3 ? "tabDisplay" : focus);
      ReleaseKey(key, modifiers);
      EXPECT_EQ(LitKey(), -1);
    }
  }
  EXPECT_TRUE(prompts.boxes.empty());
}

TEST_F(DialWindowKeyboard, TheNumberFieldTakesItsOwnKeys) {
  auto* field = Find<QLineEdit>("txtNr");
  field->setFocus();
  window->SetNumberText("0305");
  field->setCursorPosition(2);
  Key(Qt::Key_A);  // leaves number and caret alone
  QTest::keyClick(field, '1');
  EXPECT_EQ(window->NumberText(), "03105");
  EXPECT_EQ(field->cursorPosition(), 3);
  EXPECT_EQ(LitKey(), -1);
  EXPECT_EQ(FocusName(), "txtNr");
}

TEST_F(DialWindowKeyboard, EnterDialsFromTheNumberFieldAndPressesTheControlWithTheFocus) {
  window->SetNumberText("1234");
  for (const auto& [focus, dials] : {std::pair{"tabDisplay", false},
                                     {"lstCallProgress", false},
                                     {"chkExtern", false},
                                     {"cmdNr_5", false},
                                     {"txtNr", true}}) {
    SCOPED_TRACE(focus);
    Focus(focus);
    Key(Qt::Key_Return);
    EXPECT_EQ(SessionShown(), dials);
  }
  EXPECT_EQ(window->NumberText(), "12345");
  Find<QWidget>("cmdDial_0")->setEnabled(false);
  Key(Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_TRUE(SessionShown());
}

TEST_F(DialWindowKeyboard, EveryControlIsReachedByTabAndSaysWhatItIs) {
  std::set<std::string> reached;
  Focus("txtNr");
  for (int step = 0; step < 40; ++step) {
    const QWidget* control = QApplication::focusWidget();
    reached.insert(FocusName());
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    EXPECT_FALSE(control->accessibleName().isEmpty() && (!button || button->text().isEmpty()))
        << FocusName();
    Key(Qt::Key_Tab);
  }
  std::set<std::string> expected = {"txtNr",      "cmdClear",    "cmdWdh",          "cmdGetClpbrd",
                                    "cmdHistory", "cmdOptionen", "tabDisplay",      "cboNr",
                                    "chkExtern",  "cmdDial_0",   "lstCallProgress", "hovClose",
                                    "hovSizer"};
  for (int key = 0; key < 12; ++key) expected.insert("cmdNr_" + std::to_string(key));
  EXPECT_EQ(reached, expected);
}

TEST_F(DialWindowKeyboard, TheCompactViewDialsAndGivesWayToTheFullOne) {
  window->move(300, 200);
  const QSize full = window->size();
  Click("hovSizer");
  EXPECT_LT(window->height() * kTwipsPerPixel, kCompactHeightLimitTwips);
  EXPECT_EQ(window->width(), full.width());
  EXPECT_EQ(window->pos(), QPoint((window->screen()->size().width() - full.width()) / 2, -1));
  EXPECT_EQ(chrome->log.back(), "topmost -1 quietly");
  std::set<std::string> shown;
  for (const QWidget* control : window->findChildren<QWidget*>()) {
    const bool own = !control->objectName().isEmpty() &&
                     !control->objectName().startsWith(QStringLiteral("qt_"));
    if (own && control->isVisible()) {
      EXPECT_TRUE(
          window->rect().contains(QRect(control->mapTo(window.get(), QPoint()), control->size())))
          << control->objectName().toStdString();
      shown.insert(control->objectName().toStdString());
    }
  }
  std::set<std::string> expected = {"panBase", "imgLogo",  "lblBase_0", "hovSizer", "hovClose",
                                    "infBase", "cmdClear", "txtNr",     "cmdDial_1"};
  for (int key = 0; key < 12; ++key) expected.insert("cmdNr_" + std::to_string(key));
  EXPECT_EQ(shown, expected);
  Click("cmdNr_4");
  Key(Qt::Key_2);
  EXPECT_EQ(window->NumberText(), "42");
  Click("cmdDial_1");
  EXPECT_TRUE(SessionShown());

  PressTitle(Qt::LeftButton, 1000);
  PressTitle(Qt::LeftButton, 1200);
  EXPECT_EQ(window->geometry(), QRect(QPoint(300, 200), full));
  EXPECT_EQ(chrome->log.back(), "topmost 0 quietly");
  EXPECT_TRUE(Find<QWidget>("cmdOptionen")->isVisible());
  EXPECT_FALSE(Find<QWidget>("cmdDial_1")->isVisible());
}

TEST_F(DialWindowKeyboard, ActivationPutsTheFocusIntoTheNumberField) {
  Focus("cmdOptionen");
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  EXPECT_EQ(FocusName(), "txtNr");
}

}  // namespace
}  // namespace orvane
