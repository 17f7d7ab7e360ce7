#include "platform/channel/linux/socket_host_channel.h"

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <utility>

#include "platform/channel/linux/socket_frame.h"
#include "platform/channel/linux/socket_window.h"
#include "platform/channel/linux/window_entries.h"

namespace orvane {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kConnectStep{10};

std::chrono::milliseconds Left(Clock::time_point deadline) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
  return std::max(left, std::chrono::milliseconds::zero());
}

// Waits until `own` has one of its events or the time is over, and lets the windows of this process
// receive meanwhile. `own.fd` may be -1.
void WaitAndReceive(SocketSession& session, const pollfd& own, std::chrono::milliseconds time) {
  std::vector<pollfd> set{own};
  std::vector<std::shared_ptr<SocketWindow>> owners{nullptr};
  for (const auto& entry : session.windows) {
    const auto window = entry.lock();
    if (!window) continue;
    window->AddToPoll(set);
    owners.resize(set.size(), window);
  }
  if (poll(set.data(), set.size(), static_cast<int>(time.count())) <= 0) return;
  for (std::size_t i = 1; i < set.size(); ++i) {
    if (set[i].revents != 0) owners[i]->Ready(set[i].fd);
  }
}

FileDescriptor ConnectUntil(SocketSession& session, const PeerWindow& peer,
                            Clock::time_point deadline) {
  const auto directory = SessionDirectory::Open(session.folder);
  while (directory) {
    Connection connection = ConnectToWindow(*directory, peer.id);
    if (!connection.again) return std::move(connection.socket);
    // Too many senders wait at the peer; the system does not tell when that changes.
    if (Left(deadline) == Left(deadline).zero()) break;
    WaitAndReceive(session, {-1, 0, 0}, std::min(kConnectStep, Left(deadline)));
  }
  return {};
}

enum class Progress { kMore, kDone, kFailed };

// Sends what the connection takes now, and marks the end of the message behind its last byte.
Progress SendSome(int socket, std::string_view& frame) {
  const ssize_t count = send(socket, frame.data(), frame.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
  if (count < 0) return errno == EAGAIN || errno == EINTR ? Progress::kMore : Progress::kFailed;
  frame.remove_prefix(static_cast<std::size_t>(count));
  if (!frame.empty()) return Progress::kMore;
  return shutdown(socket, SHUT_WR) == 0 ? Progress::kDone : Progress::kFailed;
}

Progress ReadAnswer(int socket) {
  char answer = 0;
  const ssize_t count = recv(socket, &answer, 1, MSG_DONTWAIT);
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return Progress::kMore;
  return count == 1 ? Progress::kDone : Progress::kFailed;
}

}  // namespace

SocketHostChannel::SocketHostChannel(std::shared_ptr<SocketSession> session)
    : session_(std::move(session)) {}

SocketHostChannel::~SocketHostChannel() {
  SocketHostChannel::Unhook();
}

std::vector<PeerWindow> SocketHostChannel::Windows() {
  const auto directory = SessionDirectory::Open(session_->folder);
  return directory ? ListWindows(*directory) : std::vector<PeerWindow>();
}

bool SocketHostChannel::SendCopyData(const PeerWindow& peer, const CopyData& data) {
  // A handler that runs meanwhile may destroy this channel.
  const auto session = session_;
  const auto deadline = Clock::now() + session->answerWait;
  const FileDescriptor socket = ConnectUntil(*session, peer, deadline);
  if (!socket.Valid()) return false;

  const std::string frame = EncodeFrame(FrameKind::kCopyData, data);
  std::string_view unsent = frame;
  while (true) {
    const bool sending = !unsent.empty();
    const Progress progress = sending ? SendSome(socket.Get(), unsent) : ReadAnswer(socket.Get());
    if (progress == Progress::kFailed) return false;
    if (progress == Progress::kDone && !sending) return true;
    if (progress == Progress::kDone) continue;
    const auto left = Left(deadline);
    if (left == left.zero()) return false;
    const short events = sending ? POLLOUT : POLLIN;
    WaitAndReceive(*session, {socket.Get(), events, 0}, left);
  }
}

void SocketHostChannel::BringToFront(const PeerWindow& peer) {
  const auto session = session_;
  const FileDescriptor socket = ConnectUntil(*session, peer, Clock::now() + session->answerWait);
  const std::string frame = EncodeFrame(FrameKind::kBringToFront, {});
  std::string_view unsent = frame;
  if (socket.Valid()) SendSome(socket.Get(), unsent);
}

void SocketHostChannel::Hook(std::uintptr_t /*window*/, const std::string& caption,
                             CopyDataHandler onCopyData, std::function<void()> onFront) {
  if (window_) return;
  auto directory = SessionDirectory::Open(session_->folder);
  if (!directory) return;
  auto entry = WindowEntry::Create(*std::move(directory), caption);
  if (!entry) return;
  window_ = std::make_shared<SocketWindow>(
      *std::move(entry), SocketWindow::Handlers{std::move(onCopyData), std::move(onFront)},
      session_->messageWait);
  std::erase_if(session_->windows, [](const auto& window) { return window.expired(); });
  session_->windows.push_back(window_);
}

void SocketHostChannel::Unhook() {
  // The window may be in the middle of a handler, which keeps it alive.
  const auto window = std::exchange(window_, nullptr);
  if (window) window->Close();
}

}  // namespace orvane
