#include "platform/channel/linux/session_directory.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdlib>
#include <string_view>

namespace orvane {
namespace {

// Whether nobody but this user and the administrator can put another entry in the place of one in
// this folder. Created where it is missing.
bool IsSafeParent(const std::filesystem::path& path) {
  mkdir(path.c_str(), S_IRWXU);
  struct stat status {};
  if (lstat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) return false;
  if (status.st_uid != geteuid() && status.st_uid != 0) return false;
  const bool writableByOthers = (status.st_mode & (S_IWGRP | S_IWOTH)) != 0;
  return !writableByOthers || (status.st_mode & S_ISVTX) != 0;
}

// A folder of this user's that nobody else can enter, held open. Created where it is missing.
FileDescriptor OpenPrivateFolder(const std::filesystem::path& path) {
  mkdir(path.c_str(), S_IRWXU);
  FileDescriptor folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  struct stat status {};
  if (!folder.Valid() || fstat(folder.Get(), &status) != 0 || status.st_uid != geteuid()) return {};
  const bool closedToOthers = (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
  if (!closedToOthers && fchmod(folder.Get(), S_IRWXU) != 0) return {};
  return folder;
}

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : value;
}

// The display as a file name: ":0.0" and ":0" are the same one.
std::string SessionName() {
  std::string display = Environment("WAYLAND_DISPLAY");
  if (display.empty()) {
    display = Environment("DISPLAY");
    const std::size_t colon = display.rfind(':');
    if (colon != std::string::npos) display = display.substr(0, display.find('.', colon));
  }
  std::string name = "session-";
  for (const char c : display.substr(0, 100)) {
    const bool plain = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    name += plain || c == '-' ? c : '_';
  }
  return name;
}

bool IsOwnFolder(const std::string& path) {
  struct stat status {};
  return !path.empty() && lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
         status.st_uid == geteuid();
}

}  // namespace

std::filesystem::path SessionDirectory::DefaultPath() {
  const std::string runtime = Environment("XDG_RUNTIME_DIR");
  const std::string base =
      IsOwnFolder(runtime) ? runtime + "/orvane" : "/tmp/orvane-" + std::to_string(geteuid());
  return std::filesystem::path(base) / SessionName();
}

std::optional<SessionDirectory> SessionDirectory::Open(const std::filesystem::path& path) {
  if (!IsSafeParent(path.parent_path())) return std::nullopt;
  FileDescriptor folder = OpenPrivateFolder(path);
  if (!folder.Valid()) return std::nullopt;
  return SessionDirectory(std::move(folder));
}

std::string SessionDirectory::EntryPath(const std::string& name) const {
  return "/proc/self/fd/" + std::to_string(Fd()) + "/" + name;
}

}  // namespace orvane
