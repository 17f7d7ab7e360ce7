#include "ui/dial/virtual_key.h"

#include <QKeyEvent>

#include "ui/logic/keyboard_table.h"

namespace orvane {
namespace {

int NumericPadKey(int key) {
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return 96 + key - Qt::Key_0;
  switch (key) {
    case Qt::Key_Asterisk:
      return 106;
    case Qt::Key_Plus:
      return 107;
    case Qt::Key_Comma:
    case Qt::Key_Period:
      return 110;
    case Qt::Key_Slash:
      return 111;
    default:
      return kNoVirtualKey;
  }
}

// "*" and "+" share a key on German keyboards, and so do "#" and the apostrophe.
int MainKey(int key) {
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return key;
  switch (key) {
    case Qt::Key_Asterisk:
    case Qt::Key_Plus:
      return 187;
    case Qt::Key_NumberSign:
    case Qt::Key_Apostrophe:
      return 191;
    default:
      return kNoVirtualKey;
  }
}

}  // namespace

int VirtualKeyOf(const QKeyEvent& event) {
  constexpr auto kCommandModifiers = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  if ((event.modifiers() & kCommandModifiers) != Qt::NoModifier) return kNoVirtualKey;
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return kKeyEnter;
    case Qt::Key_Backspace:
      return kKeyBackspace;
    case Qt::Key_Space:
      return ' ';
    case Qt::Key_End:
      return 35;
    default:
      break;
  }
  if ((event.modifiers() & Qt::KeypadModifier) == Qt::KeypadModifier) {
    return NumericPadKey(event.key());
  }
  return MainKey(event.key());
}

}  // namespace orvane
