#pragma once

#include <chrono>
#include <memory>

#include "platform/host_channel.h"

namespace orvane {

class WindowHook;

// Messages between windows as the system carries them. Here a record counts as handled when the
// peer's window procedure has returned, and its byte count is the number of its bytes. A hooked
// window is listed under the caption that it really has.
class MessageHostChannel : public HostChannel {
 public:
  explicit MessageHostChannel(std::chrono::milliseconds answerWait = std::chrono::seconds(5));
  ~MessageHostChannel() override;
  MessageHostChannel(const MessageHostChannel&) = delete;
  MessageHostChannel& operator=(const MessageHostChannel&) = delete;

  std::vector<PeerWindow> Windows() override;
  bool SendCopyData(const PeerWindow& peer, const CopyData& data) override;
  void BringToFront(const PeerWindow& peer) override;
  void Hook(std::uintptr_t window, const std::string& caption, CopyDataHandler onCopyData,
            std::function<void()> onFront) override;
  void Unhook() override;

 private:
  std::chrono::milliseconds answerWait_;
  std::shared_ptr<WindowHook> hook_;
};

}  // namespace orvane
