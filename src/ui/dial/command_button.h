#pragma once

#include "ui/style/icon_button.h"

namespace orvane {

// A button whose pressed look is set by the program: it tells a state and is not toggled by a
// click.
class CommandButton : public IconButton {
 public:
  explicit CommandButton(QWidget* parent);

 protected:
  void nextCheckState() override;
};

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
