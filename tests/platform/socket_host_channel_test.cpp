#include "platform/linux/socket_host_channel.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <QTemporaryDir>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <deque>
#include <filesystem>
#include <memory>
#include <string>

#include "contract/child_process.h"
#include "contract/event_wait.h"
#include "platform/linux/file_descriptor.h"

namespace orvane {
namespace {

using std::chrono::milliseconds;
using SteadyClock = std::chrono::steady_clock;

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
    while (true) {
      for (const PeerWindow& window : SocketHostChannel(session_).Windows()) {
        if (window.caption == caption) return window;
      }
      usleep(1000);
    }
  }
  std::string SocketPath() const {
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
      if (entry.path().extension() == ".sock") return entry.path().string();
    }
    return {};
  }
  // Any client's connection to the one window.
  FileDescriptor Connect() const {
    FileDescriptor client(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    SocketPath().copy(static_cast<char*>(address.sun_path), sizeof address.sun_path - 1);
    const auto* general = reinterpret_cast<const sockaddr*>(&address);
    if (connect(client.Get(), general, sizeof address) != 0) client.Reset();
    return client;
  }
  // Whether a message from another process still gets through.
  bool StillReceives() {
    ChildProcess sender([this] {
      // A session of its own: the inherited one would receive for the parent's window.
      const auto session = std::make_shared<SocketSession>();
      session->folder = folder_;
      SocketHostChannel channel(session);
      return channel.SendCopyData(channel.Windows().at(0), {3, 0, ""}) ? 0 : 1;
    });
    return RunUntil([&] { return sender.Finished(); }) && sender.Wait() == 0;
  }

  QTemporaryDir temporary_;
  std::filesystem::path folder_ = temporary_.path().toStdString() + "/session";
  std::shared_ptr<SocketSession> session_ = std::make_shared<SocketSession>();
  int handled_ = 0;
};

TEST_F(SocketHostChannelTest, TwoProcessesMaySendToEachOther) {
  const auto talk = [this](const std::string& own, const std::string& other) {
    const auto channel = Counting(own);
    const bool sent = channel->SendCopyData(WaitFor(other), {3, 0, ""});
    return sent && RunUntil([&] { return handled_ == 1; }) ? 0 : 1;
  };
  ChildProcess child([&] { return talk("child", "parent"); });
  EXPECT_EQ(talk("parent", "child"), 0);
  EXPECT_EQ(child.Wait(), 0);
}

TEST_F(SocketHostChannelTest, APeerThatDiesLetsTheSenderGoOn) {
  session_->answerWait = milliseconds(60'000);
  ChildProcess peer([this] {
    const auto channel = Hooked("peer", [](const CopyData&, const auto&) { _exit(0); });
    RunUntil([] { return false; });
    return 1;
  });
  EXPECT_FALSE(SocketHostChannel(session_).SendCopyData(WaitFor("peer"), {3, 0, ""}));
  EXPECT_EQ(peer.Wait(), 0);
  EXPECT_TRUE(SocketHostChannel(session_).Windows().empty());
  EXPECT_TRUE(std::filesystem::is_empty(folder_)) << "what it left is removed";
}

TEST_F(SocketHostChannelTest, GivesUpOnAPeerThatHangs) {
  session_->answerWait = milliseconds(100);
  ChildProcess peer([this] {
    const auto channel = Counting("peer");
    pause();
    return 0;
  });
  const PeerWindow window = WaitFor("peer");
  // Small and large: the second does not fit the connection.
  for (const std::size_t size : {10UL, 10'000'000UL}) {
    const auto start = SteadyClock::now();
    EXPECT_FALSE(SocketHostChannel(session_).SendCopyData(window, {3, 0, std::string(size, 'x')}));
    EXPECT_GE(SteadyClock::now() - start, milliseconds(100));
  }
  kill(peer.Pid(), SIGKILL);
}

TEST_F(SocketHostChannelTest, SurvivesWhateverClientsSend) {
  const auto header = [](std::uint32_t kind, std::uint32_t tag, std::uint32_t count) {
    std::string bytes(12, '\0');
    const std::uint32_t numbers[] = {kind, tag, count};
    std::memcpy(bytes.data(), numbers, sizeof numbers);
    return bytes;
  };
  struct Case {
    const char* name;
    std::string bytes;
    int handled;
  };
  const Case cases[] = {
      {"nothing", "", 0},
      {"half a header", header(1, 3, 6).substr(0, 11), 0},
      {"unknown kind", header(7, 3, 6) + "TX:17", 0},
      {"noise", "GET / HTTP/1.1\r\n\r\n\xFF\xFE", 0},
      {"no bytes, many claimed", header(1, 3, 0x80000000U), 1},
      {"no zero byte, none claimed", header(1, 3, 0) + "TX:17", 1},
      {"a megabyte", header(1, 3, 1 << 20) + std::string(1 << 20, 'x'), 1},
      {"more than anybody sends", header(1, 3, 1) + std::string(9 << 20, 'x'), 0},
  };
  const auto window = Counting("window");
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    handled_ = 0;
    ChildProcess client([&] {
      const FileDescriptor connection = Connect();
      fcntl(connection.Get(), F_SETFL, 0);
      std::string_view left = c.bytes;
      while (!left.empty()) {
        const ssize_t sent = send(connection.Get(), left.data(), left.size(), MSG_NOSIGNAL);
        if (sent < 0) break;
        left.remove_prefix(static_cast<std::size_t>(sent));
      }
      shutdown(connection.Get(), SHUT_WR);
      char answer = 0;
      return recv(connection.Get(), &answer, 1, 0) == 1 ? 1 : 0;
    });
    ASSERT_TRUE(StillReceives());
    EXPECT_TRUE(RunUntil([&] { return client.Finished(); }));
    EXPECT_EQ(client.Wait(), c.handled);
    EXPECT_EQ(handled_, c.handled + 1);
  }
}

