#pragma once

#include <QObject>
#include <QPoint>
#include <functional>
#include <optional>

#include "platform/desktop/linux/rounded_corners.h"
#include "platform/window_chrome.h"

class QWidget;

namespace orvane {

// WindowChrome for a frameless top-level widget, with what Qt offers on every system.
class QtWindowChrome : public QObject, public WindowChrome {
 public:
  // The widget outlives the chrome and has not been shown yet. `composes` tells whether the desktop
  // blends windows; it is asked each time the window changes its shape.
  QtWindowChrome(QWidget& window, std::function<bool()> composes);

  bool SetTopmost(int flag, bool noActivate) override;

  // Does nothing: on X11 shadows are the compositor's, and not every one draws them around a window
  // without a frame. One of our own would need a transparent margin around the window, and its
  // stored place and size would no longer be those of what the user sees.
  void AddDropShadow() override {}

  // Smooth where the desktop blends windows, by region elsewhere.
  void SetRoundedRegion(int width, int height, int ellipse) override;
  void Drag(std::function<void()> finished) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void FinishDrag();

  QWidget& window_;
  std::function<bool()> composes_;
  std::optional<RoundedCorners> corners_;
  bool dragging_ = false;
  QPoint grip_;
  std::function<void()> finished_;
};

}  // namespace orvane
