#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace orvane {

// Both sides of the channel work with a fixed buffer of this size, closing zero included.
inline constexpr std::size_t kCopyDataBufferBytes = 255;

// The record of a copy-data message. `byteCount` is what the sender claims; `bytes` is what really
// came, at most kCopyDataBufferBytes.
struct CopyData {
  std::uint32_t tag = 0;
  std::uint32_t byteCount = 0;
  std::string bytes;
};

// A top-level or child window of this user's desktop session.
struct PeerWindow {
  std::uintptr_t id = 0;
  bool hasParent = false;
  std::string caption;  // UTF-8, at most 255 characters
};

// Short messages between the windows of programs, found by caption.
class HostChannel {
 public:
  virtual ~HostChannel() = default;

  // Told by the receiver when the message has been handled; lets the sender go on.
  using Handled = std::function<void()>;
  using CopyDataHandler = std::function<void(const CopyData&, Handled)>;

  // All windows, the topmost (newest) first, those of this program included.
  virtual std::vector<PeerWindow> Windows() = 0;

  // Delivers one record with word parameter 1 and waits until it was handled. Messages that arrive
  // meanwhile are handled, nothing else is. Gives up silently when the peer is gone or has not
  // answered for 5 seconds. False when it was not handled.
  virtual bool SendCopyData(const PeerWindow& peer, const CopyData& data) = 0;

  // Raises the peer's window and gives it the focus.
  virtual void BringToFront(const PeerWindow& peer) = 0;

  // Starts to receive for the own window, given by its native handle and caption. `onFront` runs
  // when a peer asked for BringToFront and the system does not do it by itself. A second call while
  // hooked does nothing.
  virtual void Hook(std::uintptr_t window, const std::string& caption, CopyDataHandler onCopyData,
                    std::function<void()> onFront) = 0;
  // Stops receiving. Records that arrived but were not handled yet are dropped; their senders go
  // on.
  virtual void Unhook() = 0;
};

}  // namespace orvane
