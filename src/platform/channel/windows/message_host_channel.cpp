#include "platform/channel/windows/message_host_channel.h"

#include <array>
#include <unordered_set>
#include <utility>

#include "platform/channel/windows/window_hook.h"
#include "platform/system/windows/wide_text.h"

namespace orvane {
namespace {

constexpr int kCaptionBufferBytes = 256;  // 255 characters and the closing zero
constexpr WPARAM kWordParameter = 1;

HWND ToWindow(const PeerWindow& peer) {
  return reinterpret_cast<HWND>(peer.id);
}

// The text of this program's own windows is asked of the thread that has them, and a database
// driver's thread may be waiting for its server; none of those is a peer.
bool BelongsToAnotherThreadHere(HWND window) {
  DWORD process = 0;
  const DWORD thread = GetWindowThreadProcessId(window, &process);
  return process == GetCurrentProcessId() && thread != GetCurrentThreadId();
}

std::string CaptionOf(HWND window) {
  if (BelongsToAnotherThreadHere(window)) return {};
  std::array<char, kCaptionBufferBytes> buffer{};
  const int length = GetWindowTextA(window, buffer.data(), kCaptionBufferBytes);
  return FromSystemAnsi({buffer.data(), static_cast<std::size_t>(length)});
}

}  // namespace

MessageHostChannel::MessageHostChannel(std::chrono::milliseconds answerWait)
    : answerWait_(answerWait) {}

MessageHostChannel::~MessageHostChannel() {
  MessageHostChannel::Unhook();
}

std::vector<PeerWindow> MessageHostChannel::Windows() {
  std::vector<PeerWindow> windows;
  // A window that changes its place during the walk must not lead it in circles.
  std::unordered_set<HWND> seen;
  for (HWND window = FindWindowA(nullptr, nullptr); window != nullptr && seen.insert(window).second;
       window = GetWindow(window, GW_HWNDNEXT)) {
    windows.push_back({reinterpret_cast<std::uintptr_t>(window), GetParent(window) != nullptr,
                       CaptionOf(window)});
  }
  return windows;
}

bool MessageHostChannel::SendCopyData(const PeerWindow& peer, const CopyData& data) {
  if (IsWindow(ToWindow(peer)) == 0) return false;
  std::string bytes = data.bytes;
  COPYDATASTRUCT record{data.tag, static_cast<DWORD>(bytes.size()), bytes.data()};
  DWORD_PTR answer = 0;
  // Lets this program's windows receive what other programs send meanwhile.
  return SendMessageTimeoutA(ToWindow(peer), WM_COPYDATA, kWordParameter,
                             reinterpret_cast<LPARAM>(&record), SMTO_NORMAL | SMTO_ERRORONEXIT,
                             static_cast<UINT>(answerWait_.count()), &answer) != 0;
}

void MessageHostChannel::BringToFront(const PeerWindow& peer) {
  // Behind a message box the window itself is disabled; a hidden one must not take the focus.
  const HWND window = GetLastActivePopup(ToWindow(peer));
  if (IsWindowVisible(window) == 0) return;
  if (IsIconic(window) != 0) ShowWindowAsync(window, SW_RESTORE);
  SetForegroundWindow(window);
}

void MessageHostChannel::Hook(std::uintptr_t window, const std::string& /*caption*/,
                              CopyDataHandler onCopyData, std::function<void()> /*onFront*/) {
  if (hook_ && hook_->Installed()) return;
  hook_ = WindowHook::Install(reinterpret_cast<HWND>(window),
                              [handler = std::move(onCopyData)](const CopyData& data) {
                                if (handler) handler(data, [] {});
                              });
}

void MessageHostChannel::Unhook() {
  // The window may be in the middle of a message, which keeps the hook alive.
  if (const auto hook = std::exchange(hook_, nullptr)) hook->Remove();
}

}  // namespace orvane
