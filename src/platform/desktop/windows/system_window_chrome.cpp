#include "platform/desktop/windows/system_window_chrome.h"

#include <windows.h>

#include <QScreen>
#include <QWindow>
#include <memory>

namespace orvane {
namespace {

struct RegionDeleter {
  void operator()(HRGN region) const { DeleteObject(region); }
};
using Region = std::unique_ptr<std::remove_pointer_t<HRGN>, RegionDeleter>;

HWND NativeWindow(const QWidget& widget) {
  return reinterpret_cast<HWND>(widget.winId());
}

HWND PlaceBehind(int flag) {
  if (flag == kTopmost) return HWND_TOPMOST;
  return flag == kNotTopmost ? HWND_NOTOPMOST : HWND_TOP;
}

void CutToRoundedRectangle(const QWidget& widget, int width, int height, int ellipse) {
  const auto scaled = [ratio = widget.devicePixelRatioF()](int pixels) {
    return qRound(pixels * ratio);
  };
  // The system leaves out the last column and row, where the window has its frame.
  Region region(CreateRoundRectRgn(0, 0, scaled(width) + 1, scaled(height) + 1, scaled(ellipse),
                                   scaled(ellipse)));
  // The system keeps a region that it takes.
  if (SetWindowRgn(NativeWindow(widget), region.get(), TRUE) != 0) (void)region.release();
}

}  // namespace

bool SystemWindowChrome::SetTopmost(int flag, bool noActivate) {
  const UINT flags = SWP_NOMOVE | SWP_NOSIZE | (noActivate ? SWP_NOACTIVATE : 0U);
  return SetWindowPos(NativeWindow(*window_), PlaceBehind(flag), 0, 0, 0, 0, flags) != 0;
}

void SystemWindowChrome::AddDropShadow() {
  const HWND window = NativeWindow(*window_);
  SetClassLongPtrW(window, GCL_STYLE,
                   static_cast<LONG_PTR>(GetClassLongPtrW(window, GCL_STYLE) | CS_DROPSHADOW));
}

void SystemWindowChrome::SetRoundedRegion(int width, int height, int ellipse) {
  shape_ = {width, height, ellipse};
  CutAndWatchScale();
}

void SystemWindowChrome::CutAndWatchScale() {
  CutToRoundedRectangle(*window_, shape_.width, shape_.height, shape_.ellipse);
  // Another screen, or another scale set for this one, makes the window larger or smaller; Qt may
  // take the region away meanwhile, so the cut waits until that is through.
  QObject::disconnect(screenChanged_);
  QObject::disconnect(scaleChanged_);
  const auto again = [this] { CutAndWatchScale(); };
  screenChanged_ = QObject::connect(window_->windowHandle(), &QWindow::screenChanged, &context_,
                                    again, Qt::QueuedConnection);
  scaleChanged_ = QObject::connect(window_->screen(), &QScreen::logicalDotsPerInchChanged,
                                   &context_, again, Qt::QueuedConnection);
}

void SystemWindowChrome::Drag(std::function<void()> finished) {
  // While the system moves the window everything can happen, the end of this object too.
  const QPointer<QWidget> window = window_;
  ReleaseCapture();
  SendMessageW(NativeWindow(*window), WM_NCLBUTTONDOWN, HTCAPTION, 0);
  if (window && finished) finished();
}

}  // namespace orvane
