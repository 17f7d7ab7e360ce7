// Typing while the focus is not in the number field.
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

#include "ui/dial/call_list_view.h"
#include "ui/dial/frm_dial.h"
#include "ui/dial/virtual_key.h"
#include "ui/logic/keyboard_table.h"
#include "ui/style/command_button.h"
#include "ui/style/drop_down.h"

namespace orvane {

// True when the key was the form's; the control with the focus then does not see it.
bool frmDial::OnKeyDown(const QKeyEvent& event) {
  if (!NumberEnabled()) return false;
  // The call history has keys of its own.
  if (focusWidget() == controls_.textFilter || focusWidget() == controls_.callList) return false;
  const int key = VirtualKeyOf(event);
  // A key that is held must not dial, hang up and dial again.
  if (key == kKeyEnter) return event.isAutoRepeat() || OnEnter(focusWidget());
  if (focusWidget() == controls_.numberField) return false;
  const KeyAction action = KeyActionFor(key);
  switch (action.kind) {
    case KeyAction::Kind::kNone:
      return false;
    case KeyAction::Kind::kAppend:
      queue_.Submit([this, action] { OnTypedKey(action.character, action.keypadButton); });
      return true;
    case KeyAction::Kind::kRemoveLast:
      queue_.Submit([this] { RemoveLastCharacter(); });
      return true;
  }
  return false;
}

// Enter dials from the number field. Elsewhere it presses the control, because the space bar, which
// would do that, is a character of the number.
bool frmDial::OnEnter(QWidget* focus) {
  if (focus == controls_.numberField) {
    controls_.dialButtons[0]->click();
  } else if (auto* button = qobject_cast<QAbstractButton*>(focus)) {
    button->click();
  } else if (auto* list = qobject_cast<QComboBox*>(focus)) {
    list->showPopup();
  } else {
    return false;
  }
  return true;
}

void frmDial::OnTypedKey(char character, int keypadButton) {
  SetNumberText(NumberText() + character);
  if (keypadButton != kNoKeypadButton) {
    controls_.keys[static_cast<std::size_t>(keypadButton)]->setChecked(true);
  }
  controls_.display->setFocus();
}

void frmDial::RemoveLastCharacter() {
  std::string number = NumberText();
  if (number.empty()) return;
  number.pop_back();
  SetNumberText(number);
}

void frmDial::ReleaseKeypad() {
  for (CommandButton* button : controls_.keys) button->setChecked(false);
}

}  // namespace orvane
