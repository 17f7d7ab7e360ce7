#include "ui/dial/widget_placement.h"

#include <QGuiApplication>
#include <QScreen>

namespace orvane {
namespace {

TwipPoint InTwips(QPoint pixels) {
  return {pixels.x() * kTwipsPerPixel, pixels.y() * kTwipsPerPixel};
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
  return InTwips(widget_.pos());
}

void WidgetPlacement::MoveTo(TwipPoint position) {
  widget_.move(position.left / kTwipsPerPixel, position.top / kTwipsPerPixel);
}

TwipSize WidgetPlacement::Size() const {
  return InTwips(widget_.size());
}

std::vector<TwipScreen> WidgetPlacement::Screens() const {
  std::vector<TwipScreen> screens;
  for (const QScreen* screen : QGuiApplication::screens()) {
    screens.push_back({InTwips(screen->geometry().topLeft()), InTwips(screen->geometry().size())});
  }
  return screens;
}

}  // namespace orvane
