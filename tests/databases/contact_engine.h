#pragma once

#include <fstream>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "app/program_state.h"
#include "fakes/faulty_database.h"
#include "fakes/temporary_folder.h"
#include "platform/common/sqlite_services.h"
#include "sqlite_script.h"

namespace orvane {

// A contact database with the content of tests/data/contacts.sql, kept by one of the engines.
class ContactEngine {
 public:
  virtual ~ContactEngine() = default;
  virtual DatabaseServices& Databases() = 0;
  // Makes the host's settings lead to it.
  virtual void Select(HostEnvironment& host) = 0;
  // Why it cannot be tried on this machine; empty when it can.
  virtual std::string Obstacle() const { return {}; }
};

struct ContactEngineEntry {
  const char* name;
  std::function<std::unique_ptr<ContactEngine>()> make;
};

// Those that only this system has.
std::vector<ContactEngineEntry> SystemContactEngines();

inline std::string TestDataText(const std::string& name) {
  std::ifstream file(std::string(ORVANE_TEST_DATA) + "/" + name, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

class SqliteContacts : public ContactEngine {
 public:
  SqliteContacts() {
    SqliteScript script(folder_ / "CONTACT.FDB");
    script.Run(TestDataText("contacts.sql"));
    script.Finish();
  }
  DatabaseServices& Databases() override { return sqlite_; }
  void Select(HostEnvironment& host) override { host.dataPath = folder_.Path().string() + "/"; }

 private:
  TemporaryFolder folder_;
  SqliteServices sqlite_;
};

// Through the tests' own connection, which may answer in no other way than the real ones.
class FaultyContacts : public SqliteContacts {
 public:
  DatabaseServices& Databases() override { return faulty_; }

 private:
  FaultyDatabase faulty_{SqliteContacts::Databases()};
};

}  // namespace orvane
