#include "platform/channel/windows/message_host_channel.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/channel/windows/native_window.h"
#include "platform/channel/windows/other_process.h"

namespace orvane {
namespace {

using std::chrono::milliseconds;
using Handled = HostChannel::Handled;

class MessageHostChannelTest : public testing::Test {
 protected:
  // The windows whose caption begins with that text.
  std::vector<PeerWindow> Find(const std::string& beginning) {
    auto windows = channel_.Windows();
    std::erase_if(windows, [&](const auto& w) { return !w.caption.starts_with(beginning); });
    return windows;
  }
  bool Send(const std::string& peer, const std::string& bytes) {
    const CopyData data{3, static_cast<std::uint32_t>(bytes.size()), bytes};
    const auto windows = Find(peer);
    return !windows.empty() && channel_.SendCopyData(windows.front(), data);
  }

  MessageHostChannel channel_{milliseconds(60'000)};
};

// The other process: answers each record with another one before it has handled it, and says what
// it got.
TEST_F(MessageHostChannelTest, DISABLED_Answers) {
  const NativeWindow window("peer äöü");
  bool ended = false;
  channel_.Hook(
      window.Handle(), "",
      [&](const CopyData& data, const Handled& handled) {
        Say(std::to_string(data.tag) + " " + std::to_string(data.byteCount) + " " + data.bytes);
        Send(OwnTask(), "re " + data.bytes);
        ended = data.bytes == "end";
        handled();
      },
      {});
  Say("ready");
  RunUntil([&] { return ended; });
  channel_.Unhook();
}

TEST_F(MessageHostChannelTest, TwoProcessesTalkInBothDirections) {
  const NativeWindow window("own window");
  std::string log;
  channel_.Hook(window.Handle(), "",
                [&](const CopyData& data, const Handled& handled) {
                  log += data.bytes + "|";
                  handled();
                },
                {});
  OtherProcess other("MessageHostChannelTest.DISABLED_Answers", "own window");
  ASSERT_TRUE(other.Said("ready"));
  for (const std::string text : {"TX:17~Dial~1|030 12 34", "end"}) {
    EXPECT_TRUE(Send("peer äöü", text));
    EXPECT_TRUE(other.Said("3 " + std::to_string(text.size()) + " " + text));
  }
  EXPECT_EQ(log, "re TX:17~Dial~1|030 12 34|re end|") << "handled while the answer was awaited";
  EXPECT_TRUE(other.Ended());
  EXPECT_TRUE(Find("peer").empty());
}

TEST_F(MessageHostChannelTest, DISABLED_Hangs) {
  const NativeWindow window("hanging");
  Say("ready");
  Sleep(INFINITE);
}

TEST_F(MessageHostChannelTest, GivesUpOnAPeerThatHangsOrDies) {
  OtherProcess other("MessageHostChannelTest.DISABLED_Hangs");
  ASSERT_TRUE(other.Said("ready"));
  const PeerWindow peer = Find("hanging").at(0);
  EXPECT_FALSE(MessageHostChannel(milliseconds(50)).SendCopyData(peer, {3, 0, ""}));
  channel_.BringToFront(peer);
  other.Kill();
  EXPECT_FALSE(channel_.SendCopyData(peer, {3, 0, ""}));
  EXPECT_TRUE(Find("hanging").empty());
}

TEST_F(MessageHostChannelTest, TellsOwnedWindowsFromOthers) {
  const NativeWindow owner("own-er"), owned("own-ed", owner.Get());
  for (const PeerWindow& window : Find("own-")) {
    EXPECT_EQ(window.hasParent, window.id == owned.Handle());
  }
  EXPECT_EQ(Find("own-").size(), 2U);
  const NativeWindow longName("n" + std::string(300, 'n'));
  EXPECT_EQ(Find("nnn").at(0).caption, std::string(255, 'n'));
}

TEST_F(MessageHostChannelTest, BringsTheOpenBoxOfAWindowToTheFront) {
  const NativeWindow window("window"), box("box", window.Get()), other("other");
  for (const auto* shown : {&window, &box, &other}) shown->Show();
  SetForegroundWindow(box.Get());
  SetForegroundWindow(other.Get());
  channel_.BringToFront(Find("window").at(0));
  EXPECT_TRUE(box.InFront());
  SetForegroundWindow(other.Get());
  ShowWindow(box.Get(), SW_HIDE);
  ShowWindow(window.Get(), SW_HIDE);
  channel_.BringToFront(Find("window").at(0));
  EXPECT_TRUE(other.InFront()) << "a hidden window does not take the focus";
}

}  // namespace
}  // namespace orvane
