#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <string>
#include <vector>

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
  std::unique_ptr<HostChannel> Hooked(const std::string& caption,
                                      HostChannel::CopyDataHandler handler = {}) {
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

TEST_P(HostChannelContract, CutsLongCaptionsBetweenCharacters) {
  std::string shown;
  for (int i = 0; i < 255; ++i) shown += "ü";
  const auto window = Hooked(shown + "üüü");
  EXPECT_EQ(Captions(), Strings{shown});
}

TEST_P(HostChannelContract, DeliversRecordsAsTheyAre) {
  const CopyData records[] = {
      {3, 6, std::string("TX:17\0", 6)},       {0xFFFFFFFF, 0, ""},
      {3, 0x80000000U, "TX:kein Ende"},        {3, 2, "\xFF\xFE\n"},
      {3, 255, std::string(255, 'x')},         {3, 256, std::string(256, 'x')},
      {3, 1 << 20, std::string(1 << 20, 'x')},
  };
  std::vector<CopyData> received;
  const auto receiver =
      Hooked("receiver", [&](const CopyData& data, const HostChannel::Handled& handled) {
        received.push_back(data);
        handled();
      });
  const auto sender = Hooked("sender");
  for (const CopyData& record : records) {
    SCOPED_TRACE(record.bytes.size());
    received.clear();
    EXPECT_TRUE(sender->SendCopyData(Peer("receiver"), record));
    ASSERT_EQ(received.size(), 1U);
    EXPECT_EQ(received[0].tag, record.tag);
    EXPECT_EQ(received[0].byteCount, record.byteCount);
    EXPECT_EQ(received[0].bytes, record.bytes.substr(0, kCopyDataBufferBytes));
  }
}

TEST_P(HostChannelContract, TellsWhenNobodyHandledIt) {
  auto silent = Hooked("silent", [](const CopyData&, const HostChannel::Handled&) {});
  const auto sender = new_();
  const PeerWindow peer = Peer("silent");
  EXPECT_FALSE(sender->SendCopyData(peer, {3, 0, ""}));
  EXPECT_FALSE(sender->SendCopyData({}, {3, 0, ""}));
  silent.reset();
  EXPECT_FALSE(sender->SendCopyData(peer, {3, 0, ""}));
  sender->BringToFront(peer);
}

TEST_P(HostChannelContract, HandlesWhatArrivesWhileItWaits) {
  std::string log;
  std::unique_ptr<HostChannel> a;
  std::unique_ptr<HostChannel> b;
  b = Hooked("b", [&](const CopyData&, const HostChannel::Handled& handled) {
    log += "b(";
    log += b->SendCopyData(Peer("a"), {3, 0, ""}) ? ")" : "lost";
    handled();
  });
  a = Hooked("a", [&](const CopyData&, const HostChannel::Handled& handled) {
    log += "a";
    handled();
  });
  EXPECT_TRUE(a->SendCopyData(Peer("b"), {3, 0, ""}));
  EXPECT_EQ(log, "b(a)");
}

TEST_P(HostChannelContract, AHandlerMayEndItsWindow) {
  std::unique_ptr<HostChannel> receiver;
  receiver = Hooked("receiver", [&](const CopyData&, const HostChannel::Handled& handled) {
    receiver.reset();
    EXPECT_EQ(Captions(), Strings());
    handled();
  });
  EXPECT_TRUE(new_()->SendCopyData(Peer("receiver"), {3, 0, ""}));
}

TEST_P(HostChannelContract, BringsAPeerToTheFront) {
  const auto one = Hooked("one");
  const auto two = Hooked("two");
  two->BringToFront(Peer("one"));
  EXPECT_TRUE(RunUntil([&] { return front_ == "one"; }));
}

INSTANTIATE_TEST_SUITE_P(Socket, HostChannelContract, testing::Values(&MakeSocketDesktop));
INSTANTIATE_TEST_SUITE_P(Fake, HostChannelContract, testing::Values(&MakeFakeDesktop));

}  // namespace
}  // namespace orvane
