#include "platform/support/logged_system.h"

#include "app/settings_loader.h"
#include "dialing/dial_command.h"
#include "dialing/line_events.h"
#include "dialing/number_preparation.h"
#include "fakes/program_fixture.h"
#include "platform/lines/simulated_lines.h"
#include "platform/lines/tapi_lines.h"
#include "platform/support/support_log_file.h"
#include "remote/command_channel.h"
#include "remote/copy_data_text.h"
#include "sample_contacts.h"

namespace orvane {
namespace {

std::vector<std::unique_ptr<LineServiceProvider>> Simulated(EventLoop& loop, CallHandles& handles) {
  std::vector<std::unique_ptr<LineServiceProvider>> providers;
  providers.push_back(std::make_unique<SimulatedLines>(loop, handles, SimulatedLines::Times{}));
  return providers;
}

struct Contact {
  std::string number;
  std::string company;
  std::string person;
  std::string place;
};

// Those of the demo: everybody with each of his numbers.
std::vector<Contact> DemoContacts() {
  std::vector<Contact> contacts;
  for (const SampleCompany& company : DefaultContacts().companies) {
    contacts.push_back({company.headOffice, company.name, "", company.city});
    for (const SamplePerson& person : company.persons) {
      const std::string name = person.lastName + ", " + person.firstName;
      for (const std::string& number : {person.phone1, person.mobile}) {
        contacts.push_back({number, company.name, name, company.city});
      }
    }
  }
  std::erase_if(contacts, [](const Contact& contact) { return contact.number.empty(); });
  return contacts;
}

// The program on its fake machine, with everything telling the log what it does.
class LoggedSystemTest : public JournalFixture {
 protected:
  LoggedSystemTest() { panel.externVisible = panel.externTicked = true; }

  void Play(SupportLog& to) {
    LoggedSystem logged(to);
    TapiControl& lines = logged.Told(plainLines);
    SerialControl& port = logged.Told(serial);
    Prompts& boxes = logged.Told(prompts);
    HostChannel& toHost = logged.Told(channel);
    DatabaseServices& files = logged.Told(databases);
    SettingsLoader settings(ini, lines, boxes, to, state, panel, [] {});
    TelList calls(files, folderLocks, background, boxes, queue, to);
    CallLogger toldLogger(calls, files, locale, boxes, to, state, panel);
    Session call(toldLogger, panel);
    ModemDialer modem({port, loop, clock, boxes, queue}, state.settings, call, panel);
    TapiDialer line(lines, locale, boxes, state.settings, call, panel);
    const LineEvents events(lines, clock, boxes, queue, panel, line);
    RedialMemory redial(newRegistry, background);
    DialCommand dial(boxes, to, state, call, panel, redial, modem, line);
    CommandChannel commands(toHost, loop, boxes, to, state, call, queue, panel);
    SetRegistry("CTI", "2");
    SetRegistry("TapiBez", "Simulierte Leitung 1");
    panel.loaded = true;
    settings.InitSettings();
    commands.HookWindow(1, "TALMIX_BRISKO");
    for (const Contact& contact : contacts) {
      Receive("TX:17~Dial~1|" + contact.number + "|" + contact.company + "|" + contact.person +
              "|" + contact.place + "|47|12");
      queue.Submit([&] { dial.Click(clock.Now()); });
      Receive("TX:17~Dial~1|030 1|x|y|z");
      loop.Advance(std::chrono::seconds(5));
      queue.Submit([&] { dial.Click(clock.Now()); });
      loop.Advance(std::chrono::seconds(5));
    }
    Receive("TX:17~Wahl~" + contacts.front().number + "|" + contacts.front().company);
    SetRegistry("CTI", "1");
    settings.InitSettings();
    queue.Submit([&] { dial.Click(clock.Now()); });
    serial.Feed("OK");
    loop.Advance(std::chrono::seconds(1));
    serial.Unplug();
    queue.Submit([&] { dial.Click(clock.Now()); });
    databases.FailOpen(kDbErrorFailed, "gesperrt");
    queue.Submit([&] { dial.Click(clock.Now()); });
    commands.UnhookWindow();
  }
  void Receive(const std::string& message) {
    for (const PeerWindow& window : channel.Windows()) {
      channel.SendCopyData(window, MakeCopyData(message));
    }
  }
  std::string WrittenLog(bool masked) {
    {
      SupportLogFile log(folder / "log", {"Orvane"}, masked, clock, {});
      log.Begin();
      Play(log);
    }
    std::ifstream file(folder / "log" / "Orvane.log");
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  const std::vector<Contact> contacts = DemoContacts();
  CallHandles handles;
  TapiLines plainLines{Simulated(loop, handles)};
};

TEST_F(LoggedSystemTest, TheMaskedLogTellsEveryStepAndNoNumberOrName) {
  const std::string log = WrittenLog(true);
  for (const Contact& contact : contacts) {
    for (const std::string& secret : {contact.number, FilterChars(contact.number, kDigits, true),
                                      contact.company, contact.person, contact.place}) {
      if (secret.size() > 3) {
        EXPECT_EQ(log.find(secret), log.npos) << secret;
      }
    }
  }
  std::size_t from = 0;
  for (const char* step : {"Talmix in ",
                           "Benutzer 17",
                           "Leitungen suchen",
                           "empfangen: TX:17~Dial~1|",
                           "Wählen: *",
                           "Leitung #0 wählt",
                           "nicht übernommen: es läuft ein Gespräch",
                           "es läutet (0x20)",
                           "verbunden (0x100)",
                           "Auflegen, über die Leitung",
                           "trennen",
                           "beendet nach ",
                           "Dauer ins Journal geschrieben: ",
                           "abgelehnt: unbekannter Befehl",
                           "[Fehler 87117] Der Schlüsselbefehl",
                           "COM1 öffnen (",
                           "AT senden (",
                           "empfangen: 2 Zeichen",
                           "ATDT *",
                           "Ausfall: Fehler 8020",
                           "ATH0 senden: Fehler",
                           "TelList.fdb, öffnen: Fehler -2147467259 (0x80004005)",
                           "gesperrt"}) {
    const std::size_t found = log.find(step, from);
    ASSERT_NE(found, log.npos) << step << " is not in\n" << log.substr(from);
    from = found;
  }
}

TEST_F(LoggedSystemTest, TheOpenLogHasNumberAndName) {
  const std::string log = WrittenLog(false);
  EXPECT_NE(log.find("|" + contacts.front().company + "|"), log.npos);
  EXPECT_NE(log.find("ATDT 0"), log.npos);
}

TEST_F(LoggedSystemTest, WithoutAListenerEverythingStaysItself) {
  NoSupportLog nobody;
  LoggedSystem logged(nobody);
  EXPECT_EQ(&logged.Told(serial), &serial);
  EXPECT_EQ(&logged.Told(plainLines), &plainLines);
  EXPECT_EQ(&logged.Told(databases), &databases);
}

}  // namespace
}  // namespace orvane
