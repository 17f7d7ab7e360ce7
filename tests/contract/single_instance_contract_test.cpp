#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>

#include <QTemporaryDir>
#include <filesystem>
#include <memory>

#include "contract/child_process.h"
#include "platform/linux/lock_file_instance.h"

namespace orvane {
namespace {

class SingleInstanceTest : public testing::Test {
 protected:
  std::unique_ptr<SingleInstance> New() { return std::make_unique<LockFileInstance>(path_); }

  QTemporaryDir folder_;
  std::filesystem::path path_ = folder_.path().toStdString() + "/orvane/session-1";
};

TEST_F(SingleInstanceTest, OneAtATime) {
  auto first = New();
  auto second = New();
  EXPECT_TRUE(first->Claim());
  EXPECT_TRUE(first->Claim());
  EXPECT_FALSE(second->Claim());
  first.reset();
  EXPECT_TRUE(second->Claim());
}

TEST_F(SingleInstanceTest, AProcessThatWasKilledHoldsNothing) {
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  ChildProcess other([&] {
    const auto instance = New();
    const char claimed = instance->Claim() ? '1' : '0';
    if (write(ready[1], &claimed, 1) != 1) return 1;
    pause();
    return 0;
  });
  char claimed = 0;
  ASSERT_EQ(read(ready[0], &claimed, 1), 1);
  EXPECT_EQ(claimed, '1');
  EXPECT_FALSE(New()->Claim());
  kill(other.Pid(), SIGKILL);
  other.Wait();
  EXPECT_TRUE(New()->Claim());
  close(ready[0]);
  close(ready[1]);
}

TEST_F(SingleInstanceTest, AnUnusableFolderKeepsNobodyFromStarting) {
  std::filesystem::create_directory_symlink(folder_.path().toStdString(), path_.parent_path());
  EXPECT_TRUE(New()->Claim());
  EXPECT_TRUE(New()->Claim());
}

TEST(SessionDirectory, IsClosedToOthers) {
  const QTemporaryDir folder;
  const std::filesystem::path path = folder.path().toStdString() + "/orvane/session-1";
  std::filesystem::create_directories(path);
  ASSERT_EQ(chmod(path.c_str(), 0777), 0);
  EXPECT_TRUE(SessionDirectory::Open(path));
  EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms::owner_all);

  ASSERT_EQ(chmod(path.parent_path().c_str(), 0777), 0);
  EXPECT_FALSE(SessionDirectory::Open(path)) << "anybody could replace it";
}

TEST(SessionDirectory, RefusesAFolderOfAnotherUser) {
  if (geteuid() != 0) GTEST_SKIP() << "changes the owner, which needs root";
  const QTemporaryDir folder;
  const std::filesystem::path path = folder.path().toStdString() + "/orvane/session-1";
  std::filesystem::create_directories(path);
  for (const auto& foreign : {path, path.parent_path()}) {
    ASSERT_EQ(chown(foreign.c_str(), kNobody, kNobody), 0);
    EXPECT_FALSE(SessionDirectory::Open(path)) << foreign;
    ASSERT_EQ(chown(foreign.c_str(), 0, 0), 0);
  }
  EXPECT_TRUE(SessionDirectory::Open(path));
}

}  // namespace
}  // namespace orvane
