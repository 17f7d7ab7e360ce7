#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QByteArray>

#include "fakes/child_process.h"
#include "fakes/temporary_folder.h"
#include "platform/channel/linux/lock_file_instance.h"

namespace orvane {
namespace {

namespace fs = std::filesystem;

class SingleInstanceTest : public testing::Test {
 protected:
  std::unique_ptr<SingleInstance> New() { return std::make_unique<LockFileInstance>(path_); }

  TemporaryFolder folder_;
  fs::path path_ = folder_ / "orvane/session-1";
};

TEST_F(SingleInstanceTest, AProcessThatWasKilledHoldsNothing) {
  ChildProcess other([&](const ChildProcess::Say& say) {
    const auto instance = New();
    say(instance->Claim() ? "claimed" : "refused");
    return pause();
  });
  EXPECT_EQ(other.Line(), "claimed");
  EXPECT_FALSE(New()->Claim());
  other.Kill();
  EXPECT_TRUE(New()->Claim());
}

TEST_F(SingleInstanceTest, AnUnusableFolderKeepsNobodyFromStarting) {
  fs::create_directory_symlink(folder_.Path(), path_.parent_path());
  EXPECT_TRUE(New()->Claim());
  EXPECT_TRUE(New()->Claim());
}

TEST_F(SingleInstanceTest, TheSessionsFolderIsClosedToOthers) {
  fs::create_directories(path_);
  ASSERT_EQ(chmod(path_.c_str(), 0777), 0);
  EXPECT_TRUE(SessionDirectory::Open(path_));
  EXPECT_EQ(fs::status(path_).permissions(), fs::perms::owner_all);
  if (geteuid() == 0) {
    for (const auto& foreign : {path_, path_.parent_path()}) {
      ASSERT_EQ(chown(foreign.c_str(), kNobody, kNobody), 0);
      EXPECT_FALSE(SessionDirectory::Open(path_)) << foreign;
      ASSERT_EQ(chown(foreign.c_str(), 0, 0), 0);
    }
    EXPECT_TRUE(SessionDirectory::Open(path_));
  }
  ASSERT_EQ(chmod(path_.parent_path().c_str(), 0777), 0);
  EXPECT_FALSE(SessionDirectory::Open(path_)) << "anybody could replace it";
}

TEST_F(SingleInstanceTest, ThereIsOneSessionPerUserAndDisplay) {
  const std::string own = folder_.Path().string(), file = folder_.Write("file", "").string();
  const std::string temporary = "/tmp/orvane-" + std::to_string(geteuid());
  for (const auto& [runtime, wayland, display, path] :
       {std::tuple{own, "", ":0.1", own + "/orvane/session-_0"},
        {own, "wayland-1", ":0", own + "/orvane/session-wayland-1"},
        {own, "", "../../x y", own + "/orvane/session-______x_y"},
        {std::string(), "", ":1", temporary + "/session-_1"},
        {file, "", ":1", temporary + "/session-_1"}}) {
    const std::string variables[] = {runtime, wayland, display};
    ChildProcess child([&](const ChildProcess::Say& say) {
      qputenv("XDG_RUNTIME_DIR", variables[0].c_str());
      qputenv("WAYLAND_DISPLAY", variables[1].c_str());
      qputenv("DISPLAY", variables[2].c_str());
      say(SessionDirectory::DefaultPath().string());
      return 0;
    });
    EXPECT_EQ(child.Line(), path);
  }
}

}  // namespace
}  // namespace orvane
