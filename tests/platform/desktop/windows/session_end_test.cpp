#include "platform/desktop/windows/session_end.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <QWidget>

namespace orvane {
namespace {

TEST(SessionEnd, CountsOnceAndOnlyWhenItHappens) {
  QWidget first;
  QWidget second;
  SessionEnd end;
  int told = 0;
  end.SetHandler([&told](EndRequests::When when) {
    EXPECT_EQ(when, EndRequests::When::kAtOnce);
    ++told;
  });
  for (const auto& [happens, count] : {std::pair{FALSE, 0}, {TRUE, 1}, {TRUE, 1}}) {
    for (const QWidget* window : {&first, &second}) {
      const auto handle = reinterpret_cast<HWND>(window->winId());
      EXPECT_NE(SendMessageW(handle, WM_QUERYENDSESSION, 0, 0), 0);
      SendMessageW(handle, WM_ENDSESSION, static_cast<WPARAM>(happens), 0);
    }
    EXPECT_EQ(told, count);
  }
}

}  // namespace
}  // namespace orvane
