#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <semaphore>

#include "dial_window_fixture.h"
#include "fakes/raw_sqlite.h"
#include "platform/databases/qt_long_work.h"
#include "remote/copy_data_text.h"

namespace orvane {
namespace {

class DialWindowLoad : public DialWindowFixture {
 protected:
  QPoint Fallback() const {
    return {QGuiApplication::primaryScreen()->geometry().width() - window->width() - 60, 60};
  }
  void Send(const std::string& text) {
    for (const PeerWindow& peer : channel.Windows()) {
      channel.SendCopyData(peer, MakeCopyData(text));
    }
  }
};

TEST_F(DialWindowLoad, BuildsTheWindowWithoutShowingIt) {
  SetClipboard("Tel.: 030 / 12 34");
  for (int time = 0; time < 2; ++time) window->Load();
  EXPECT_FALSE(window->isVisible());
  EXPECT_TRUE(window->IsLoaded());
  EXPECT_TRUE(window->windowTitle().startsWith(QStringLiteral("TALMIX_BRISKO")));
  EXPECT_TRUE(window->windowFlags().testFlag(Qt::FramelessWindowHint));
  EXPECT_EQ(TextOf("lblVer"), "Brisko v" ORVANE_VERSION);
  EXPECT_EQ(TextOf("lblHead"), "Berlin");
  EXPECT_EQ(window->NumberText(), "030 / 12 34");
  EXPECT_EQ(TextOf("lblBase_2"), "<Bereit>");
  EXPECT_EQ(TextOf("lblBase_3"), "COM1: initialisiert");
  ASSERT_EQ(channel.Windows().size(), 1U);
  EXPECT_TRUE(channel.Windows()[0].caption.starts_with("TALMIX_BRISKO"));
  EXPECT_EQ(chrome->log,
            (std::vector<std::string>{"318", "541", "20", "shadow", "topmost -1 quietly"}));
  // The area code table is set up without being opened.
  for (const FaultyDatabase::Pair& expected :
       {FaultyDatabase::Pair{"Provider", "Microsoft.Jet.OLEDB.4.0"},
        {"Data Source", state.host.resPath + "VPB.rgt"},
        {"Jet OLEDB:Database Password", "4rdxtz8w"}}) {
    EXPECT_EQ(std::ranges::count(databases.properties, expected), 1) << expected.first;
  }
  EXPECT_EQ(databases.opens, 0);
}

TEST_F(DialWindowLoad, OpensWhereItWasOrNearTheCorner) {
  for (const auto& [left, top, position] : {std::tuple{"300", "450", QPoint(20, 30)},
                                            {"-123", "450", Fallback()},
                                            {"-99999", "450", Fallback()},
                                            {"300", "x", QPoint(20, 0)}}) {
    state.host.registry->Write("Dial", "L", left);
    state.host.registry->Write("Dial", "T", top);
    MakeWindow();
    window->Load();
    EXPECT_EQ(window->pos(), position) << left << "," << top;
  }
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
  const auto kill = [this] { Send("TX:17~Dial~0|KillMySelf|"); };
  // The database answers only when the host has spoken.
  const auto killWhileOpening = [&] {
    databases.whileOpening = [&] {
      databases.whileOpening = nullptr;
      std::binary_semaphore spoken{0};
      QTimer::singleShot(40, [&] {
        kill();
        spoken.release();
      });
      bool met = false;
      QtLongWork().Run([&] { met = spoken.try_acquire_for(std::chrono::seconds{60}); });
      EXPECT_TRUE(met && window->IsLoaded());
    };
  };
  const std::pair<const char*, std::function<void()>> kWays[] = {
      {"button", [this] { Click("hovClose"); }},
      {"window manager", [this] { window->close(); }},
      {"host", kill},
      {"host behind a box",
       [&] {
         prompts.whileShown = [&] {
           prompts.whileShown = nullptr;
           kill();
           EXPECT_TRUE(window->IsLoaded());
         };
         Send("TX:17~Wahl~x~Dial~0|030123");
       }},
      {"host while the area codes are read",
       [&] {
         killWhileOpening();
         QTest::keyClicks(Find<QLineEdit>("txtNr"), "02");
       }},
      {"host while a contact is looked up",
       [&] {
         window->SetNumberText("0301234");
         killWhileOpening();
         Click("cmdDial_0");
       }},
      {"host between two commands", [&] {
         loop.Post(kill);
         Send("TX:17~Dial~0|030123");
       }}};
  for (const auto& [name, close] : kWays) {
    SCOPED_TRACE(name);
    state.host.registry = newRegistry();
    BindHostRegistry(*state.host.registry);
    state.host.userNumber = 17;
    loop.quit = false;
    MakeWindow();
    ShowWindow();
    serial.SetPortOpen(true);
    window->move(40, 50);

    close();

    EXPECT_TRUE(loop.quit);
    EXPECT_FALSE(window->IsLoaded() || window->isVisible());
    EXPECT_EQ(state.host.userNumber, 0);
    EXPECT_EQ(state.host.registry, nullptr);
    EXPECT_EQ(state.databases.host, nullptr);
    EXPECT_FALSE(serial.PortOpen());
    EXPECT_TRUE(channel.Windows().empty());
    const auto saved = newRegistry();
    BindHostRegistry(*saved);
    for (const auto& [key, value] : {std::pair{"L", "600"}, {"T", "750"}, {"W", "4770"}}) {
      EXPECT_EQ(saved->Read("Dial", key).value_or(""), value);
    }
    loop.quit = false;
    window->Unload();
    window->Show();
    EXPECT_FALSE(loop.quit || window->isVisible());
  }
}

TEST_F(DialWindowLoad, EndsAModemCallAndTheTelephoneSession) {
  window->Load();
  tapi.tag = TapiTag::kOpened;
  state.settings.tapiLineId = 2;
  window->SetNumberText("0301234");
  Click("cmdDial_0");
  serial.Feed("OK\r\n");
  ASSERT_EQ(loop.PendingTimers(), 1) << "the call is held";
  window->Unload();
  EXPECT_EQ(loop.PendingTimers(), 0);
  EXPECT_FALSE(serial.PortOpen());
  EXPECT_EQ(tapi.log, (std::vector<std::string>{"drop 2 0", "close 2", "shutdown"}));
}

TEST_F(DialWindowLoad, ALineThatComesIntoReachIsOpenedAndNothingElseIsReadAgain) {
  SetRegistry("CTI", "2");
  SetRegistry("TapiBez", "Büro");
  window->Load();
  EXPECT_EQ(TextOf("lblBase_2"), "TAPI-Fehler!");
  tapi.lineNames = {"Büro"};
  SetRegistry("AmtExt", "9");
  tapi.events->OnLineMessage("INSERVICE", "TapiLineDevState", 64);
  EXPECT_EQ(TextOf("lblBase_2"), "<Bereit>");
  EXPECT_EQ(state.settings.tapiLineId, 0);
  EXPECT_EQ(state.settings.outsideLineExt, "");
}

TEST_F(DialWindowLoad, TheEndOfTheProgramCompletesTheRowOfACall) {
  CreateJournalFile(UserFile("TelList.fdb"));
  SetRegistry("CTI", "2");
  SetRegistry("TapiBez", "Büro");
  tapi.lineNames = {"Büro"};
  window->Load();
  window->SetNumberText("0301234");
  Click("cmdDial_0");
  tapi.events->OnCallState(7, 8, kLineCallConnected);
  tapi.events->OnConnected(7);
  clock.now.minute += 2;
  window->Unload();
  EXPECT_EQ(RawSqlite(UserFile("TelList.fdb")).Run("SELECT Dauer FROM o"), "2 Min. ");
  const std::vector<std::string> end(tapi.log.end() - 3, tapi.log.end());
  EXPECT_EQ(end, (std::vector<std::string>{"drop 0 7", "close 0", "shutdown"}));
}

}  // namespace
}  // namespace orvane
