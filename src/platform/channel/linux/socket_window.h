#pragma once

#include <poll.h>

#include <QSocketNotifier>
#include <QTimer>
#include <chrono>
#include <cstddef>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/channel/linux/socket_frame.h"
#include "platform/channel/linux/window_entries.h"
#include "platform/host_channel.h"

namespace orvane {

// Receives the messages of one hooked window, on the event loop and, while this process waits for
// an answer itself, by way of AddToPoll and Ready. Handlers may destroy it.
class SocketWindow : public std::enable_shared_from_this<SocketWindow> {
 public:
  struct Handlers {
    HostChannel::CopyDataHandler onCopyData;
    std::function<void()> onFront;
  };

  // Senders that have connected but do not finish their message are dropped after `patience`.
  SocketWindow(WindowEntry entry, Handlers handlers, std::chrono::milliseconds patience);
  ~SocketWindow() { Close(); }
  SocketWindow(const SocketWindow&) = delete;
  SocketWindow& operator=(const SocketWindow&) = delete;

  // Ends receiving, also in the middle of a handler: drops what has not been handled, and lets the
  // senders go on.
  void Close();

  void AddToPoll(std::vector<pollfd>& set) const;
  // One of the descriptors that AddToPoll added has something to read.
  void Ready(int fd);

 private:
  // A sender whose message is still arriving.
  struct Sender {
    FileDescriptor socket;
    FrameReader message;
    std::unique_ptr<QSocketNotifier> notifier;
    std::unique_ptr<QTimer> deadline;
  };
  // A sender that waits until its record has been handled.
  class Reply;

  void Accept();
  void Welcome(FileDescriptor socket);
  void Read(std::list<Sender>::iterator sender);
  void Deliver(FileDescriptor socket, const Frame& frame);
  void Drop(int socket);
  void PauseAccepting();

  std::optional<WindowEntry> entry_;
  Handlers handlers_;
  std::chrono::milliseconds patience_;
  QSocketNotifier notifier_;
  QTimer pause_;
  // The oldest first.
  std::list<Sender> senders_;
};

}  // namespace orvane
