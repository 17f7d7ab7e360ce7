#include "platform/databases/linux/mount_locks.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <system_error>
#include <vector>

#include "platform/system/linux/file_descriptor.h"
#include "platform/text/native_path.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

constexpr const char* kMountList = "/proc/self/mountinfo";
// In a line of the list: where the mount begins, its options; behind "-" the kind of file system,
// its source and its own options.
constexpr std::size_t kMountPoint = 4;
constexpr std::size_t kOptions = 5;
constexpr std::size_t kKindBehindDash = 1;
constexpr std::size_t kOwnOptionsBehindDash = 3;

// Kinds of file systems whose option keeps locks on this machine; without one they always do.
struct LocalLocks {
  std::string_view kind;
  std::string_view option;
};
constexpr LocalLocks kLocalLocks[] = {{"nfs", "nolock"},
                                      {"nfs", "local_lock=all"},
                                      {"nfs", "local_lock=posix"},
                                      {"nfs4", "local_lock=all"},
                                      {"nfs4", "local_lock=posix"},
                                      {"cifs", "nobrl"},
                                      {"smb3", "nobrl"},
                                      {"fuse.sshfs", ""}};

struct Mount {
  std::string point;
  std::string kind;
  std::vector<std::string> options;
};

// Characters that would part the list's fields are written as three octal digits.
std::string Unescaped(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 3 >= text.size()) {
      plain += text[i];
      continue;
    }
    plain +=
        static_cast<char>((text[i + 1] - '0') * 64 + (text[i + 2] - '0') * 8 + text[i + 3] - '0');
    i += 3;
  }
  return plain;
}

Mount ParseMount(std::string_view line) {
  const std::vector<std::string> fields = Split(line, ' ');
  const auto dash = std::find(fields.begin(), fields.end(), "-");
  const auto behind = static_cast<std::size_t>(fields.end() - dash);
  if (fields.size() <= kOptions || behind <= kOwnOptionsBehindDash) return {};
  Mount mount{Unescaped(fields[kMountPoint]), dash[kKindBehindDash], Split(fields[kOptions], ',')};
  const auto own = Split(dash[kOwnOptionsBehindDash], ',');
  mount.options.insert(mount.options.end(), own.begin(), own.end());
  return mount;
}

bool Holds(const std::string& point, const std::string& path) {
  if (point == "/") return true;
  return path.starts_with(point) && (path.size() == point.size() || path[point.size()] == '/');
}

bool TakeLock(int file) {
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  return fcntl(file, F_SETLK, &lock) == 0;
}

// A file that is gone when the trial is over.
class TrialFile {
 public:
  explicit TrialFile(const std::filesystem::path& folder)
      : path_(folder / (".orvane-" + std::to_string(getpid()))),
        file_(open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR)) {}
  ~TrialFile() {
    if (file_.Valid()) unlink(path_.c_str());
  }
  TrialFile(const TrialFile&) = delete;
  TrialFile& operator=(const TrialFile&) = delete;

  bool Locked() const { return file_.Valid() && TakeLock(file_.Get()); }
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
  FileDescriptor file_;
};

}  // namespace

std::string LockObstacleOfMounts(std::string_view mounts, const std::string& path) {
  Mount nearest;
  for (const std::string& line : Split(mounts, '\n')) {
    Mount mount = ParseMount(line);
    // Of two mounts at one place the later one covers the other.
    if (Holds(mount.point, path) && mount.point.size() >= nearest.point.size()) nearest = mount;
  }
  for (const auto& [kind, option] : kLocalLocks) {
    if (nearest.kind != kind) continue;
    if (option.empty()) return nearest.kind;
    if (std::ranges::count(nearest.options, option) > 0) {
      return nearest.kind + ", " + std::string(option);
    }
  }
  return {};
}

bool OtherProcessGetsLock(const std::filesystem::path& file) {
  const char* const name = file.c_str();
  const pid_t child = fork();
  if (child < 0) return false;
  if (child == 0) {
    const int opened = open(name, O_RDWR | O_CLOEXEC);
    _exit(opened >= 0 && TakeLock(opened) ? 1 : 0);
  }
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) && WEXITSTATUS(status) == 1;
}

std::string MountLocks::Obstacle(const std::string& folder) {
  std::error_code error;
  const std::filesystem::path path = std::filesystem::canonical(NativePath(folder), error);
  if (error) return {};
  std::ifstream list(kMountList);
  const std::string mounts{std::istreambuf_iterator<char>(list), std::istreambuf_iterator<char>()};
  if (const std::string obstacle = LockObstacleOfMounts(mounts, path.string()); !obstacle.empty()) {
    return obstacle;
  }
  const TrialFile trial(path);
  const bool broken = trial.Locked() && OtherProcessGetsLock(trial.Path());
  return broken ? "eine vergebene Sperre wurde noch einmal vergeben" : "";
}

}  // namespace orvane
