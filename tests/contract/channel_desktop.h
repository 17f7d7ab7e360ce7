#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/host_channel.h"

namespace orvane {

// A window of this program, listed while it exists or while it is hooked.
class TestWindow {
 public:
  virtual ~TestWindow() = default;
  // What Hook wants.
  virtual std::uintptr_t Handle() const { return 1; }
  // Whether the system itself has brought it to the front.
  virtual bool InFront() const { return false; }
};

// Makes the channels and the windows of one desktop.
class ChannelDesktop {
 public:
  virtual ~ChannelDesktop() = default;
  virtual std::unique_ptr<HostChannel> NewChannel() = 0;
  virtual std::unique_ptr<TestWindow> NewWindow(const std::string& /*caption*/) {
    return std::make_unique<TestWindow>();
  }
  // Whether senders wait until the receiver says that it has handled the record, and may claim any
  // number of bytes. Otherwise they go on when its handler returns, and the count is that of the
  // bytes.
  virtual bool HasOwnMessages() const { return true; }
};

}  // namespace orvane
