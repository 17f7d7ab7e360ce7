#include <QCheckBox>
#include <set>

#include "dial_window_fixture.h"

namespace orvane {
namespace {

class DialWindowKeyboard : public DialWindowFixture {
 protected:
  void SetUp() override { ShowWindow(); }

  std::set<int> LitKeys() {
    std::set<int> lit;
    for (int key = 0; key < 12; ++key) {
      const std::string name = "cmdNr_" + std::to_string(key);
      if (Find<QAbstractButton>(name.c_str())->isChecked()) lit.insert(key);
    }
    return lit;
  }
};

TEST_F(DialWindowKeyboard, TypesANumberFromAnywhere) {
  struct Case {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    const char* number;
    std::set<int> lit;
  };
  const Case cases[] = {
      {Qt::Key_7, Qt::NoModifier, "1237", {7}},
      {Qt::Key_0, Qt::KeypadModifier, "1230", {0}},
      {Qt::Key_Asterisk, Qt::ShiftModifier, "123*", {10}},
      {Qt::Key_Plus, Qt::NoModifier, "123*", {10}},
      {Qt::Key_Asterisk, Qt::KeypadModifier, "123*", {10}},
      {Qt::Key_NumberSign, Qt::NoModifier, "123#", {11}},
      {Qt::Key_Plus, Qt::KeypadModifier, "123#", {11}},
      {Qt::Key_Slash, Qt::KeypadModifier, "123#", {11}},
      {Qt::Key_Comma, Qt::KeypadModifier, "123#", {11}},
      {Qt::Key_Space, Qt::NoModifier, "123 ", {}},
      {Qt::Key_Backspace, Qt::NoModifier, "12", {}},
      {Qt::Key_A, Qt::NoModifier, "123", {}},
      {Qt::Key_Minus, Qt::KeypadModifier, "123", {}},
      {Qt::Key_5, Qt::ControlModifier, "123", {}},
      {Qt::Key_5, Qt::AltModifier, "123", {}},
      {Qt::Key_Return, Qt::NoModifier, "123", {}},
  };
  for (const char* focus : {"tabDisplay", "cboNr", "chkExtern", "lstCallProgress", "cmdOptionen"}) {
    for (const Case& c : cases) {
      if (c.key == Qt::Key_Return && std::string(focus) != "tabDisplay") continue;
      SCOPED_TRACE(std::string(focus) + " key " + std::to_string(c.key) + " modifiers " +
                   std::to_string(c.modifiers.toInt()));
      window->SetNumberText("123");
      Focus(focus);
      PressKey(c.key, c.modifiers);
      EXPECT_EQ(window->NumberText(), c.number);
      EXPECT_EQ(LitKeys(), c.lit);
      const bool appends = std::string(c.number).size() > 3;
      EXPECT_EQ(FocusName(), appends ? "tabDisplay" : focus);
      ReleaseKey(c.key, c.modifiers);
      EXPECT_TRUE(LitKeys().empty());
    }
  }
  EXPECT_TRUE(prompts.boxes.empty());
}

TEST_F(DialWindowKeyboard, TheNumberFieldTakesItsOwnKeys) {
  Focus("txtNr");
  window->SetNumberText("12");
  Key(Qt::Key_Home);
  QTest::keyClick(Find<QWidget>("txtNr"), '9');
  EXPECT_EQ(window->NumberText(), "912");
  EXPECT_TRUE(LitKeys().empty());
  EXPECT_EQ(FocusName(), "txtNr");
}

TEST_F(DialWindowKeyboard, EnterDialsFromTheNumberFieldOnly) {
  window->SetNumberText("1234");
  for (const auto& [focus, dials] :
       {std::pair{"tabDisplay", false}, {"lstCallProgress", false}, {"txtNr", true}}) {
    SCOPED_TRACE(focus);
    Focus(focus);
    Key(Qt::Key_Return);
    EXPECT_EQ(window->SessionOn(), dials);
  }
  Find<QWidget>("cmdDial_0")->setEnabled(false);
  Key(Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_TRUE(window->SessionOn());
}

TEST_F(DialWindowKeyboard, EnterPressesTheControlWithTheFocus) {
  window->SetNumberText("1234");
  Focus("chkExtern");
  Key(Qt::Key_Return);
  EXPECT_TRUE(window->ExternTicked());
  Focus("cmdNr_5");
  Key(Qt::Key_Return);
  EXPECT_EQ(window->NumberText(), "12345");
  Focus("cmdClear");
  Key(Qt::Key_Return);
  EXPECT_EQ(window->NumberText(), "");
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
                                    "chkExtern",  "cmdDial_0",   "lstCallProgress", "hovClose"};
  for (int key = 0; key < 12; ++key) expected.insert("cmdNr_" + std::to_string(key));
  EXPECT_EQ(reached, expected);
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
