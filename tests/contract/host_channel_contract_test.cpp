#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "contract/event_wait.h"
#include "fakes/fake_channel.h"
#include "platform/linux/socket_host_channel.h"

namespace orvane {
namespace {

// Makes channels of one desktop.
using ChannelFactory = std::function<std::unique_ptr<HostChannel>()>;

ChannelFactory MakeSocketDesktop() {
  const auto folder = std::make_shared<QTemporaryDir>();
  const auto session = std::make_shared<SocketSession>();
  session->folder = folder->path().toStdString() + "/session";
  session->answerWait = std::chrono::milliseconds(200);
  return [folder, session] { return std::make_unique<SocketHostChannel>(session); };
}

ChannelFactory MakeFakeDesktop() {
  const auto desktop = std::make_shared<FakeDesktop>();
  return [desktop] { return std::make_unique<FakeChannel>(desktop); };
}

class HostChannelContract : public testing::TestWithParam<ChannelFactory (*)()> {
 protected:
  using Channel = std::unique_ptr<HostChannel>;
  Channel Hooked(const std::string& caption, HostChannel::CopyDataHandler handler = {}) {
    auto channel = new_();
    channel->Hook(1, caption, std::move(handler), [this, caption] { front_ += caption; });
    return channel;
  }
  std::vector<std::string> Captions() {
    std::vector<std::string> captions;
    for (const PeerWindow& window : new_()->Windows()) {
      EXPECT_FALSE(window.hasParent);
      captions.push_back(window.caption);
    }
    return captions;
  }
  bool Send(const std::string& caption, const CopyData& data = {3, 0, ""}) {
    return new_()->SendCopyData(Peer(caption), data);
  }
  PeerWindow Peer(const std::string& caption) {
    for (const PeerWindow& window : new_()->Windows()) {
      if (window.caption == caption) return window;
    }
    return {};
  }

  ChannelFactory new_ = GetParam()();
  std::string front_;
};

using Strings = std::vector<std::string>;
using Handled = HostChannel::Handled;

TEST_P(HostChannelContract, ListsTheNewestWindowFirst) {
  EXPECT_EQ(Captions(), Strings());
  const auto host = Hooked("TALMIX_TRAY18 Demo");
  auto dialer = Hooked("TALMIX_BRISKO Wähler");
  EXPECT_EQ(Captions(), (Strings{"TALMIX_BRISKO Wähler", "TALMIX_TRAY18 Demo"}));
  dialer->Unhook();
  EXPECT_EQ(Captions(), Strings{"TALMIX_TRAY18 Demo"});
  dialer->Hook(1, "again", {}, {});
  dialer->Hook(2, "second call", {}, {});
  EXPECT_EQ(Captions(), (Strings{"again", "TALMIX_TRAY18 Demo"}));
  dialer.reset();
  EXPECT_EQ(Captions(), Strings{"TALMIX_TRAY18 Demo"});
}

TEST_P(HostChannelContract, DeliversRecordsAsTheyAre) {
  CopyData received;
  const auto receiver = Hooked("receiver", [&](const CopyData& data, const Handled& handled) {
    received = data;
    handled();
  });
  for (const CopyData& record :
       {CopyData{3, 6, std::string("TX:17\0", 6)}, CopyData{0xFFFFFFFF, 0, ""},
        CopyData{3, 0x80000000U, "TX:kein Ende"}, CopyData{3, 2, "\xFF\xFE\n"},
        CopyData{3, 256, std::string(256, 'x')}, CopyData{3, 1, std::string(1 << 20, 'x')}}) {
    SCOPED_TRACE(record.bytes.size());
    EXPECT_TRUE(Send("receiver", record));
    EXPECT_EQ(received.tag, record.tag);
    EXPECT_EQ(received.byteCount, record.byteCount);
    EXPECT_EQ(received.bytes, record.bytes.substr(0, kCopyDataBufferBytes));
  }
}

TEST_P(HostChannelContract, TellsWhenNobodyHandledIt) {
  auto silent = Hooked("silent", [](const CopyData&, const Handled&) {});
  const PeerWindow peer = Peer("silent");
  EXPECT_FALSE(Send("silent"));
  EXPECT_FALSE(Send("nobody"));
  silent.reset();
  EXPECT_FALSE(new_()->SendCopyData(peer, {3, 0, ""}));
  new_()->BringToFront(peer);
}

TEST_P(HostChannelContract, HandlesWhatArrivesWhileItWaits) {
  std::string log;
  const Channel b = Hooked("b", [&](const CopyData&, const Handled& handled) {
    log += "b(";
    log += Send("a") ? ")" : "lost";
    handled();
  });
  const Channel a = Hooked("a", [&](const CopyData&, const Handled& handled) {
    log += "a";
    handled();
  });
  EXPECT_TRUE(a->SendCopyData(Peer("b"), {3, 0, ""}));
  EXPECT_EQ(log, "b(a)");
}

TEST_P(HostChannelContract, AHandlerMayEndItsWindow) {
  Channel receiver;
  receiver = Hooked("receiver", [&](const CopyData&, const Handled& handled) {
    receiver.reset();
    EXPECT_EQ(Captions(), Strings());
    handled();
  });
  EXPECT_TRUE(Send("receiver"));
}

TEST_P(HostChannelContract, BringsAPeerToTheFront) {
  const auto one = Hooked("one"), two = Hooked("two");
  two->BringToFront(Peer("one"));
  EXPECT_TRUE(RunUntil([&] { return front_ == "one"; }));
}

INSTANTIATE_TEST_SUITE_P(Socket, HostChannelContract, testing::Values(&MakeSocketDesktop));
INSTANTIATE_TEST_SUITE_P(Fake, HostChannelContract, testing::Values(&MakeFakeDesktop));

}  // namespace
}  // namespace orvane
