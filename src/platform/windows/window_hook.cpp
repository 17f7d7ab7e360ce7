#include "platform/windows/window_hook.h"

#include <algorithm>
#include <utility>

namespace orvane {
namespace {

// The window itself carries the address of its hook.
constexpr const wchar_t* kHookProperty = L"Orvane.WindowHook";

}  // namespace

std::shared_ptr<WindowHook> WindowHook::Install(HWND window, Receiver receiver) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != GetCurrentProcessId() || GetPropW(window, kHookProperty) != nullptr) return {};
  const std::shared_ptr<WindowHook> hook(new WindowHook(window, std::move(receiver)));
  if (SetPropW(window, kHookProperty, hook.get()) == 0) return {};
  hook->previous_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
  return hook;
}

void WindowHook::Remove() {
  const HWND window = std::exchange(window_, nullptr);
  if (window == nullptr) return;
  receiver_ = {};
  RemovePropW(window, kHookProperty);
  if (previous_ != nullptr) {
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous_));
  }
}

LRESULT CALLBACK WindowHook::Procedure(HWND window, UINT message, WPARAM word, LPARAM parameter) {
  auto* const found = static_cast<WindowHook*>(GetPropW(window, kHookProperty));
  if (found == nullptr) return DefWindowProcW(window, message, word, parameter);
  // The receiver may remove the hook or destroy the window.
  const auto hook = found->shared_from_this();
  const WNDPROC previous = hook->previous_;
  if (message == WM_COPYDATA) hook->Receive(reinterpret_cast<const COPYDATASTRUCT*>(parameter));
  if (message == WM_NCDESTROY) hook->Remove();
  return CallWindowProcW(previous, window, message, word, parameter);
}

void WindowHook::Receive(const COPYDATASTRUCT* record) const {
  const Receiver receiver = receiver_;
  if (record == nullptr || !receiver) return;
  CopyData data{static_cast<std::uint32_t>(record->dwData), record->cbData, {}};
  if (record->lpData != nullptr) {
    data.bytes.assign(static_cast<const char*>(record->lpData),
                      std::min<std::size_t>(record->cbData, kCopyDataBufferBytes));
  }
  receiver(data);
}

}  // namespace orvane
