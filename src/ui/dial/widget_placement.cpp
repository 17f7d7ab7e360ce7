#include "ui/dial/widget_placement.h"

#include <QGuiApplication>
#include <QScreen>

namespace orvane {
namespace {

QRect PrimaryScreen() {
  return QGuiApplication::primaryScreen()->geometry();
}

TwipSize InTwips(QSize pixels) {
  return {pixels.width() * kTwipsPerPixel, pixels.height() * kTwipsPerPixel};
}

}  // namespace

WindowState WidgetPlacement::State() const {
  if (widget_.isMinimized()) return WindowState::kMinimised;
  return widget_.isMaximized() || widget_.isFullScreen() ? WindowState::kMaximised
                                                         : WindowState::kNormal;
}

void WidgetPlacement::SetState(WindowState state) {
  switch (state) {
    case WindowState::kNormal:
      widget_.setWindowState(Qt::WindowNoState);
      break;
    case WindowState::kMinimised:
      widget_.setWindowState(Qt::WindowMinimized);
      break;
    case WindowState::kMaximised:
      widget_.setWindowState(Qt::WindowMaximized);
      break;
  }
}

TwipPoint WidgetPlacement::Position() const {
  const QPoint pixels = widget_.pos() - PrimaryScreen().topLeft();
  return {pixels.x() * kTwipsPerPixel, pixels.y() * kTwipsPerPixel};
}

void WidgetPlacement::MoveTo(TwipPoint position) {
  widget_.move(PrimaryScreen().topLeft() +
               QPoint(position.left / kTwipsPerPixel, position.top / kTwipsPerPixel));
}

TwipSize WidgetPlacement::Size() const {
  return InTwips(widget_.size());
}

TwipSize WidgetPlacement::ScreenSize() const {
  return InTwips(PrimaryScreen().size());
}

}  // namespace orvane
