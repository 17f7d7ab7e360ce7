#include "platform/lines/windows/tapi32_receiver.h"

#include <vector>

namespace orvane {
namespace {

constexpr const wchar_t* kWindowClass = L"STATIC";
constexpr const wchar_t* kWindowName = L"Orvane.TapiReceiver";

std::vector<Tapi32Receiver::Listener*> ListenersOfThisThread() {
  std::vector<Tapi32Receiver::Listener*> found;
  HWND window = nullptr;
  while ((window = FindWindowExW(HWND_MESSAGE, window, kWindowClass, kWindowName)) != nullptr) {
    if (GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId()) continue;
    found.push_back(
        reinterpret_cast<Tapi32Receiver::Listener*>(GetWindowLongPtrW(window, GWLP_USERDATA)));
  }
  return found;
}

}  // namespace

Tapi32Receiver::Tapi32Receiver(Listener& listener)
    : window_(CreateWindowExW(0, kWindowClass, kWindowName, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                              GetModuleHandleW(nullptr), nullptr)) {
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&listener));
}

Tapi32Receiver::~Tapi32Receiver() {
  DestroyWindow(window_);
}

void CALLBACK Tapi32Receiver::Callback(DWORD device, DWORD message, DWORD_PTR instance,
                                       DWORD_PTR first, DWORD_PTR second,
                                       DWORD_PTR third) noexcept {
  const LINEMESSAGE record{device, message, instance, first, second, third};
  for (Listener* listener : ListenersOfThisThread()) listener->OnTapiMessage(record);
}

}  // namespace orvane
