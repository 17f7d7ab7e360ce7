#pragma once

#include <gtest/gtest.h>

#include "app/host_paths.h"
#include "app/program_state.h"
#include "app/work_queue.h"
#include "dialing/session.h"
#include "fakes/fake_channel.h"
#include "fakes/fake_ini.h"
#include "fakes/fake_instance.h"
#include "fakes/fake_panel.h"
#include "fakes/fake_prompts.h"
#include "fakes/fake_registry.h"
#include "fakes/fake_serial.h"
#include "fakes/fake_tapi.h"
#include "fakes/faulty_database.h"
#include "fakes/fixed_clock.h"
#include "fakes/hand_loop.h"
#include "fakes/recording_log.h"
#include "fakes/temporary_folder.h"
#include "journal/call_logger.h"
#include "journal_schema.h"
#include "platform/databases/sqlite/sqlite_services.h"

namespace orvane {

// What keeps locks from other machines, once a test says so.
class FakeFolderLocks : public FolderLocks {
 public:
  std::string Obstacle(const std::string& folder) override {
    asked.push_back(folder);
    return obstacle;
  }
  std::string obstacle;
  std::vector<std::string> asked;
};

// The program on a fake machine: a host folder of its own with user 17, and nothing else that is
// real but SQLite files.
class ProgramFixture : public testing::Test {
 protected:
  ProgramFixture() {
    std::filesystem::create_directories(folder / "Daten/User/17/res");
    state.host.hostPath = folder.Path().string() + "/";
    state.host.dataPath = state.host.hostPath + "Daten\\";
    state.host.resPath = state.host.hostPath + "res\\";
    state.host.userNumber = 17;
    state.host.userPath = UserFolder(state.host, 17);
    state.host.registry = newRegistry();
    BindHostRegistry(*state.host.registry);
    state.settings.countryPrefix = "+49";
  }
  std::filesystem::path UserFile(const std::string& name) const {
    return folder / "Daten/User/17/res" / name;
  }
  static void WriteFile(const std::filesystem::path& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
  }
  void SetRegistry(const std::string& name, const std::string& value) {
    state.host.registry->Write("", name, value);
  }
  std::string Registry(const std::string& name, const std::string& section = "") {
    return state.host.registry->Read(section, name).value_or("");
  }
  TemporaryFolder folder;
  std::shared_ptr<FakeRegistryStore> registry = std::make_shared<FakeRegistryStore>();
  std::shared_ptr<FakeDesktop> desktop = std::make_shared<FakeDesktop>();
  FakeIni ini;
  SqliteServices sqlite;
  FaultyDatabase databases{sqlite};
  FakeSerial serial;
  FakeTapi tapi;
  FakeChannel channel{desktop};
  FakeInstance instance;
  HandLoop loop;
  FixedClock clock;
  GermanFormat locale;
  FakePrompts prompts;
  RecordingLog supportLog;
  RegistryFactory newRegistry = FakeRegistryFactory(registry);
  std::vector<std::string> serialPorts{"COM1", "COM3"};
  ProgramState state;
  WorkQueue queue;
  ImmediateBackground background;
  FakeFolderLocks folderLocks;
  TelList journal{databases, folderLocks, background, prompts, queue, supportLog};
  FakePanel panel;
};

// The same with the telephone session of a window that is none.
class SessionFixture : public ProgramFixture {
 protected:
  CallLogger logger{journal, databases, locale, prompts, supportLog, state, panel};
  Session session{logger, panel};
};

// The same with an empty journal.
class JournalFixture : public SessionFixture {
 protected:
  JournalFixture() { CreateJournalFile(UserFile("TelList.fdb")); }
};

}  // namespace orvane
