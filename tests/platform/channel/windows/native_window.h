#pragma once

#include <windows.h>

#include <string>

#include "contract/channel_desktop.h"
#include "platform/system/windows/wide_text.h"

namespace orvane {

// A small window on the desktop, with nothing of the toolkit. Owned windows have a parent.
class NativeWindow : public TestWindow {
 public:
  explicit NativeWindow(const std::string& caption, HWND owner = nullptr)
      : window_(CreateWindowExW(0, L"STATIC", ToWide(caption).c_str(), WS_POPUP, 10, 10, 60, 40,
                                owner, nullptr, nullptr, nullptr)) {}
  ~NativeWindow() override { DestroyWindow(window_); }
  NativeWindow(const NativeWindow&) = delete;
  NativeWindow& operator=(const NativeWindow&) = delete;

  std::uintptr_t Handle() const override { return reinterpret_cast<std::uintptr_t>(window_); }
  bool InFront() const override { return GetForegroundWindow() == window_; }
  // On top of the others, without taking the focus.
  void Show() const { ShowWindow(window_, SW_SHOWNOACTIVATE); }
  HWND Get() const { return window_; }

 private:
  HWND window_;
};

}  // namespace orvane
