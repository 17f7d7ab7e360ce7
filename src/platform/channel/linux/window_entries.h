#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/channel/linux/session_directory.h"
#include "platform/host_channel.h"

namespace orvane {

// The entry of one window in the session's folder: a socket, and a file with the caption that stays
// locked as long as the window's process lives. Both are named by the time of their creation.
class WindowEntry {
 public:
  // Nothing when the folder does not take the entry, because it is full or read-only.
  static std::optional<WindowEntry> Create(SessionDirectory directory, const std::string& caption);
  ~WindowEntry();
  WindowEntry(WindowEntry&& other) noexcept = default;
  WindowEntry& operator=(WindowEntry&&) = delete;
  WindowEntry(const WindowEntry&) = delete;
  WindowEntry& operator=(const WindowEntry&) = delete;

  // The listening socket.
  int Listener() const { return listener_.Get(); }

 private:
  explicit WindowEntry(SessionDirectory directory) : directory_(std::move(directory)) {}
  bool WriteCaption(const std::string& caption);
  bool Listen();

  SessionDirectory directory_;
  std::uint64_t id_ = 0;
  FileDescriptor caption_;
  FileDescriptor listener_;
};

// All windows of living processes, the newest first. Removes what dead ones left behind.
std::vector<PeerWindow> ListWindows(const SessionDirectory& directory);

// Starts to connect to the window. Without a connection `Again` says whether it is worth trying
// again, because the window is only busy.
struct Connection {
  FileDescriptor socket;
  bool again = false;
};
Connection ConnectToWindow(const SessionDirectory& directory, std::uintptr_t window);

// Whether the process on the other end of the socket belongs to this user.
bool IsSameUser(int socket);

}  // namespace orvane
