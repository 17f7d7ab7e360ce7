#include "platform/channel/linux/lock_file_instance.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <utility>

namespace orvane {

LockFileInstance::LockFileInstance(std::filesystem::path folder) : folder_(std::move(folder)) {}

bool LockFileInstance::Claim() {
  if (lock_.Valid()) return true;
  const auto directory = SessionDirectory::Open(folder_);
  if (!directory) return true;
  FileDescriptor file(openat(directory->Fd(), "instance.lock",
                             O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
  if (!file.Valid()) return true;
  if (flock(file.Get(), LOCK_EX | LOCK_NB) != 0) return errno != EWOULDBLOCK;
  lock_ = std::move(file);
  return true;
}

}  // namespace orvane
