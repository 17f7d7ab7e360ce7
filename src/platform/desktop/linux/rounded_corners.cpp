#include "platform/desktop/linux/rounded_corners.h"

#include <QPainter>
#include <QPainterPath>
#include <QWidget>

namespace orvane {

class RoundedCorners::Corner : public QWidget {
 public:
  // At the left or right, top or bottom edge of the window.
  Corner(QWidget& window, bool right, bool bottom)
      : QWidget(&window), right_(right), bottom_(bottom) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
  }

  void Place(int width, int height, int radius, const QColor& frame) {
    frame_ = frame;
    setGeometry(right_ ? width - radius : 0, bottom_ ? height - radius : 0, radius, radius);
    show();
    raise();
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF circle = Circle();
    QPainterPath outside;
    outside.addRect(rect());
    QPainterPath inside;
    inside.addEllipse(circle);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.fillPath(outside.subtracted(inside), Qt::black);
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    painter.setPen(QPen(frame_, 1));
    painter.drawEllipse(circle.adjusted(0.5, 0.5, -0.5, -0.5));
  }

 private:
  // The circle whose quarter this corner shows.
  QRectF Circle() const {
    return {right_ ? -qreal(width()) : 0.0, bottom_ ? -qreal(height()) : 0.0, 2.0 * width(),
            2.0 * height()};
  }

  bool right_;
  bool bottom_;
  QColor frame_;
};

RoundedCorners::RoundedCorners(QWidget& window) {
  for (std::size_t i = 0; i < corners_.size(); ++i) {
    corners_[i] = new Corner(window, i % 2 != 0, i / 2 != 0);
  }
}

void RoundedCorners::Place(int width, int height, int radius, const QColor& frame) {
  for (const auto& corner : corners_) corner->Place(width, height, radius, frame);
}

void RoundedCorners::Hide() {
  for (const auto& corner : corners_) corner->hide();
}

}  // namespace orvane
