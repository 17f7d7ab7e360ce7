#pragma once

#include <QComboBox>

namespace orvane {

// A combo box with the program's own arrow. The closed box shows the entry's text without its icon.
class DropDown : public QComboBox {
 public:
  explicit DropDown(QWidget* parent);

  QSize minimumSizeHint() const override;

 protected:
  // The wheel over a closed box must not pick an entry by accident.
  void wheelEvent(QWheelEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace orvane
