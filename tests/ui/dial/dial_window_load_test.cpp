#include <QCheckBox>
#include <QScreen>
#include <algorithm>

#include "dial_window_fixture.h"
#include "remote/copy_data_text.h"

namespace orvane {
namespace {

class DialWindowLoad : public DialWindowFixture {
 protected:
  QPoint Fallback() const {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    return {screen.width() - window->width() - 60, 60};
  }
  void SetDialSetting(const std::string& name, const std::string& value) {
    state.host.registry->Write("Dial", name, value);
  }
  void SetDeveloperFlag(const std::string& value) {
    const auto helper = services.newRegistry();
    helper->SetRootKey(kRootCurrentUser);
    helper->SetKeyPath("SOFTWARE\\Nordel");
    helper->Write("", "BriskoDev", value);
  }
  void Send(const std::string& text) {
    for (const PeerWindow& peer : channel.Windows()) {
      channel.SendCopyData(peer, MakeCopyData(text));
    }
  }
};

TEST_F(DialWindowLoad, BuildsTheWindowWithoutShowingIt) {
  window->Load();
  EXPECT_FALSE(window->isVisible());
  EXPECT_TRUE(window->IsLoaded());
  EXPECT_TRUE(state.host.dialWindowRunning);
  EXPECT_TRUE(window->windowTitle().startsWith(QStringLiteral("TALMIX_BRISKO")));
  EXPECT_TRUE(window->windowFlags().testFlag(Qt::FramelessWindowHint));
  EXPECT_EQ(TextOf("lblVer"), "Brisko v" ORVANE_VERSION);
  EXPECT_EQ(TextOf("lblHead"), "Bereit...");
  EXPECT_EQ(TextOf("lblBase_1"), "Bitte wählen Sie...");
  EXPECT_EQ(TextOf("lblBase_2"), "<Bereit>");
  EXPECT_EQ(TextOf("lblBase_3"), "COM1: initialisiert");
  ASSERT_EQ(channel.Windows().size(), 1U);
  EXPECT_TRUE(channel.Windows()[0].caption.starts_with("TALMIX_BRISKO"));
  EXPECT_EQ(chrome->log,
            (std::vector<std::string>{"shape 318x541 20", "shadow", "topmost -1 quietly"}));

  window->Load();
  EXPECT_EQ(chrome->log.size(), 3U);
}

TEST_F(DialWindowLoad, SetsUpTheAreaCodeConnectionWithoutOpeningIt) {
  window->Load();
  for (const FaultyDatabase::Pair& expected :
       {FaultyDatabase::Pair{"Provider", "Microsoft.Jet.OLEDB.4.0"},
        {"Data Source", state.host.resPath + "VPB.rgt"},
        {"Jet OLEDB:Database Password", "4rdxtz8w"}}) {
    SCOPED_TRACE(expected.first);
    EXPECT_EQ(std::ranges::count(databases.properties, expected), 1);
  }
  EXPECT_EQ(databases.opens, 0);
}

TEST_F(DialWindowLoad, OpensWhereItWasOrNearTheCorner) {
  struct Case {
    const char* left;
    const char* top;
    QPoint position;
  };
  for (const Case& c : {Case{"300", "450", {20, 30}},
                        {"-123", "450", Fallback()},
                        {"-99999", "450", Fallback()},
                        {"300", "x", Fallback()}}) {
    SCOPED_TRACE(std::string(c.left) + "," + c.top);
    SetDialSetting("L", c.left);
    SetDialSetting("T", c.top);
    MakeWindow();
    window->Load();
    EXPECT_EQ(window->pos(), c.position);
  }
}

TEST_F(DialWindowLoad, ShowsTheTestBoxToDevelopersOnly) {
  for (const auto& [flag, shown] : {std::pair{"", false},
                                    {"0", false},
                                    {"1", true},
                                    {"-1", true},
                                    {"True", true},
                                    {"nein", false}}) {
    SCOPED_TRACE(flag);
    SetDeveloperFlag(flag);
    MakeWindow();
    window->Load();
    EXPECT_EQ(Find<QCheckBox>("chkDevDial")->isVisibleTo(window.get()), shown);
    EXPECT_EQ(window->DevDialTicked(), shown);
  }
}

TEST_F(DialWindowLoad, OffersTheClipboardWhenItHoldsANumber) {
  SetClipboard("Tel.: 030 / 12 34");
  window->Load();
  EXPECT_EQ(window->NumberText(), "030 / 12 34");
  EXPECT_EQ(TextOf("lblHead"), "Berlin");
}

TEST_F(DialWindowLoad, GetsThroughWithoutRegistryAndDatabase) {
  registry->denyReads = true;
  SetClipboard("030123");
  window->Load();
  EXPECT_TRUE(window->IsLoaded());
  EXPECT_EQ(window->pos(), Fallback());
  EXPECT_EQ(window->NumberText(), "030123");
  EXPECT_EQ(channel.Windows().size(), 1U);
}

TEST_F(DialWindowLoad, ClosesInEveryWayForGood) {
  const std::pair<const char*, std::function<void()>> ways[] = {
      {"button", [this] { Click("hovClose"); }},
      {"window manager", [this] { window->close(); }},
      {"host", [this] { Send("TX:17~Dial~0|KillMySelf|"); }},
      {"host behind a box",
       [this] {
         prompts.whileShown = [this] {
           prompts.whileShown = nullptr;
           Send("TX:17~Dial~0|KillMySelf|");
           EXPECT_TRUE(window->IsLoaded());
         };
         Send("TX:17~Wahl~x~Dial~0|030123");
       }},
      {"host between two commands",
       [this] {
         loop.Post([this] { Send("TX:17~Dial~0|KillMySelf|"); });
         Send("TX:17~Dial~0|030123");
       }},
  };
  for (const auto& [name, close] : ways) {
    SCOPED_TRACE(name);
    state.host.registry = services.newRegistry();
    BindHostRegistry(*state.host.registry);
    state.host.userNumber = 17;
    loop.quit = false;
    MakeWindow();
    ShowWindow();
    serial.SetPortOpen(true);
    window->move(40, 50);

    close();

    EXPECT_TRUE(loop.quit);
    EXPECT_FALSE(window->IsLoaded());
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(state.host.dialWindowRunning);
    EXPECT_EQ(state.host.userNumber, 0);
    EXPECT_EQ(state.host.registry, nullptr);
    EXPECT_EQ(state.databases.journal, nullptr);
    EXPECT_FALSE(serial.PortOpen());
    EXPECT_TRUE(channel.Windows().empty());
    const auto saved = services.newRegistry();
    BindHostRegistry(*saved);
    EXPECT_EQ(saved->Read("Dial", "L", ""), "600");
    EXPECT_EQ(saved->Read("Dial", "T", ""), "750");
    EXPECT_EQ(saved->Read("Dial", "W", ""), "4770");

    loop.quit = false;
    window->Unload();
    window->Show();
    EXPECT_FALSE(loop.quit);
    EXPECT_FALSE(window->isVisible());
  }
}

TEST_F(DialWindowLoad, EndsAModemCallAndTheTelephoneSession) {
  window->Load();
  tapi.SetTag("opened");
  state.settings.tapiLineId = 2;
  window->SetNumberText("0301234");
  Click("cmdDial_0");
  serial.Feed("OK\r\n");
  ASSERT_TRUE(serial.PortOpen());
  ASSERT_EQ(loop.PendingTimers(), 1) << "the call is held";
  window->Unload();
  EXPECT_EQ(loop.PendingTimers(), 0);
  EXPECT_FALSE(serial.PortOpen());
  EXPECT_EQ(tapi.log, (std::vector<std::string>{"drop 2 0", "close 2", "shutdown"}));
}

}  // namespace
}  // namespace orvane
