#pragma once

#include <QRadioButton>

namespace orvane {

// A radio button with the program's own mark.
class RadioButton : public QRadioButton {
 public:
  using QRadioButton::QRadioButton;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace orvane
