#include <gtest/gtest.h>

#include <set>

#include "contract/event_wait.h"
#include "contract/system_implementations.h"
#include "fakes/fake_channel.h"

namespace orvane {
namespace {

class FakeChannelDesktop : public ChannelDesktop {
 public:
  std::unique_ptr<HostChannel> NewChannel() override {
    return std::make_unique<FakeChannel>(desktop_);
  }

 private:
  std::shared_ptr<FakeDesktop> desktop_ = std::make_shared<FakeDesktop>();
};

std::unique_ptr<ChannelDesktop> MakeFakeDesktop() {
  return std::make_unique<FakeChannelDesktop>();
}

// A window that receives; unhooked and closed when the object dies.
struct Receiver {
  std::unique_ptr<TestWindow> window;
  std::unique_ptr<HostChannel> channel;
};

class HostChannelContract : public testing::TestWithParam<std::unique_ptr<ChannelDesktop> (*)()> {
 protected:
  std::unique_ptr<Receiver> Hooked(const std::string& caption,
                                   HostChannel::CopyDataHandler handler = {}) {
    captions_.insert(caption);
    auto made = std::make_unique<Receiver>();
    made->window = desktop_->NewWindow(caption);
    made->channel = desktop_->NewChannel();
    made->channel->Hook(made->window->Handle(), caption, std::move(handler),
                        [this, caption] { front_ += caption; });
    return made;
  }
  // Those of this test's windows; the desktop may hold others.
  std::vector<std::string> Captions() {
    std::vector<std::string> captions;
    for (const PeerWindow& window : desktop_->NewChannel()->Windows()) {
      if (captions_.count(window.caption) == 0) continue;
      EXPECT_FALSE(window.hasParent);
      captions.push_back(window.caption);
    }
    return captions;
  }
  bool Send(const std::string& caption, const CopyData& data = {3, 0, ""}) {
    return desktop_->NewChannel()->SendCopyData(Peer(caption), data);
  }
  PeerWindow Peer(const std::string& caption) {
    for (const PeerWindow& window : desktop_->NewChannel()->Windows()) {
      if (window.caption == caption) return window;
    }
    return {};
  }

  std::unique_ptr<ChannelDesktop> desktop_ = GetParam()();
  std::set<std::string> captions_;
  std::string front_;
};

using Strings = std::vector<std::string>;
using Handled = HostChannel::Handled;

TEST_P(HostChannelContract, ListsTheNewestWindowFirst) {
  EXPECT_EQ(Captions(), Strings());
  const auto host = Hooked("TALMIX_TRAY18 Demo");
  auto dialer = Hooked("TALMIX_BRISKO Wähler");
  EXPECT_EQ(Captions(), (Strings{"TALMIX_BRISKO Wähler", "TALMIX_TRAY18 Demo"}));
  dialer.reset();
  EXPECT_EQ(Captions(), Strings{"TALMIX_TRAY18 Demo"});
  dialer = Hooked("again");
  EXPECT_EQ(Captions(), (Strings{"again", "TALMIX_TRAY18 Demo"}));
}

TEST_P(HostChannelContract, HooksOnceUntilItIsUnhooked) {
  std::string log;
  const auto logging = [&log](char name) {
    return [&log, name](const CopyData&, const Handled& handled) {
      log += name;
      handled();
    };
  };
  const auto receiver = Hooked("receiver", logging('a'));
  const auto hook = [&](char name) {
    receiver->channel->Hook(receiver->window->Handle(), "receiver", logging(name), {});
  };
  hook('b');
  EXPECT_TRUE(Send("receiver"));
  receiver->channel->Unhook();
  Send("receiver");
  hook('c');
  EXPECT_TRUE(Send("receiver"));
  EXPECT_EQ(log, "ac");
}

TEST_P(HostChannelContract, DeliversRecordsAsTheyAre) {
  CopyData received;
  const auto receiver = Hooked("receiver", [&](const CopyData& data, const Handled& handled) {
    received = data;
    handled();
  });
  std::vector<CopyData> records = {{3, 6, std::string("TX:17\0", 6)},
                                   {0xFFFFFFFF, 0, ""},
                                   {3, 3, "\xFF\xFE\n"},
                                   {3, 256, std::string(256, 'x')},
                                   {3, 1 << 20, std::string(1 << 20, 'x')}};
  if (desktop_->HasOwnMessages()) {
    records.insert(records.end(), {{3, 0x80000000U, "TX:kein Ende"}, {3, 1, "TX:17"}});
  }
  for (const CopyData& record : records) {
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
  EXPECT_EQ(Send("silent"), !desktop_->HasOwnMessages());
  EXPECT_FALSE(Send("nobody"));
  silent.reset();
  const auto channel = desktop_->NewChannel();
  EXPECT_FALSE(channel->SendCopyData(peer, {3, 0, ""}));
  channel->BringToFront(peer);
}

TEST_P(HostChannelContract, HandlesWhatArrivesWhileItWaits) {
  std::string log;
  const auto b = Hooked("b", [&](const CopyData&, const Handled& handled) {
    log += "b(";
    log += Send("a") ? ")" : "lost";
    handled();
  });
  const auto a = Hooked("a", [&](const CopyData&, const Handled& handled) {
    log += "a";
    handled();
  });
  EXPECT_TRUE(a->channel->SendCopyData(Peer("b"), {3, 0, ""}));
  EXPECT_EQ(log, "b(a)");
}

TEST_P(HostChannelContract, AHandlerMayEndItsWindow) {
  std::unique_ptr<Receiver> receiver;
  receiver = Hooked("receiver", [&](const CopyData&, const Handled& handled) {
    receiver.reset();
    EXPECT_EQ(Captions(), Strings());
    handled();
  });
  EXPECT_TRUE(Send("receiver"));
}

TEST_P(HostChannelContract, BringsAPeerToTheFront) {
  const auto one = Hooked("one"), two = Hooked("two");
  two->channel->BringToFront(Peer("one"));
  EXPECT_TRUE(RunUntil([&] { return front_ == "one" || one->window->InFront(); }));
}

INSTANTIATE_TEST_SUITE_P(System, HostChannelContract, testing::Values(&MakeSystemDesktop));
INSTANTIATE_TEST_SUITE_P(Fake, HostChannelContract, testing::Values(&MakeFakeDesktop));

}  // namespace
}  // namespace orvane
