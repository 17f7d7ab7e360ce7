#pragma once

#include "platform/host_channel.h"
#include "platform/support_log.h"

namespace orvane {

// A channel to other programs whose messages the log hears of, both ways.
class LoggedChannel : public HostChannel {
 public:
  LoggedChannel(HostChannel& channel, SupportLog& log) : channel_(channel), log_(log) {}

  std::vector<PeerWindow> Windows() override { return channel_.Windows(); }
  bool SendCopyData(const PeerWindow& peer, const CopyData& data) override;
  void BringToFront(const PeerWindow& peer) override { channel_.BringToFront(peer); }
  void Hook(std::uintptr_t window, const std::string& caption, CopyDataHandler onCopyData,
            std::function<void()> onFront) override;
  void Unhook() override { channel_.Unhook(); }

 private:
  HostChannel& channel_;
  SupportLog& log_;
};

}  // namespace orvane
