#pragma once

#include <QPushButton>

namespace orvane {

// A push button that draws its icon as shapes onto the screen's own pixels instead of scaling a
// picture of it, so that it stays sharp at 125 % and 150 %.
class IconButton : public QPushButton {
 public:
  explicit IconButton(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace orvane
