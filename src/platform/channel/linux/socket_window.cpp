#include "platform/channel/linux/socket_window.h"

#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace orvane {
namespace {

constexpr std::size_t kMostSenders = 256;
constexpr int kAcceptsPerTurn = 32;
constexpr int kReadsPerTurn = 16;
constexpr std::size_t kReadBytes = 65536;
constexpr std::chrono::milliseconds kAcceptPause{500};
constexpr char kHandledByte = 1;

}  // namespace

// The answer to one sender: given when the record was handled, or refused when the last copy of it
// is forgotten. It outlives the window, because handling a record may close the window.
class SocketWindow::Reply {
 public:
  explicit Reply(FileDescriptor socket) : socket_(std::move(socket)) {}
  // A sender that is gone by now does not matter.
  void SayHandled() {
    if (!socket_.Valid()) return;
    send(socket_.Get(), &kHandledByte, 1, MSG_NOSIGNAL | MSG_DONTWAIT);
    socket_.Reset();
  }

 private:
  FileDescriptor socket_;
};

SocketWindow::SocketWindow(WindowEntry entry, Handlers handlers, std::chrono::milliseconds patience)
    : entry_(std::move(entry)),
      handlers_(std::move(handlers)),
      patience_(patience),
      notifier_(entry_->Listener(), QSocketNotifier::Read) {
  QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { Accept(); });
  pause_.setSingleShot(true);
  pause_.setInterval(kAcceptPause);
  QObject::connect(&pause_, &QTimer::timeout, &pause_, [this] { notifier_.setEnabled(true); });
}

void SocketWindow::Close() {
  notifier_.setEnabled(false);
  pause_.stop();
  entry_.reset();
  senders_.clear();
  handlers_ = {};
}

void SocketWindow::AddToPoll(std::vector<pollfd>& set) const {
  if (notifier_.isEnabled()) set.push_back({entry_->Listener(), POLLIN, 0});
  for (const Sender& sender : senders_) set.push_back({sender.socket.Get(), POLLIN, 0});
}

void SocketWindow::Ready(int fd) {
  if (entry_ && fd == entry_->Listener()) {
    Accept();
    return;
  }
  const auto self = shared_from_this();
  const auto sender = std::find_if(senders_.begin(), senders_.end(),
                                   [fd](const Sender& s) { return s.socket.Get() == fd; });
  if (sender != senders_.end()) Read(sender);
}

void SocketWindow::Accept() {
  for (int i = 0; i < kAcceptsPerTurn; ++i) {
    FileDescriptor socket(
        accept4(entry_->Listener(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (socket.Valid()) {
      if (IsSameUser(socket.Get())) Welcome(std::move(socket));
      continue;
    }
    if (errno == EAGAIN) return;
    if (errno == EINTR || errno == ECONNABORTED) continue;
    // No descriptor left.
    PauseAccepting();
    return;
  }
}

// The listening socket stays readable, and would keep the loop busy until something changes.
void SocketWindow::PauseAccepting() {
  if (!senders_.empty()) senders_.pop_front();
  notifier_.setEnabled(false);
  pause_.start();
}

void SocketWindow::Welcome(FileDescriptor socket) {
  if (senders_.size() >= kMostSenders) senders_.pop_front();
  const int fd = socket.Get();
  Sender& sender = senders_.emplace_back();
  sender.socket = std::move(socket);
  sender.notifier = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Read);
  QObject::connect(sender.notifier.get(), &QSocketNotifier::activated, sender.notifier.get(),
                   [this, fd] { Ready(fd); });
  sender.deadline = std::make_unique<QTimer>();
  sender.deadline->setSingleShot(true);
  QObject::connect(sender.deadline.get(), &QTimer::timeout, sender.deadline.get(),
                   [this, fd] { Drop(fd); });
  sender.deadline->start(patience_);
}

void SocketWindow::Drop(int socket) {
  std::erase_if(senders_, [socket](const Sender& s) { return s.socket.Get() == socket; });
}

void SocketWindow::Read(std::list<Sender>::iterator sender) {
  std::array<char, kReadBytes> block;  // NOLINT: filled by recv
  for (int i = 0; i < kReadsPerTurn; ++i) {
    const ssize_t count = recv(sender->socket.Get(), block.data(), block.size(), 0);
    if (count > 0) {
      const std::string_view bytes(block.data(), static_cast<std::size_t>(count));
      if (sender->message.Append(bytes)) continue;
    } else if (count < 0 && (errno == EAGAIN || errno == EINTR)) {
      return;
    }
    const auto frame = count == 0 ? sender->message.Finish() : std::nullopt;
    sender->notifier.reset();
    FileDescriptor socket = std::move(sender->socket);
    senders_.erase(sender);
    if (frame) Deliver(std::move(socket), *frame);
    return;
  }
}

void SocketWindow::Deliver(FileDescriptor socket, const Frame& frame) {
  // Copies: the handler may unhook the window, which destroys this.
  const Handlers handlers = handlers_;
  if (frame.kind == FrameKind::kBringToFront) {
    if (handlers.onFront) handlers.onFront();
    return;
  }
  if (!handlers.onCopyData) return;
  const auto reply = std::make_shared<Reply>(std::move(socket));
  handlers.onCopyData(frame.data, [reply] { reply->SayHandled(); });
}

}  // namespace orvane
