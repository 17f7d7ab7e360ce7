#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/channel/linux/session_directory.h"
#include "platform/host_channel.h"

namespace orvane {

class SocketWindow;

// What the channels of one process share, so that a channel that waits for an answer lets the
// other windows of its process receive.
struct SocketSession {
  std::filesystem::path folder = SessionDirectory::DefaultPath();
  // How long a sender waits for its record to be handled.
  std::chrono::milliseconds answerWait{5000};
  // How long a receiver waits for the end of a message.
  std::chrono::milliseconds messageWait{5000};
  std::vector<std::weak_ptr<SocketWindow>> windows;
};

// Messages between windows through Unix sockets in a folder of the desktop session. Where that
// folder cannot be used safely there are no peers.
class SocketHostChannel : public HostChannel {
 public:
  explicit SocketHostChannel(
      std::shared_ptr<SocketSession> session = std::make_shared<SocketSession>());
  ~SocketHostChannel() override;
  SocketHostChannel(const SocketHostChannel&) = delete;
  SocketHostChannel& operator=(const SocketHostChannel&) = delete;

  std::vector<PeerWindow> Windows() override;
  bool SendCopyData(const PeerWindow& peer, const CopyData& data) override;
  void BringToFront(const PeerWindow& peer) override;
  void Hook(std::uintptr_t window, const std::string& caption, CopyDataHandler onCopyData,
            std::function<void()> onFront) override;
  void Unhook() override;

 private:
  std::shared_ptr<SocketSession> session_;
  std::shared_ptr<SocketWindow> window_;
};

}  // namespace orvane
