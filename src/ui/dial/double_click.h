#pragma once

#include <QMouseEvent>
#include <QPoint>
#include <optional>

namespace orvane {

// Tells a double click from two single ones by their presses alone. Where a press hands the mouse
// to the system to move the window, Qt loses sight of the first click and reports no double click.
class DoubleClick {
 public:
  // True when this press of the left button follows the one before within the desktop's time and
  // distance. The next press begins anew then.
  bool IsSecond(const QMouseEvent& press);

 private:
  struct Press {
    quint64 time;  // ms
    QPoint place;
  };
  std::optional<Press> first_;
};

}  // namespace orvane
