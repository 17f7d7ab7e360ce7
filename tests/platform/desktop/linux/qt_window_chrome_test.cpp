#include "platform/desktop/linux/qt_window_chrome.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

namespace orvane {
namespace {

class QtWindowChromeTest : public testing::Test {
 protected:
  QtWindowChromeTest() {
    window.setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    window.setGeometry(100, 100, 200, 150);
  }
  void Mouse(QEvent::Type type, QPoint global, Qt::MouseButtons buttons) {
    QMouseEvent event(type, QPointF(window.mapFromGlobal(global)), QPointF(global), Qt::LeftButton,
                      buttons, Qt::NoModifier);
    QApplication::sendEvent(&window, &event);
  }

  QWidget window;
  QtWindowChrome chrome{window, [] { return false; }};
};

TEST_F(QtWindowChromeTest, StaysOnTopWithoutHidingAWindowThatIsShown) {
  for (const bool shown : {false, true}) {
    window.setVisible(shown);
    for (const bool topmost : {true, false}) {
      EXPECT_TRUE(chrome.SetTopmost(topmost ? -1 : 0, true));
      EXPECT_EQ(window.isVisible(), shown);
      EXPECT_EQ(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint), topmost);
      if (shown) {
        EXPECT_EQ(window.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint), topmost);
      }
      EXPECT_TRUE(window.windowFlags().testFlag(Qt::FramelessWindowHint));
    }
  }
}

TEST_F(QtWindowChromeTest, FollowsThePointerUntilTheButtonIsReleased) {
  window.show();
  int finished = 0;
  const QPoint start = QCursor::pos(), by(30, -20), origin = window.pos();
  chrome.Drag([&finished] { ++finished; });
  Mouse(QEvent::MouseMove, start + by, Qt::LeftButton);
  EXPECT_EQ(window.pos(), origin + by);
  EXPECT_EQ(finished, 0);
  Mouse(QEvent::MouseButtonRelease, start + by, Qt::NoButton);
  EXPECT_EQ(finished, 1);
  Mouse(QEvent::MouseMove, start, Qt::LeftButton);
  EXPECT_EQ(window.pos(), origin + by);

  // A release that went elsewhere is noticed with the next move.
  chrome.Drag([&finished] { ++finished; });
  Mouse(QEvent::MouseMove, start, Qt::NoButton);
  EXPECT_EQ(finished, 2);
}

}  // namespace
}  // namespace orvane