TEST_F(SocketHostChannelTest, ClientsThatNeverSendAreDropped) {
  session_->messageWait = milliseconds(30);
  const auto window = Counting("window");
  const FileDescriptor silent = Connect();
  ASSERT_TRUE(silent.Valid());
  EXPECT_TRUE(StillReceives()) << "nobody waits for the silent one";
  EXPECT_TRUE(RunUntil([&] {
    char byte = 0;
    return recv(silent.Get(), &byte, 1, MSG_DONTWAIT) == 0;
  }));
}

TEST_F(SocketHostChannelTest, ThousandsOfConnectionsDoNotShutOthersOut) {
  const auto window = Counting("window");
  std::deque<FileDescriptor> clients;
  for (int i = 0; i < 3000; ++i) {
    clients.push_back(Connect());
    if (clients.size() > 300) clients.pop_front();
    if (i % 50 == 0) RunPending();
  }
  EXPECT_TRUE(StillReceives());
}

TEST_F(SocketHostChannelTest, OtherUsersCanNeitherSendNorListen) {
  if (geteuid() != 0) GTEST_SKIP() << "changes the user, which needs root";
  const auto window = Counting("window");
  const auto asNobody = [](auto&& body) {
    return ChildProcess([&] { return setuid(kNobody) == 0 ? body() : 99; });
  };
  const auto connectAndSend = [this] {
    const FileDescriptor connection = Connect();
    if (!connection.Valid()) return 1;
    const std::string record("\1\0\0\0\3\0\0\0\0\0\0\0", 12);
    send(connection.Get(), record.data(), record.size(), MSG_NOSIGNAL);
    shutdown(connection.Get(), SHUT_WR);
    fcntl(connection.Get(), F_SETFL, 0);
    char answer = 0;
    return recv(connection.Get(), &answer, 1, 0) == 1 ? 2 : 0;
  };
  const std::string socket = SocketPath();
  chmod(temporary_.path().toLocal8Bit().constData(), 0755);
  chmod(socket.c_str(), 0777);
  EXPECT_EQ(asNobody([&] { return access(socket.c_str(), F_OK) == 0 ? 1 : 0; }).Wait(), 0);
  // Not even with the folder open to all.
  chmod(folder_.c_str(), 0777);
  auto foreign = asNobody(connectAndSend);
  RunUntil([&] { return foreign.Finished(); });
  EXPECT_EQ(foreign.Wait(), 0);
  EXPECT_EQ(handled_, 0);
}

TEST_F(SocketHostChannelTest, AnUnsafeFolderMeansNoPeers) {
  std::filesystem::create_directory(temporary_.path().toStdString() + "/elsewhere");
  std::filesystem::create_directory_symlink(temporary_.path().toStdString() + "/elsewhere",
                                            folder_);
  const auto window = Counting("window");
  EXPECT_TRUE(window->Windows().empty());
  EXPECT_FALSE(window->SendCopyData({1, false, "window"}, {3, 0, ""}));
  EXPECT_TRUE(std::filesystem::is_empty(folder_));
}

}  // namespace
}  // namespace orvane
