#include "platform/desktop/linux/qt_window_chrome.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainterPath>
#include <QRegion>
#include <QWidget>
#include <QWindow>
#include <utility>

namespace orvane {

QtWindowChrome::QtWindowChrome(QWidget& window, std::function<bool()> composes)
    : window_(window), composes_(std::move(composes)) {
  // A window cannot become translucent later on.
  if (composes_()) {
    window_.setAttribute(Qt::WA_TranslucentBackground);
    corners_.emplace(window_);
  }
}

bool QtWindowChrome::SetTopmost(int flag, bool noActivate) {
  if (flag == kTopmost || flag == kNotTopmost) {
    Qt::WindowFlags flags = window_.windowFlags();
    flags.setFlag(Qt::WindowStaysOnTopHint, flag == kTopmost);
    // The widget must know the flag for when it is created anew, but telling it so would hide a
    // window that is shown; the window itself changes in place.
    window_.overrideWindowFlags(flags);
    if (QWindow* handle = window_.windowHandle()) handle->setFlags(flags);
  } else {
    window_.raise();
  }
  if (!noActivate) window_.activateWindow();
  return true;
}

void QtWindowChrome::SetRoundedRegion(int width, int height, int ellipse) {
  if (corners_ && composes_()) {
    window_.clearMask();
    corners_->Place(width, height, ellipse / 2, window_.palette().color(QPalette::Shadow));
    return;
  }
  if (corners_) corners_->Hide();
  QPainterPath outline;
  outline.addRoundedRect(QRectF(0, 0, width, height), ellipse / 2.0, ellipse / 2.0);
  window_.setMask(QRegion(outline.toFillPolygon().toPolygon()));
}

void QtWindowChrome::Drag(std::function<void()> finished) {
  if (dragging_) return;
  dragging_ = true;
  grip_ = QCursor::pos() - window_.pos();
  finished_ = std::move(finished);
  QApplication::instance()->installEventFilter(this);
}

bool QtWindowChrome::eventFilter(QObject* watched, QEvent* event) {
  const bool moved = event->type() == QEvent::MouseMove;
  if (moved || event->type() == QEvent::MouseButtonRelease) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    if (!mouse->buttons().testFlag(Qt::LeftButton)) {
      FinishDrag();
    } else if (moved) {
      window_.move(mouse->globalPosition().toPoint() - grip_);
      return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

void QtWindowChrome::FinishDrag() {
  dragging_ = false;
  QApplication::instance()->removeEventFilter(this);
  // The caller may start another drag from here.
  if (const auto finished = std::exchange(finished_, nullptr)) finished();
}

}  // namespace orvane
