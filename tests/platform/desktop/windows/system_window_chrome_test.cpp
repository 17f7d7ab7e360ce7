#include "platform/desktop/windows/system_window_chrome.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <QApplication>
#include <QScreen>

#include "contract/event_wait.h"

namespace orvane {
namespace {

class SystemWindowChromeTest : public testing::Test {
 protected:
  SystemWindowChromeTest() {
    window.setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    window.setWindowTitle(QStringLiteral("TALMIX_BRISKO"));
    window.setGeometry(200, 200, 300, 200);
  }
  HWND Native() const { return reinterpret_cast<HWND>(window.winId()); }
  bool IsTopmost() const { return (GetWindowLongPtrW(Native(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }
  // The window's own measure of a length in pixels of the design.
  int Scaled(int pixels) const { return qRound(pixels * window.devicePixelRatioF()); }

  QWidget window;
  SystemWindowChrome chrome{window};
};

TEST_F(SystemWindowChromeTest, StaysOnTop) {
  for (const bool shown : {false, true}) {
    window.setVisible(shown);
    EXPECT_TRUE(chrome.SetTopmost(-1, true));
    EXPECT_TRUE(IsTopmost());
    EXPECT_TRUE(chrome.SetTopmost(7, true)) << "the top of its kind";
    EXPECT_TRUE(IsTopmost());
    EXPECT_TRUE(chrome.SetTopmost(0, true));
    EXPECT_FALSE(IsTopmost());
  }
  chrome.SetTopmost(-1, true);
  window.hide();
  window.show();
  EXPECT_TRUE(IsTopmost()) << "still after it was hidden";
}

TEST_F(SystemWindowChromeTest, CutsTheCorners) {
  window.show();
  chrome.SetRoundedRegion(window.width(), window.height(), 20);
  HRGN region = CreateRectRgn(0, 0, 0, 0);
  ASSERT_EQ(GetWindowRgn(Native(), region), COMPLEXREGION);
  const int right = Scaled(window.width()), bottom = Scaled(window.height());
  const int middle = Scaled(100), corner = Scaled(2), inside = Scaled(4);
  for (const auto& [x, y, in] : {std::tuple{corner, 0, FALSE},
                                 {right - 1 - corner, 0, FALSE},
                                 {corner, bottom - 1, FALSE},
                                 {right - 1 - corner, bottom - 1, FALSE},
                                 {inside, inside, TRUE},
                                 {right - 2 - inside, bottom - 2 - inside, TRUE},
                                 {middle, 0, TRUE},
                                 {0, middle, TRUE},
                                 {right - 1, middle, TRUE},
                                 {middle, bottom - 1, TRUE},
                                 {right, middle, FALSE},
                                 {middle, bottom, FALSE}}) {
    EXPECT_EQ(PtInRegion(region, x, y), in) << x << "," << y;
  }
  window.resize(100, 60);
  chrome.SetRoundedRegion(100, 60, 20);
  RECT box{};
  GetWindowRgnBox(Native(), &box);
  EXPECT_EQ(box.right, Scaled(100));
  EXPECT_EQ(box.bottom, Scaled(60));
  DeleteObject(region);

  SetWindowRgn(Native(), nullptr, FALSE);
  emit window.screen()->logicalDotsPerInchChanged(144);
  EXPECT_TRUE(RunUntil([&] { return GetWindowRgnBox(Native(), &box) == COMPLEXREGION; }))
      << "cut anew at another scale";
}

TEST_F(SystemWindowChromeTest, AsksForAShadow) {
  const auto style = [this] { return GetClassLongPtrW(Native(), GCL_STYLE); };
  const auto before = style() & ~ULONG_PTR{CS_DROPSHADOW};
  chrome.AddDropShadow();
  EXPECT_EQ(style(), before | CS_DROPSHADOW);
}

// Stands before the window's procedure and keeps the system from really moving it.
class MoveWatcher {
 public:
  explicit MoveWatcher(HWND window) : window_(window) {
    SetPropW(window_, kName, this);
    own_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
  }
  ~MoveWatcher() {
    SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(own_));
    RemovePropW(window_, kName);
  }
  MoveWatcher(const MoveWatcher&) = delete;
  MoveWatcher& operator=(const MoveWatcher&) = delete;

  std::string log;

 private:
  static constexpr const wchar_t* kName = L"Orvane.MoveWatcher";
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM parameter) {
    auto& watcher = *static_cast<MoveWatcher*>(GetPropW(window, kName));
    if (message == WM_SYSCOMMAND && (word & 0xFFF0) == SC_MOVE) {
      watcher.log += GetCapture() == nullptr ? "move " : "captured ";
      return 0;
    }
    return CallWindowProcW(watcher.own_, window, message, word, parameter);
  }

  HWND window_;
  WNDPROC own_ = nullptr;
};

TEST_F(SystemWindowChromeTest, LeavesTheMoveToTheSystem) {
  window.show();
  window.activateWindow();
  ASSERT_TRUE(RunUntil([&] { return GetForegroundWindow() == Native(); }));
  SetCapture(Native());
  MoveWatcher watcher(Native());
  chrome.Drag([&watcher] { watcher.log += "finished"; });
  EXPECT_EQ(watcher.log, "move finished");
}

}  // namespace
}  // namespace orvane
