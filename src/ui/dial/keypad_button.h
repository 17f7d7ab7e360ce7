#pragma once

#include "ui/style/command_button.h"

namespace orvane {

// A key of the keypad: the character and, smaller beside it, the letters that share the key.
class KeypadButton : public CommandButton {
 public:
  KeypadButton(QWidget* parent, const QString& caption, const QString& letters);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QFont LettersFont() const;

  QString letters_;
};

}  // namespace orvane
