#pragma once

#include <QColor>
#include <QPointer>
#include <array>

class QWidget;

namespace orvane {

// Smooth round corners for a frameless window with a translucent background: four small widgets on
// top of all others take away what lies outside of the curve and draw the frame along it.
class RoundedCorners {
 public:
  // The widgets belong to `window`.
  explicit RoundedCorners(QWidget& window);

  // Puts the corners where a window of this size has them; radius in pixels.
  void Place(int width, int height, int radius, const QColor& frame);
  void Hide();

 private:
  class Corner;

  std::array<QPointer<Corner>, 4> corners_;
};

}  // namespace orvane
