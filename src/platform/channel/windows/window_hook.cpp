#include "platform/channel/windows/window_hook.h"

#include <algorithm>
#include <utility>

namespace orvane {
namespace {

// The window itself carries the address of its hook.
constexpr const wchar_t* kHookProperty = L"Orvane.WindowHook";
// The procedure to pass messages on to, when the hook had to be left in its place without one.
constexpr const wchar_t* kPassOnProperty = L"Orvane.WindowHook.PassOn";

WNDPROC ProcedureOf(HWND window) {
  return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
}

void SetProcedure(HWND window, WNDPROC procedure) {
  SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
}

WNDPROC TakePassOn(HWND window) {
  return reinterpret_cast<WNDPROC>(RemovePropW(window, kPassOnProperty));
}

LRESULT PassOn(HWND window, UINT message, WPARAM word, LPARAM parameter) {
  auto* const next =
      reinterpret_cast<WNDPROC>(message == WM_NCDESTROY ? RemovePropW(window, kPassOnProperty)
                                                        : GetPropW(window, kPassOnProperty));
  if (next == nullptr) return DefWindowProcW(window, message, word, parameter);
  return CallWindowProcW(next, window, message, word, parameter);
}

}  // namespace

std::shared_ptr<WindowHook> WindowHook::Install(HWND window, Receiver receiver) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != GetCurrentProcessId() || GetPropW(window, kHookProperty) != nullptr) return {};
  const std::shared_ptr<WindowHook> hook(new WindowHook(window, std::move(receiver)));
  if (SetPropW(window, kHookProperty, hook.get()) == 0) return {};
  hook->previous_ = TakePassOn(window);
  if (hook->previous_ == nullptr) {
    hook->previous_ = ProcedureOf(window);
    SetProcedure(window, &Procedure);
  }
  return hook;
}

void WindowHook::Remove() {
  const HWND window = std::exchange(window_, nullptr);
  if (window == nullptr) return;
  receiver_ = {};
  RemovePropW(window, kHookProperty);
  if (ProcedureOf(window) == &Procedure) {
    SetProcedure(window, previous_);
  } else {
    SetPropW(window, kPassOnProperty, reinterpret_cast<HANDLE>(previous_));
  }
}

LRESULT CALLBACK WindowHook::Procedure(HWND window, UINT message, WPARAM word, LPARAM parameter) {
  auto* const found = static_cast<WindowHook*>(GetPropW(window, kHookProperty));
  if (found == nullptr) return PassOn(window, message, word, parameter);
  // The receiver may remove the hook or destroy the window.
  const auto hook = found->shared_from_this();
  const WNDPROC previous = hook->previous_;
  if (message == WM_COPYDATA) hook->Receive(reinterpret_cast<const COPYDATASTRUCT*>(parameter));
  if (message == WM_NCDESTROY) {
    hook->Remove();
    TakePassOn(window);
  }
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
