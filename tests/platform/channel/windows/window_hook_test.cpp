#include "platform/channel/windows/window_hook.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "platform/channel/windows/message_host_channel.h"
#include "platform/channel/windows/native_window.h"

namespace orvane {
namespace {

constexpr LRESULT kOwnAnswer = 4711;
// What Later passes messages on to.
WNDPROC behindLater = nullptr;

// A window whose own procedure writes down what reaches it.
class WindowHookTest : public testing::Test {
 protected:
  WindowHookTest() {
    SetWindowLongPtrW(window_.Get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrW(window_.Get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Own));
    own_ = Procedure();
  }
  ~WindowHookTest() override { SetWindowLongPtrW(window_.Get(), GWLP_USERDATA, 0); }

  static LRESULT CALLBACK Own(HWND window, UINT message, WPARAM word, LPARAM parameter) {
    auto* test = reinterpret_cast<WindowHookTest*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (test != nullptr && (message == WM_COPYDATA || message == WM_APP)) {
      test->log_ += "own" + std::to_string(message) + "," + std::to_string(word) + " ";
      return kOwnAnswer;
    }
    return DefWindowProcW(window, message, word, parameter);
  }
  // Somebody else's, put in front of the hook.
  static LRESULT CALLBACK Later(HWND window, UINT message, WPARAM word, LPARAM parameter) {
    auto* test = reinterpret_cast<WindowHookTest*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (test != nullptr && message == WM_COPYDATA) test->log_ += "later ";
    return CallWindowProcW(behindLater, window, message, word, parameter);
  }
  LONG_PTR Procedure() const { return GetWindowLongPtrW(window_.Get(), GWLP_WNDPROC); }
  WindowHook::Receiver Logging() {
    return [this](const CopyData& data) { log_ += "hook" + data.bytes + " "; };
  }
  LRESULT Send(COPYDATASTRUCT record) const {
    return SendMessageW(window_.Get(), WM_COPYDATA, 1, reinterpret_cast<LPARAM>(&record));
  }

  NativeWindow window_{"hooked"};
  LONG_PTR own_ = 0;
  std::string log_;
  char text_[5] = "TX:5";
};

TEST_F(WindowHookTest, TheOwnProcedureGetsEveryMessageAndAnswers) {
  const auto hook = WindowHook::Install(window_.Get(), Logging());
  EXPECT_EQ(Send({3, 4, text_}), kOwnAnswer);
  EXPECT_EQ(SendMessageW(window_.Get(), WM_APP, 7, 0), kOwnAnswer);
  EXPECT_EQ(log_, "hookTX:5 own74,1 own32768,7 ");
}

TEST_F(WindowHookTest, PutsTheProcedureBack) {
  auto hook = WindowHook::Install(window_.Get(), Logging());
  EXPECT_NE(Procedure(), own_);
  EXPECT_FALSE(WindowHook::Install(window_.Get(), Logging())) << "once a window";
  hook.reset();
  EXPECT_EQ(Procedure(), own_);
  Send({3, 4, text_});
  EXPECT_EQ(log_, "own74,1 ");

  // Also from within a message, which the own procedure gets all the same.
  hook = WindowHook::Install(window_.Get(), [&hook](const CopyData&) { hook.reset(); });
  EXPECT_EQ(Send({3, 4, text_}), kOwnAnswer);
  EXPECT_EQ(Procedure(), own_);
}

TEST_F(WindowHookTest, LeavesAProcedureInFrontOfItInPlace) {
  auto hook = WindowHook::Install(window_.Get(), Logging());
  behindLater = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window_.Get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Later)));
  hook.reset();
  EXPECT_EQ(Procedure(), reinterpret_cast<LONG_PTR>(&Later));
  EXPECT_EQ(Send({3, 4, text_}), kOwnAnswer);
  EXPECT_EQ(std::exchange(log_, {}), "later own74,1 ");
  hook = WindowHook::Install(window_.Get(), Logging());
  EXPECT_EQ(Send({3, 4, text_}), kOwnAnswer);
  EXPECT_EQ(std::exchange(log_, {}), "later hookTX:5 own74,1 ");
  hook.reset();
  EXPECT_EQ(Send({3, 4, text_}), kOwnAnswer);
  EXPECT_EQ(log_, "later own74,1 ");
}

TEST_F(WindowHookTest, AWindowThatGoesTakesItsHookAlong) {
  auto window = std::make_unique<NativeWindow>("short");
  const auto hook = WindowHook::Install(window->Get(), Logging());
  EXPECT_TRUE(hook->Installed());
  window.reset();
  EXPECT_FALSE(hook->Installed());
  EXPECT_FALSE(WindowHook::Install(nullptr, Logging()));
  EXPECT_FALSE(WindowHook::Install(GetDesktopWindow(), Logging())) << "another program's";
}

TEST_F(WindowHookTest, SurvivesRecordsThatHoldNothing) {
  const auto hook = WindowHook::Install(window_.Get(), Logging());
  Send({3, 100, nullptr});
  Send({3, 0, text_});
  SendMessageW(window_.Get(), WM_COPYDATA, 1, 0);
  EXPECT_EQ(log_, "hook own74,1 hook own74,1 own74,1 ");
}

}  // namespace
}  // namespace orvane
