#include "ui/dial/double_click.h"

#include <QGuiApplication>
#include <QStyleHints>
#include <utility>

namespace orvane {

bool DoubleClick::IsSecond(const QMouseEvent& press) {
  const std::optional<Press> first = std::exchange(first_, std::nullopt);
  if (press.button() != Qt::LeftButton) return false;
  const Press now{press.timestamp(), press.globalPosition().toPoint()};
  const QStyleHints& desktop = *QGuiApplication::styleHints();
  const auto interval = static_cast<quint64>(desktop.mouseDoubleClickInterval());
  if (first && now.time - first->time < interval &&
      (now.place - first->place).manhattanLength() <= desktop.mouseDoubleClickDistance()) {
    return true;
  }
  first_ = now;
  return false;
}

}  // namespace orvane
