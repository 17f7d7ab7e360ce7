#include "platform/channel/linux/window_entries.h"
#include "platform/text/text_tools.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <ctime>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

namespace orvane {
namespace {

constexpr std::string_view kCaptionSuffix = ".caption";
constexpr std::string_view kSocketSuffix = ".sock";
// While an entry is being made it must not be taken for one that a dead process left.
constexpr std::string_view kUnfinishedSuffix = ".new";
constexpr int kBacklog = 128;
constexpr std::size_t kLongestCaption = 255;
constexpr std::size_t kLongestCharacterBytes = 4;

std::string EntryName(std::uint64_t id, std::string_view suffix) {
  const std::string digits = std::to_string(id);
  return std::string(20 - digits.size(), '0') + digits + std::string(suffix);
}

std::optional<std::uint64_t> IdOfCaptionFile(std::string_view name) {
  if (!name.ends_with(kCaptionSuffix)) return std::nullopt;
  name.remove_suffix(kCaptionSuffix.size());
  std::uint64_t id = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), id);
  if (error != std::errc() || end != name.data() + name.size()) return std::nullopt;
  return id;
}

// Grows with time for all processes of the machine.
std::uint64_t NewId() {
  timespec now{};
  clock_gettime(CLOCK_BOOTTIME, &now);
  constexpr std::uint64_t kNanosecondsPerSecond = 1'000'000'000;
  return static_cast<std::uint64_t>(now.tv_sec) * kNanosecondsPerSecond +
         static_cast<std::uint64_t>(now.tv_nsec);
}

sockaddr_un SocketAddress(const SessionDirectory& directory, std::uint64_t id) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string path = directory.EntryPath(EntryName(id, kSocketSuffix));
  path.copy(static_cast<char*>(address.sun_path), sizeof address.sun_path - 1);
  return address;
}

FileDescriptor NewSocket() {
  return FileDescriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
}

std::string ReadCaption(int file) {
  std::array<char, (kLongestCaption + 1) * kLongestCharacterBytes> buffer{};
  const ssize_t count = read(file, buffer.data(), buffer.size());
  const std::string_view text(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  return FirstCharacters(text, kLongestCaption);
}

// The caption of a living window of this user; removes the entry of a dead one.
std::optional<std::string> CaptionOf(const SessionDirectory& directory, std::uint64_t id) {
  const std::string name = EntryName(id, kCaptionSuffix);
  const FileDescriptor file(
      openat(directory.Fd(), name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  struct stat status {};
  if (!file.Valid() || fstat(file.Get(), &status) != 0 || status.st_uid != geteuid()) {
    return std::nullopt;
  }
  if (flock(file.Get(), LOCK_SH | LOCK_NB) != 0) return ReadCaption(file.Get());
  unlinkat(directory.Fd(), EntryName(id, kSocketSuffix).c_str(), 0);
  unlinkat(directory.Fd(), name.c_str(), 0);
  return std::nullopt;
}

}  // namespace

std::optional<WindowEntry> WindowEntry::Create(SessionDirectory directory,
                                               const std::string& caption) {
  WindowEntry entry(std::move(directory));
  if (!entry.WriteCaption(caption) || !entry.Listen()) return std::nullopt;
  const std::string unfinished = EntryName(entry.id_, kUnfinishedSuffix);
  const std::string finished = EntryName(entry.id_, kCaptionSuffix);
  const int folder = entry.directory_.Fd();
  if (renameat(folder, unfinished.c_str(), folder, finished.c_str()) != 0) return std::nullopt;
  return entry;
}

WindowEntry::~WindowEntry() {
  if (!caption_.Valid()) return;
  for (const std::string_view suffix : {kCaptionSuffix, kUnfinishedSuffix, kSocketSuffix}) {
    unlinkat(directory_.Fd(), EntryName(id_, suffix).c_str(), 0);
  }
}

bool WindowEntry::WriteCaption(const std::string& caption) {
  do {
    id_ = NewId();
    caption_ = FileDescriptor(openat(directory_.Fd(), EntryName(id_, kUnfinishedSuffix).c_str(),
                                     O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
  } while (!caption_.Valid() && errno == EEXIST);
  const std::string shown = FirstCharacters(caption, kLongestCaption);
  return caption_.Valid() && flock(caption_.Get(), LOCK_EX | LOCK_NB) == 0 &&
         write(caption_.Get(), shown.data(), shown.size()) == static_cast<ssize_t>(shown.size());
}

bool WindowEntry::Listen() {
  listener_ = NewSocket();
  const sockaddr_un address = SocketAddress(directory_, id_);
  return listener_.Valid() &&
         bind(listener_.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
         listen(listener_.Get(), kBacklog) == 0;
}

std::vector<PeerWindow> ListWindows(const SessionDirectory& directory) {
  std::vector<std::uint64_t> ids;
  const int folder = openat(directory.Fd(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(fdopendir(folder), &closedir);
  while (const dirent* entry = entries ? readdir(entries.get()) : nullptr) {
    if (const auto id = IdOfCaptionFile(static_cast<const char*>(entry->d_name))) {
      ids.push_back(*id);
    }
  }
  std::sort(ids.begin(), ids.end(), std::greater<>());
  std::vector<PeerWindow> windows;
  for (const std::uint64_t id : ids) {
    if (auto caption = CaptionOf(directory, id)) {
      windows.push_back({static_cast<std::uintptr_t>(id), false, *std::move(caption)});
    }
  }
  return windows;
}

Connection ConnectToWindow(const SessionDirectory& directory, std::uintptr_t window) {
  Connection connection{NewSocket(), false};
  const sockaddr_un address = SocketAddress(directory, window);
  const int socket = connection.socket.Get();
  if (connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    return {FileDescriptor(), errno == EAGAIN || errno == EINTR};
  }
  if (!IsSameUser(socket)) connection.socket.Reset();
  return connection;
}

bool IsSameUser(int socket) {
  ucred peer{};
  socklen_t size = sizeof peer;
  return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == geteuid();
}

}  // namespace orvane
