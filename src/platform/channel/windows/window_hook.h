#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "platform/host_channel.h"

namespace orvane {

// A window procedure put in front of a window's own one. It hands over copy-data messages, then
// lets the window's own procedure have every message.
class WindowHook : public std::enable_shared_from_this<WindowHook> {
 public:
  using Receiver = std::function<void(const CopyData&)>;

  // Nothing when that is not a window of this program, or is hooked already.
  static std::shared_ptr<WindowHook> Install(HWND window, Receiver receiver);
  ~WindowHook() { Remove(); }
  WindowHook(const WindowHook&) = delete;
  WindowHook& operator=(const WindowHook&) = delete;

  // Puts the window's own procedure back; also in the middle of a message. Where somebody else has
  // put a procedure in front of this one meanwhile, it stays and only passes messages on. A window
  // that is destroyed is given back by itself.
  void Remove();
  bool Installed() const { return window_ != nullptr; }

 private:
  WindowHook(HWND window, Receiver receiver) : window_(window), receiver_(std::move(receiver)) {}
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM word, LPARAM parameter);
  void Receive(const COPYDATASTRUCT* record) const;

  HWND window_;
  Receiver receiver_;
  WNDPROC previous_ = nullptr;
};

}  // namespace orvane
