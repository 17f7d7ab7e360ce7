#include "platform/databases/linux/mount_locks.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include "fakes/temporary_folder.h"
#include "platform/system/linux/file_descriptor.h"

namespace orvane {
namespace {

TEST(MountLocksTest, KnowsMountsWhoseLocksStayOnThisMachine) {
  constexpr const char* kMounts =
      "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
      "40 22 0:40 / /srv/a rw shared:2 - nfs server:/a rw,vers=3,nolock,addr=1\n"
      "41 22 0:41 / /srv/b rw - nfs4 server:/b rw,vers=4.2,local_lock=none\n"
      "42 22 0:42 / /srv/mit\\040Blank rw - cifs //server/c rw,nobrl\n"
      "43 22 0:43 / /srv/d rw,nolock - ext4 /dev/sdb1 rw\n"
      "44 22 0:44 / /home/eva/fern rw,nosuid - fuse.sshfs eva@server: rw\n"
      "45 40 0:45 / /srv/a/lokal rw - ext4 /dev/sdc1 rw\n"
      "46 22 0:46 / /srv/e rw - nfs server:/e rw\n"
      "47 22 0:46 / /srv/e rw - nfs server:/f rw,local_lock=posix\n"
      "broken line\n";
  for (const auto& [path, obstacle] : {std::pair{"/srv/a/Daten", "nfs, nolock"},
                                       {"/srv/a", "nfs, nolock"},
                                       {"/srv/ab", ""},
                                       {"/srv/b/Daten", ""},
                                       {"/srv/mit Blank/x", "cifs, nobrl"},
                                       {"/srv/d", ""},
                                       {"/home/eva/fern/x", "fuse.sshfs"},
                                       {"/home/eva", ""},
                                       {"/srv/a/lokal/x", ""},
                                       {"/srv/e", "nfs, local_lock=posix"}}) {
    EXPECT_EQ(LockObstacleOfMounts(kMounts, path), obstacle) << path;
  }
  EXPECT_EQ(LockObstacleOfMounts("", "/srv"), "");
}

TEST(MountLocksTest, TriesALockInTheFolder) {
  const TemporaryFolder folder;
  const auto path = folder.Write("file", "x");
  EXPECT_TRUE(OtherProcessGetsLock(path));
  const FileDescriptor file(open(path.c_str(), O_RDWR | O_CLOEXEC));
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  ASSERT_EQ(fcntl(file.Get(), F_SETLK, &lock), 0);
  EXPECT_FALSE(OtherProcessGetsLock(path));
  EXPECT_EQ(MountLocks().Obstacle(folder.Path().string() + "\\"), "");
  EXPECT_EQ(MountLocks().Obstacle("C:\\fehlt\\"), "");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

}  // namespace
}  // namespace orvane
