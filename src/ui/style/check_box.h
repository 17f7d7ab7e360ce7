#pragma once

#include <QCheckBox>

namespace orvane {

// A check box with the program's own check mark.
class CheckBox : public QCheckBox {
 public:
  using QCheckBox::QCheckBox;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace orvane
