#include "remote/command_channel.h"

#include "fakes/program_fixture.h"
#include "remote/copy_data_text.h"
#include "remote/senders.h"

namespace orvane {
namespace {

class CommandChannelTest : public SessionFixture {
 protected:
  CommandChannelTest() {
    state.host.userNumber = 0;
    commands.HookWindow(1, "TALMIX_BRISKO");
  }
  ~CommandChannelTest() override { commands.UnhookWindow(); }

  // As another program of the session does it.
  bool Receive(const CopyData& data) { return sender.SendCopyData(sender.Windows().front(), data); }
  bool Receive(const std::string& text) { return Receive(MakeCopyData(text)); }

  FakeChannel sender{desktop};
  CommandChannel commands{channel, loop, prompts, supportLog, state, session, queue, panel};
};

TEST_F(CommandChannelTest, AUserNumberAloneShowsTheWindow) {
  EXPECT_TRUE(Receive("TX:5"));
  EXPECT_EQ(state.host.userNumber, 5);
  EXPECT_EQ(state.host.userPath, state.host.dataPath + "User\\5\\");
  EXPECT_TRUE(panel.shown);
  EXPECT_EQ(panel.reloads, 0);
  for (int time = 0; time < 2; ++time) Receive("TX:6");
  EXPECT_EQ(panel.reloads, 1);
}

TEST_F(CommandChannelTest, DialFillsTheWindowAndTheCall) {
  const std::tuple<const char*, const char*, const char*, const char*, bool, std::int32_t,
                   std::int32_t>
      kCases[] = {{"TX:17~Dial~1|030 12 34|Firma GmbH|Frau Müßig|Zentrale|47|12", "030 12 34",
                   "0301234", "Firma GmbH\r\nFrau Müßig\r\n\r\nZentrale", true, 47, 12},
                  {"TX:17~Dial~0|030 1234", "030 1234", "0301234", "\r\n\r\n\r\n", false, 0, 0},
                  {"TX:17~Dial~-1|+49 30 1|F|P|Z|x|9.5", "+49 30 1", "49301", "F\r\nP\r\n\r\nZ",
                   true, 0, 10},
                  {"??:17~Dial~|1|", "1", "1", "\r\n\r\n\r\n", false, 0, 0},
                  {"TX:17~Dial~0|1~Dial~1|2|B", "2", "2", "B\r\n\r\n\r\n", true, 0, 0}};
  for (const auto& [text, number, digits, label, externTicked, addressKey, personKey] : kCases) {
    SCOPED_TRACE(text);
    panel.shown = false;
    EXPECT_TRUE(Receive(text));
    EXPECT_TRUE(panel.shown);
    EXPECT_EQ(panel.numberText, number);
    EXPECT_EQ(session.Call().lastDialedDigits, digits);
    EXPECT_EQ(panel.contactLabel, label);
    EXPECT_EQ(panel.externTicked, externTicked);
    EXPECT_EQ(session.Call().addressKey, addressKey);
    EXPECT_EQ(session.Call().personKey, personKey);
  }
}

TEST_F(CommandChannelTest, DialChangesNothingDuringACallButShows) {
  Receive("TX:17~Dial~0|1|A");
  for (const auto& [during, enabled, number] :
       {std::tuple{true, true, "2"}, {false, false, "2"}, {false, true, ""}}) {
    during ? session.Begin(Session::Way::kModem) : session.Abandon();
    panel.numberEnabled = enabled;
    panel.shown = false;
    Receive("TX:17~Dial~1|" + std::string(number) + "|B");
    EXPECT_EQ(panel.numberText + session.Call().company, "1A");
    EXPECT_TRUE(panel.shown);
  }
}

TEST_F(CommandChannelTest, BadMessagesEndSilently) {
  Receive("TX:17");
  for (const std::string& text :
       {std::string(), std::string("T"), std::string("TX:"), std::string("123456"),
        std::string("TX:17~Dial"), std::string("TX:17~Dial~1"), std::string("TX:99999999999"),
        std::string("TX:17~Dial~0|1|||||99999999999"), std::string("TX:17~Dial~0\0|5", 15)}) {
    SCOPED_TRACE(text);
    panel.shown = false;
    EXPECT_TRUE(Receive(text));
    EXPECT_FALSE(panel.shown);
    EXPECT_EQ(state.host.userNumber, 17);
  }
  EXPECT_TRUE(prompts.boxes.empty());
}

TEST_F(CommandChannelTest, TakesRecordsAsFarAsTheyGo) {
  const std::tuple<const char*, CopyData, std::int32_t> kCases[] = {
      {"foreign tag", {4, 6, std::string("TX:8\0", 5)}, 0},
      {"count 0", {3, 0, std::string("TX:8\0", 5)}, 0},
      {"no zero", {3, 4, "TX:8"}, 8},
      {"count beyond the bytes", {3, 0x80000000U, "TX:9"}, 9},
      {"count below the bytes", {3, 4, "TX:12"}, 1},
      {"text behind the zero", {3, 8, std::string("TX:3\0~~", 7)}, 3},
      {"long", {3, 1'000'000, "TX:4" + std::string(1'000'000, '~')}, 4}};
  for (const auto& [what, data, user] : kCases) {
    Receive("TX:0");
    prompts.boxes.clear();
    Receive(data);
    EXPECT_EQ(state.host.userNumber, user) << what;
  }
  // Of the long text only 255 bytes count: 251 empty fields behind the user's.
  EXPECT_EQ(prompts.boxes.size(), 125U);
}

TEST_F(CommandChannelTest, UnknownCommandsAreNamedOncePerPair) {
  Receive("TX:5~Wahl~x~dial~0|1~Dial~0|77");
  const FakePrompts::Box box{PromptIcon::kExclamation, "Der Schlüsselbefehl existiert nicht!",
                             "Fehler 87117"};
  EXPECT_EQ(prompts.boxes, (std::vector{box, box}));
  EXPECT_EQ(panel.numberText, "77");
}

TEST_F(CommandChannelTest, KillMySelfClosesTheWindowInsteadOfDialling) {
  for (const auto& [text, kills] : {std::pair{"TX:5~Dial~0|KillMySelf|x", true},
                                    {"|KillMySelf", true},
                                    {"TX:5~Dial~0|killmyself|x", false},
                                    {"TX:5~Dial~0|1|KillMySelf", false},
                                    {"KillMySelf", false}}) {
    panel.loaded = true;
    EXPECT_TRUE(Receive(text));
    EXPECT_EQ(panel.loaded, !kills) << text;
  }
}

TEST_F(CommandChannelTest, AMessageBetweenTwoCommandsReplacesTheRest) {
  loop.Post([this] { Receive("TX:17~Dial~1|222|neu"); });
  Receive("TX:17~Dial~0|111|alt~Dial~0|333|alt");
  EXPECT_EQ(panel.numberText + session.Call().company, "222neu");
  // Closing the window between two commands must not bring it up again.
  loop.Post([this] { panel.Unload(); });
  Receive("TX:17~Dial~0|111");
  EXPECT_FALSE(panel.shown);
}

TEST_F(CommandChannelTest, SendersFindTheirPeerByCaption) {
  const std::tuple<const char*, bool, const char*, const char*> kCases[] = {
      {"TALMIX_BRISKO", false, "5<front>", ""},
      {"TALMIX_BRISKO 2", false, "5<front>", ""},
      {"talmix_brisko", false, "", ""},
      {"TALMIX_BRISKO", true, "", ""},
      {"talmix_tray18 Monitor", false, "", "TX:17~TAPI_ReInit~Büro"},
      {"TALMIX_TRAY17", false, "", ""},
      {"", false, "", ""}};
  for (const auto& [caption, hasParent, dialer, host] : kCases) {
    SCOPED_TRACE(caption);
    std::string got;
    desktop->windows = {{PeerWindow{99, hasParent, caption},
                         [&got](const CopyData& data, const HostChannel::Handled& handled) {
                           EXPECT_EQ(data.byteCount, data.bytes.size());
                           got += *CopyDataText(data);
                           handled();
                         },
                         [&got] { got += "<front>"; }}};
    SendToRunningInstance(sender, "5");
    EXPECT_EQ(std::exchange(got, ""), dialer);
    SendToHost(sender, 17, "TAPI_ReInit~Büro");
    EXPECT_EQ(got, host);
  }
}

}  // namespace
}  // namespace orvane
