#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/folder_locks.h"

namespace orvane {

// Why locks in the folder `path` (absolute, without links) stay on this machine, as the mounts tell
// it; empty when they do not. `mounts` is the text of /proc/self/mountinfo.
std::string LockObstacleOfMounts(std::string_view mounts, const std::string& path);

// Whether another process is given a write lock on the file, which this one may hold.
bool OtherProcessGetsLock(const std::filesystem::path& file);

// Looks at how the folder is mounted, and tries a lock there.
class MountLocks : public FolderLocks {
 public:
  std::string Obstacle(const std::string& folder) override;
};

}  // namespace orvane
