#include "platform/channel/linux/socket_host_channel.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include "contract/event_wait.h"
#include "fakes/child_process.h"
#include "fakes/temporary_folder.h"
#include "platform/system/linux/file_descriptor.h"

namespace orvane {
namespace {

using std::chrono::milliseconds;
using Say = ChildProcess::Say;
const CopyData kEmpty{3, 0, ""};

class SocketHostChannelTest : public testing::Test {
 protected:
  SocketHostChannelTest() { session_->folder = folder_; }

  std::unique_ptr<SocketHostChannel> Hooked(const std::string& caption,
                                            HostChannel::CopyDataHandler handler) {
    auto channel = std::make_unique<SocketHostChannel>(session_);
    channel->Hook(1, caption, std::move(handler), {});
    return channel;
  }
  // A window that counts its messages and handles them at once.
  std::unique_ptr<SocketHostChannel> Counting(const std::string& caption) {
    return Hooked(caption, [this](const CopyData&, const HostChannel::Handled& handled) {
      ++handled_;
      handled();
    });
  }
  // Waits until another process has hooked that window. No events run meanwhile.
  PeerWindow WaitFor(const std::string& caption) const {
    for (;; usleep(1000)) {
      for (const PeerWindow& window : SocketHostChannel(session_).Windows()) {
        if (window.caption == caption) return window;
      }
    }
  }
  std::string SocketPath() const {
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
      if (entry.path().extension() == ".sock") return entry.path().string();
    }
    return {};
  }
  // Any client's connection to the one window.
  FileDescriptor Connect(int flags = SOCK_NONBLOCK) const {
    FileDescriptor client(socket(AF_UNIX, SOCK_STREAM | flags, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    SocketPath().copy(static_cast<char*>(address.sun_path), sizeof address.sun_path - 1);
    const auto* general = reinterpret_cast<const sockaddr*>(&address);
    if (connect(client.Get(), general, sizeof address) != 0) client.Reset();
    return client;
  }
  // What a client sees that sends those bytes: 1 when they were handled.
  int SendBytes(std::string_view bytes) const {
    const FileDescriptor connection = Connect(0);
    while (!bytes.empty()) {
      const ssize_t sent = send(connection.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
      if (sent < 0) break;
      bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    shutdown(connection.Get(), SHUT_WR);
    char answer = 0;
    return recv(connection.Get(), &answer, 1, 0) == 1 ? 1 : 0;
  }
  // Runs events until the other process has ended.
  static int CodeOf(ChildProcess&& child) {
    EXPECT_TRUE(RunUntil([&] { return child.Finished(); }));
    return child.Wait();
  }
  // Whether a message from another process still gets through.
  bool StillReceives() {
    return CodeOf(ChildProcess([this](const Say&) {
             // A session of its own: the inherited one would receive for the parent's window.
             const auto session = std::make_shared<SocketSession>();
             session->folder = folder_;
             SocketHostChannel channel(session);
             return channel.SendCopyData(channel.Windows().at(0), kEmpty) ? 0 : 1;
           })) == 0;
  }

  TemporaryFolder temporary_;
  std::filesystem::path folder_ = temporary_ / "session";
  std::shared_ptr<SocketSession> session_ = std::make_shared<SocketSession>();
  int handled_ = 0;
};

TEST_F(SocketHostChannelTest, APeerThatDiesLetsTheSenderGoOn) {
  session_->answerWait = milliseconds(60'000);
  ChildProcess peer([this](const Say&) {
    const auto channel = Hooked("peer", [](const CopyData&, const auto&) { _exit(0); });
    return RunUntil([] { return false; }) ? 1 : 2;
  });
  EXPECT_FALSE(SocketHostChannel(session_).SendCopyData(WaitFor("peer"), kEmpty));
  EXPECT_EQ(peer.Wait(), 0);
  EXPECT_TRUE(SocketHostChannel(session_).Windows().empty());
  EXPECT_TRUE(std::filesystem::is_empty(folder_)) << "what it left is removed";
}

TEST_F(SocketHostChannelTest, CutsLongCaptionsBetweenCharacters) {
  std::string shown;
  for (int i = 0; i < 255; ++i) shown += "ü";
  const auto window = Counting(shown + "üüü");
  EXPECT_EQ(window->Windows().at(0).caption, shown);
}

TEST_F(SocketHostChannelTest, GivesUpOnAPeerThatHangs) {
  session_->answerWait = milliseconds(100);
  const ChildProcess peer([this](const Say&) {
    const auto channel = Counting("peer");
    return pause();
  });
  const PeerWindow window = WaitFor("peer");
  // Small and large: the second does not fit the connection.
  for (const std::size_t size : {10UL, 10'000'000UL}) {
    QElapsedTimer waited;
    waited.start();
    EXPECT_FALSE(SocketHostChannel(session_).SendCopyData(window, {3, 0, std::string(size, 'x')}));
    EXPECT_GE(waited.elapsed(), 100);
  }
}

TEST_F(SocketHostChannelTest, SurvivesWhateverClientsSend) {
  const auto header = [](std::uint32_t kind, std::uint32_t tag, std::uint32_t count) {
    const std::uint32_t numbers[] = {kind, tag, count};
    return std::string(reinterpret_cast<const char*>(numbers), sizeof numbers);
  };
  const std::tuple<const char*, std::string, int> kCases[] = {
      {"nothing", "", 0},
      {"half a header", header(1, 3, 6).substr(0, 11), 0},
      {"unknown kind", header(7, 3, 6) + "TX:17", 0},
      {"noise", "GET / HTTP/1.1\r\n\r\n\xFF\xFE", 0},
      {"no bytes, many claimed", header(1, 3, 0x80000000U), 1},
      {"no zero byte, none claimed", header(1, 3, 0) + "TX:17", 1},
      {"a megabyte", header(1, 3, 1 << 20) + std::string(1 << 20, 'x'), 1},
      {"more than anybody sends", header(1, 3, 1) + std::string(9 << 20, 'x'), 0}};
  const auto window = Counting("window");
  for (const auto& [name, bytes, handled] : kCases) {
    SCOPED_TRACE(name);
    handled_ = 0;
    ChildProcess client([&](const Say&) { return SendBytes(bytes); });
    ASSERT_TRUE(StillReceives());
    EXPECT_EQ(CodeOf(std::move(client)), handled);
    EXPECT_EQ(handled_, handled + 1);
  }
}

TEST_F(SocketHostChannelTest, ClientsThatNeverSendAreDropped) {
  session_->messageWait = milliseconds(30);
  const auto window = Counting("window");
  const FileDescriptor silent = Connect();
  ASSERT_TRUE(silent.Valid());
  EXPECT_TRUE(StillReceives()) << "nobody waits for the silent one";
  char byte = 0;
  EXPECT_TRUE(RunUntil([&] { return recv(silent.Get(), &byte, 1, 0) == 0; }));
}

TEST_F(SocketHostChannelTest, OtherUsersCanNeitherSendNorListen) {
  if (geteuid() != 0) GTEST_SKIP() << "changes the user, which needs root";
  const auto window = Counting("window");
  const auto asNobody = [](const std::function<int()>& body) {
    return CodeOf(ChildProcess([&](const Say&) { return setuid(kNobody) == 0 ? body() : 99; }));
  };
  const std::string socket = SocketPath();
  chmod(temporary_.Path().c_str(), 0755);
  chmod(socket.c_str(), 0777);
  EXPECT_EQ(asNobody([&] { return access(socket.c_str(), F_OK); }), 255);
  // Not even with the folder open to all.
  chmod(folder_.c_str(), 0777);
  const std::string record("\1\0\0\0\3\0\0\0\0\0\0\0", 12);
  EXPECT_EQ(asNobody([&] { return Connect().Valid() ? SendBytes(record) : 2; }), 0);
  EXPECT_EQ(handled_, 0);
}

}  // namespace
}  // namespace orvane
