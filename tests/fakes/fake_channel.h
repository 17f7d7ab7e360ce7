#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "platform/host_channel.h"

namespace orvane {

// The windows of one desktop session in memory, the newest first.
struct FakeDesktop {
  struct Window {
    PeerWindow peer;
    HostChannel::CopyDataHandler onCopyData;
    std::function<void()> onFront;
  };
  std::vector<Window> windows;
  std::uintptr_t nextId = 1;

  Window* Find(std::uintptr_t id) {
    const auto found = std::find_if(windows.begin(), windows.end(),
                                    [id](const Window& w) { return w.peer.id == id; });
    return found == windows.end() ? nullptr : &*found;
  }
};

class FakeChannel : public HostChannel {
 public:
  explicit FakeChannel(std::shared_ptr<FakeDesktop> desktop) : desktop_(std::move(desktop)) {}
  ~FakeChannel() override { Unhook(); }
  FakeChannel(const FakeChannel&) = delete;
  FakeChannel& operator=(const FakeChannel&) = delete;

  std::vector<PeerWindow> Windows() override {
    std::vector<PeerWindow> peers;
    for (const auto& window : desktop_->windows) peers.push_back(window.peer);
    return peers;
  }

  bool SendCopyData(const PeerWindow& peer, const CopyData& data) override {
    const auto* window = desktop_->Find(peer.id);
    if (window == nullptr || !window->onCopyData) return false;
    const auto handler = window->onCopyData;  // which may end the window
    const auto handled = std::make_shared<bool>(false);
    CopyData received = data;
    received.bytes.resize(std::min(received.bytes.size(), kCopyDataBufferBytes));
    handler(received, [handled] { *handled = true; });
    return *handled;
  }

  void BringToFront(const PeerWindow& peer) override {
    if (const auto* window = desktop_->Find(peer.id); window && window->onFront) window->onFront();
  }

  void Hook(std::uintptr_t /*window*/, const std::string& caption, CopyDataHandler onCopyData,
            std::function<void()> onFront) override {
    if (ownId_ != 0) return;
    ownId_ = desktop_->nextId++;
    const PeerWindow peer{ownId_, false, caption};
    desktop_->windows.insert(desktop_->windows.begin(),
                             {peer, std::move(onCopyData), std::move(onFront)});
  }

  void Unhook() override {
    std::erase_if(desktop_->windows, [this](const auto& w) { return w.peer.id == ownId_; });
    ownId_ = 0;
  }

 private:
  std::shared_ptr<FakeDesktop> desktop_;
  std::uintptr_t ownId_ = 0;
};

}  // namespace orvane
