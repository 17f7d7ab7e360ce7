#pragma once

#include <QMetaObject>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include "platform/window_chrome.h"

namespace orvane {

// WindowChrome for a frameless top-level widget, by the system's own calls.
class SystemWindowChrome : public WindowChrome {
 public:
  // The widget outlives the chrome.
  explicit SystemWindowChrome(QWidget& window) : window_(&window) {}
  SystemWindowChrome(const SystemWindowChrome&) = delete;
  SystemWindowChrome& operator=(const SystemWindowChrome&) = delete;

  bool SetTopmost(int flag, bool noActivate) override;
  // Windows of the same class in this program get the shadow too.
  void AddDropShadow() override;
  void SetRoundedRegion(int width, int height, int ellipse) override;
  // Returns when the user has let go.
  void Drag(std::function<void()> finished) override;

 private:
  // In pixels of the design.
  struct Shape {
    int width, height, ellipse;
  };
  void CutAndWatchScale();

  QPointer<QWidget> window_;
  Shape shape_{};
  // What is called later for it goes with it.
  QObject context_;
  QMetaObject::Connection screenChanged_, scaleChanged_;
};

}  // namespace orvane
