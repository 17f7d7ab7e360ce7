#pragma once

#include <QMetaObject>
#include <QPointer>
#include <QWidget>

#include "platform/window_chrome.h"

namespace orvane {

// WindowChrome for a frameless top-level widget, by the system's own calls.
class SystemWindowChrome : public WindowChrome {
 public:
  // The widget outlives the chrome.
  explicit SystemWindowChrome(QWidget& window) : window_(&window) {}
  ~SystemWindowChrome() override;
  SystemWindowChrome(const SystemWindowChrome&) = delete;
  SystemWindowChrome& operator=(const SystemWindowChrome&) = delete;

  bool SetTopmost(int flag, bool noActivate) override;
  // Windows of the same class in this program get the shadow too.
  void AddDropShadow() override;
  void SetRoundedRegion(int width, int height, int ellipse) override;
  // Returns when the user has let go.
  void Drag(std::function<void()> finished) override;

 private:
  QPointer<QWidget> window_;
  QMetaObject::Connection screenChanged_;
};

}  // namespace orvane
