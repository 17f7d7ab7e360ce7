#pragma once

#include <windows.h>

#include "platform/lines/windows/tapi32_api.h"

namespace orvane {

// What TAPI reports to the thread that initialised it, while that thread runs its message loop.
//
// Some of TAPI's messages carry nothing that leads to an object of this program. So each receiver
// has a window that is never shown, and the callback looks among the windows of its thread.
class Tapi32Receiver {
 public:
  class Listener {
   public:
    virtual ~Listener() = default;
    // Also hears what other receivers of the thread asked for, with handles it does not know.
    virtual void OnTapiMessage(const LINEMESSAGE& message) = 0;
  };

  // The listener outlives the receiver.
  explicit Tapi32Receiver(Listener& listener);
  ~Tapi32Receiver();
  Tapi32Receiver(const Tapi32Receiver&) = delete;
  Tapi32Receiver& operator=(const Tapi32Receiver&) = delete;

  // To be given to TAPI, through whose frames no exception may pass.
  static void CALLBACK Callback(DWORD device, DWORD message, DWORD_PTR instance, DWORD_PTR first,
                                DWORD_PTR second, DWORD_PTR third) noexcept;

 private:
  HWND window_;
};

}  // namespace orvane
